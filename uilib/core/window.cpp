#include "uilib/core/window.h"

#include "uilib/core/paint_manager.h"
#include "uilib/core/rects.h"
#include "utility/log.h"

namespace UILib {

namespace {

constexpr wchar_t ObjectProperty[] = L"WndX";

bool registered(const WNDCLASSEXW& description) {
    if (RegisterClassExW(&description) || GetLastError() == ERROR_CLASS_ALREADY_EXISTS)
        return true;
    common::log("CWindowWnd::Create", __LINE__, L"cannot register %s, error %u", description.lpszClassName,
                GetLastError());
    return false;
}

} // namespace

HWND CWindowWnd::Create(HWND parent, const wchar_t* name, DWORD style, DWORD extendedStyle, int x, int y,
                        int cx, int cy, HMENU menu) {
    if (!(GetSuperClassName() ? registerSuperClass() : registerWindowClass()))
        return nullptr;
    creating = true; // keeps a window that goes again on the way from deleting the object
    window = CreateWindowExW(extendedStyle, GetWindowClassName(), name, style, x, y, cx, cy, parent, menu,
                             CPaintManagerUI::GetInstance(), this);
    creating = false;
    return window;
}

HWND CWindowWnd::Create(HWND parent, const wchar_t* name, DWORD style, DWORD extendedStyle,
                        const RECT& rectangle) {
    return Create(parent, name, style, extendedStyle, rectangle.left, rectangle.top, width(rectangle),
                  height(rectangle));
}

HWND CWindowWnd::Create(HWND parent, const wchar_t* name, DWORD style, DWORD extendedStyle) {
    return Create(parent, name, style, extendedStyle, 0, 0, 0, 0);
}

bool CWindowWnd::registerWindowClass() const {
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.style = GetClassStyle();
    description.lpfnWndProc = windowProc;
    description.hInstance = CPaintManagerUI::GetInstance();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = GetWindowClassName();
    return registered(description);
}

bool CWindowWnd::registerSuperClass() {
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    if (!GetClassInfoExW(nullptr, GetSuperClassName(), &description) &&
        !GetClassInfoExW(CPaintManagerUI::GetInstance(), GetSuperClassName(), &description))
        return false;
    oldProc = description.lpfnWndProc;
    description.lpfnWndProc = controlProc;
    description.hInstance = CPaintManagerUI::GetInstance();
    description.lpszClassName = GetWindowClassName();
    return registered(description);
}

HWND CWindowWnd::Subclass(HWND existing) {
    if (window || !existing)
        return nullptr;
    oldProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(existing, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(windowProc)));
    if (!oldProc) {
        oldProc = DefWindowProcW;
        return nullptr;
    }
    subclassed = true;
    window = existing;
    SetWindowLongPtrW(existing, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return window;
}

void CWindowWnd::Unsubclass() {
    if (!subclassed || !IsWindow(window))
        return;
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(oldProc));
    oldProc = DefWindowProcW;
    subclassed = false;
}

LRESULT CWindowWnd::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(oldProc, window, message, wParam, lParam);
}

// The object may be gone when this returns.
LRESULT CWindowWnd::finish(HWND handle, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CallWindowProcW(oldProc, handle, WM_NCDESTROY, wParam, lParam);
    if (subclassed)
        Unsubclass();
    window = nullptr;
    if (!creating)
        OnFinalMessage(handle);
    return result;
}

LRESULT CALLBACK CWindowWnd::windowProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    CWindowWnd* object = reinterpret_cast<CWindowWnd*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (message == WM_NCCREATE) {
        object = static_cast<CWindowWnd*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        object->window = handle;
        SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(object));
    } else if (message == WM_NCDESTROY && object) {
        SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
        return object->finish(handle, wParam, lParam);
    }
    return object ? object->HandleMessage(message, wParam, lParam)
                  : DefWindowProcW(handle, message, wParam, lParam);
}

LRESULT CALLBACK CWindowWnd::controlProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    CWindowWnd* object = static_cast<CWindowWnd*>(GetPropW(handle, ObjectProperty));
    if (message == WM_NCCREATE) {
        object = static_cast<CWindowWnd*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        object->window = handle;
        SetPropW(handle, ObjectProperty, object);
    } else if (message == WM_NCDESTROY && object) {
        RemovePropW(handle, ObjectProperty);
        return object->finish(handle, wParam, lParam);
    }
    return object ? object->HandleMessage(message, wParam, lParam)
                  : DefWindowProcW(handle, message, wParam, lParam);
}

void CWindowWnd::ShowWindow(bool show, bool takeFocus) {
    if (IsWindow(window))
        ::ShowWindow(window, !show ? SW_HIDE : takeFocus ? SW_SHOWNORMAL : SW_SHOWNOACTIVATE);
}

UINT_PTR CWindowWnd::ShowModal() {
    const HWND handle = window, owner = GetWindow(handle, GW_OWNER);
    const auto wakeOwner = [owner] {
        if (!owner)
            return;
        EnableWindow(owner, TRUE);
        ::SetFocus(owner);
    };
    ::ShowWindow(handle, SW_SHOWNORMAL);
    if (owner)
        EnableWindow(owner, FALSE);
    UINT_PTR result = 0;
    MSG message = {};
    while (IsWindow(handle) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_CLOSE && message.hwnd == handle) {
            result = message.wParam;
            wakeOwner(); // before the window goes, or the system activates another program's
        }
        if (!CPaintManagerUI::TranslateMessage(&message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        if (message.message == WM_QUIT)
            break;
    }
    wakeOwner();
    if (message.message == WM_QUIT)
        PostQuitMessage(static_cast<int>(message.wParam));
    return result;
}

void CWindowWnd::Close(UINT_PTR result) {
    if (IsWindow(window))
        PostMessage(WM_CLOSE, result);
}

void CWindowWnd::CenterWindow() {
    const HWND owner = GetWindow(window, GW_OWNER);
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner ? owner : window, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    RECT frame = {}, around = work;
    GetWindowRect(window, &frame);
    if (owner && !IsIconic(owner))
        GetWindowRect(owner, &around);
    const int w = width(frame), h = height(frame);
    const int x = limited((around.left + around.right) / 2 - w / 2, work.left, work.right - w);
    const int y = limited((around.top + around.bottom) / 2 - h / 2, work.top, work.bottom - h);
    SetWindowPos(window, nullptr, x, y, -1, -1, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWindowWnd::ResizeClient(int cx, int cy) {
    RECT client = {};
    if (!GetClientRect(window, &client))
        return;
    if (cx != -1)
        client.right = cx;
    if (cy != -1)
        client.bottom = cy;
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    const auto extendedStyle = static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE));
    AdjustWindowRectEx(&client, style, !(style & WS_CHILD) && GetMenu(window), extendedStyle);
    SetWindowPos(window, nullptr, 0, 0, width(client), height(client),
                 SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE);
}

LRESULT CWindowWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return SendMessageW(window, message, wParam, lParam);
}

bool CWindowWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return PostMessageW(window, message, wParam, lParam) != 0;
}

} // namespace UILib
