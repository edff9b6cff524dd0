#include "shell/view/TrayiconControl.h"

#include "utility/log.h"

#include <memory>

namespace view {

namespace {

constexpr UINT IconId = 8194;
constexpr int IconResource = 107;
constexpr int IconSize = 16; // pixels
constexpr wchar_t ToolTip[] = L"VYN Launcher";

} // namespace

TrayiconControl::TrayiconControl() {
    makeWindow();
}

void TrayiconControl::makeWindow() {
    auto made = std::make_unique<TrayIconWindow>(*this);
    if (!made->create()) {
        common::log("view::TrayiconControl::makeWindow", __LINE__, L"no window, error %u", GetLastError());
        return;
    }
    window = made.release();
    window->onShellStarted = [this] { showIcon(); };
}

NOTIFYICONDATAW describeIcon(HWND window) {
    NOTIFYICONDATAW icon = {};
    icon.cbSize = NOTIFYICONDATAW_V3_SIZE;
    icon.hWnd = window;
    icon.uID = IconId;
    icon.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_INFO;
    icon.uCallbackMessage = TrayIconMessage;
    // Shared: the system keeps one copy, whatever the number of calls.
    icon.hIcon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IconResource),
                                               IMAGE_ICON, IconSize, IconSize, LR_DEFAULTCOLOR | LR_SHARED));
    wcscpy(icon.szTip, ToolTip);
    return icon;
}

void TrayiconControl::addTrayIcon(HWND) {
    if (!window)
        makeWindow();
    if (window)
        showIcon();
}

void TrayiconControl::showIcon() {
    constexpr char Function[] = "view::TrayiconControl::addTrayIcon";
    common::log(Function, __LINE__, L"addTrayIcon");
    NOTIFYICONDATAW icon = describeIcon(window->GetHWND());
    if (Shell_NotifyIconW(NIM_ADD, &icon))
        common::log(Function, __LINE__, L"addTrayIcon sucess");
    else
        common::log(Function, __LINE__, L"addTrayIcon error. last error = %d", GetLastError());
}

void TrayiconControl::removeTrayIcon() {
    if (!window)
        return;
    NOTIFYICONDATAW icon = describeIcon(window->GetHWND());
    Shell_NotifyIconW(NIM_DELETE, &icon);
    window->onShellStarted = nullptr;
    window->Close(1);
    window = nullptr;
}

bool TrayiconControl::onMouseMessage(UINT message) {
    constexpr char Function[] = "view::TrayiconControl::onMouseMessage";
    switch (message) {
    case WM_LBUTTONDOWN:
        common::log(Function, __LINE__, L"TrayiconControl, mouse LButtonDown");
        leftAction();
        return true;
    case WM_LBUTTONDBLCLK:
        common::log(Function, __LINE__, L"TrayiconControl, mouse doubleButtonDown");
        return true;
    case WM_RBUTTONUP:
        common::log(Function, __LINE__, L"TrayiconControl, mouse rightButtonDown");
        rightAction();
        return true;
    default:
        return false;
    }
}

} // namespace view
