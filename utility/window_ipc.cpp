#include "utility/window_ipc.h"

#include "utility/log.h"

namespace utility {

namespace {

constexpr UINT FirstMessage = WM_USER + 1;

const wchar_t* orNull(const std::wstring& text) {
    return text.empty() ? nullptr : text.c_str();
}

} // namespace

WindowIPC::~WindowIPC() {
    if (handler)
        DestroyWindow(hWnd);
}

bool WindowIPC::create(const std::wstring& className, IWindowIPCHandle* receiver) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = windowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className.c_str();
    RegisterClassExW(&windowClass); // fails for a class that exists already, which is as good
    CreateWindowExW(0, className.c_str(), L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, windowClass.hInstance,
                    this);
    if (!hWnd)
        return false;
    handler = receiver;
    return true;
}

bool WindowIPC::open(const std::wstring& className, const std::wstring& windowName) {
    SetLastError(ERROR_SUCCESS); // of an earlier call
    hWnd = FindWindowExW(nullptr, nullptr, orNull(className), orNull(windowName));
    const DWORD error = GetLastError();
    if (hWnd)
        return true;
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND)
        common::log("utility::WindowIPC::open", __LINE__, L"className:%s, windowName:%s, error:%d",
                    className.c_str(), windowName.c_str(), error);
    return false;
}

bool WindowIPC::postMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return hWnd && PostMessageW(hWnd, message, wParam, lParam);
}

LRESULT CALLBACK WindowIPC::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto self = static_cast<WindowIPC*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        self->hWnd = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (message < FirstMessage && message != WM_COPYDATA)
        return DefWindowProcW(window, message, wParam, lParam);
    const auto self = reinterpret_cast<WindowIPC*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && self->hWnd == window && self->handler)
        self->handler->onHandleWindowIPC(message, wParam, lParam);
    return 0;
}

} // namespace utility
