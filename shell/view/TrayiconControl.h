#pragma once

#include "shell/view/TrayIconWindow.h"

#include <functional>
#include <shellapi.h>

// The launcher's icon in the notification area, and what the mouse on it does. The icon
// comes back by itself when the shell restarts. Outlives its hidden window, which goes in
// the message loop after the icon was removed. Window thread only.

namespace view {

// What the shell is told of the icon whose messages go to this window.
NOTIFYICONDATAW describeIcon(HWND window);

class TrayiconControl final : public ITrayIconDelegate {
public:
    TrayiconControl();
    TrayiconControl(const TrayiconControl&) = delete;
    TrayiconControl& operator=(const TrayiconControl&) = delete;

    // A refusal of the shell is logged; the program goes on without the icon.
    void addTrayIcon(HWND mainWindow); // which is not used
    void removeTrayIcon();

    bool onMouseMessage(UINT message) override;

    std::function<void()> rightAction; // both must be set before the icon is added
    std::function<void()> leftAction;

private:
    void makeWindow();
    void showIcon();

    TrayIconWindow* window = nullptr; // owns itself; null when removed
};

} // namespace view
