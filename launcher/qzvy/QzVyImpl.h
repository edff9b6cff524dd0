#pragma once

#include "shell/view/TrayiconControl.h"
#include "utility/handles.h"
#include "utility/window_ipc.h"

#include <memory>
#include <string>

class QzVyMainFrame;

// The launcher application: the program's whole life from process entry to process end,
// on the window thread.
class QzVyImpl : public utility::IWindowIPCHandle {
public:
    // -1 when the platform's object model cannot start, otherwise 1, also for a second
    // instance, which raises the first one and shows nothing itself.
    int entrance(HINSTANCE instance);

private:
    void startServices(const std::wstring& logFolder);
    void loadSkin(HINSTANCE instance);
    void runFirstInstance();
    void createMainFrame();
    void fitMainFrame();
    void createTrayIcon();
    void showTrayMenu();
    bool onTrayMenu(const std::wstring& name);
    bool isPlayerExist();
    void runMessageLoop();
    void handOver();

    void onHandleWindowIPC(UINT message, WPARAM wParam, LPARAM lParam) override;
    void raiseMainFrame();

    QzVyMainFrame* mainFrame = nullptr;              // owns itself; null once its window is gone
    std::unique_ptr<view::TrayiconControl> trayIcon; // null in a second instance
    utility::WindowIPC windowIpc;                    // listens in the first instance only
    utility::KernelHandle instanceMutex;
};
