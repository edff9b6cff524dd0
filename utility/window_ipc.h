#pragma once

#include "utility/windows.h"

#include <string>

// A local channel between processes: the listening end is a hidden window whose class
// name is well known, the sending end finds it and posts a number with two word-sized
// parameters. Nothing is answered.

namespace utility {

class IWindowIPCHandle {
public:
    // On the thread that called WindowIPC::create, from its message loop.
    virtual void onHandleWindowIPC(UINT message, WPARAM wParam, LPARAM lParam) = 0;

protected:
    ~IWindowIPCHandle() = default;
};

class WindowIPC {
public:
    WindowIPC() = default;
    WindowIPC(const WindowIPC&) = delete;
    WindowIPC& operator=(const WindowIPC&) = delete;
    ~WindowIPC(); // a listening end takes its window along, on the thread of create

    // Listening end; handler is not owned and must outlive the window. True if the
    // window exists.
    bool create(const std::wstring& className, IWindowIPCHandle* handler);

    // Sending end. False if there is no such window. An empty name fits every window.
    bool open(const std::wstring& className) { return open(className, {}); }
    bool open(const std::wstring& className, const std::wstring& windowName);

    // Any thread; never waits for the receiver.
    bool postMessage(UINT message, WPARAM wParam, LPARAM lParam);

private:
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND hWnd = nullptr;
    IWindowIPCHandle* handler = nullptr;
};

} // namespace utility
