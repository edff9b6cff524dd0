#include "uilib/core/window_impl_base.h"

#include "uilib/controls/control.h"
#include "utility/log.h"

#include <windowsx.h>

namespace UILib {

namespace {

MONITORINFO monitorOf(HWND window) {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor;
}

} // namespace

const CNotifyPump::MessageMap WindowImplBase::messageMap = [] {
    static const Entry entries[] = {entry(L"click", L"", &WindowImplBase::OnClick)};
    return MessageMap{nullptr, entries};
}();

LRESULT WindowImplBase::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    bool handled = true;
    LRESULT result = route(message, wParam, lParam, handled);
    if (handled)
        return result;
    result = HandleCustomMessage(message, wParam, lParam, handled);
    if (handled)
        return result;
    if (paintManager.MessageHandler(message, wParam, lParam, result))
        return result;
    return CWindowWnd::HandleMessage(message, wParam, lParam);
}

// One operation for each message that a window may want; leaves handled false for others.
LRESULT WindowImplBase::route(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) {
    using Operation = LRESULT (WindowImplBase::*)(UINT, WPARAM, LPARAM, bool&);
    static constexpr struct {
        UINT message;
        Operation operation;
    } Operations[] = {
        {WM_CREATE, &WindowImplBase::OnCreate},
        {WM_CLOSE, &WindowImplBase::OnClose},
        {WM_DESTROY, &WindowImplBase::OnDestroy},
        {WM_NCACTIVATE, &WindowImplBase::OnNcActivate},
        {WM_NCCALCSIZE, &WindowImplBase::OnNcCalcSize},
        {WM_NCPAINT, &WindowImplBase::OnNcPaint},
        {WM_NCHITTEST, &WindowImplBase::OnNcHitTest},
        {WM_GETMINMAXINFO, &WindowImplBase::OnGetMinMaxInfo},
        {WM_MOUSEWHEEL, &WindowImplBase::OnMouseWheel},
        {WM_SIZE, &WindowImplBase::OnSize},
        {WM_CHAR, &WindowImplBase::OnChar},
        {WM_SYSCOMMAND, &WindowImplBase::OnSysCommand},
        {WM_KEYDOWN, &WindowImplBase::OnKeyDown},
        {WM_KILLFOCUS, &WindowImplBase::OnKillFocus},
        {WM_SETFOCUS, &WindowImplBase::OnSetFocus},
        {WM_LBUTTONUP, &WindowImplBase::OnLButtonUp},
        {WM_LBUTTONDOWN, &WindowImplBase::OnLButtonDown},
        {WM_MOUSEMOVE, &WindowImplBase::OnMouseMove},
        {WM_MOUSEHOVER, &WindowImplBase::OnMouseHover},
    };
    for (const auto& entry : Operations)
        if (entry.message == message)
            return (this->*entry.operation)(message, wParam, lParam, handled);
    handled = false;
    return 0;
}

void WindowImplBase::OnFinalMessage(HWND) {
    paintManager.RemovePreMessageFilter(this);
    paintManager.RemoveNotifier(this);
    if (CControlUI* root = paintManager.GetRoot())
        paintManager.ReapObjects(root);
}

LONG WindowImplBase::GetStyle() {
    return GetWindowLongW(window, GWL_STYLE) & ~WS_CAPTION;
}

LRESULT WindowImplBase::OnCreate(UINT, WPARAM, LPARAM, bool&) {
    SetWindowLongW(window, GWL_STYLE, GetStyle() | WS_CLIPSIBLINGS | WS_CLIPCHILDREN);
    RECT client = {};
    GetClientRect(window, &client);
    SetWindowPos(window, nullptr, client.left, client.top, width(client), height(client), SWP_FRAMECHANGED);
    paintManager.Init(window);
    paintManager.AddPreMessageFilter(this);

    CDialogBuilder builder;
    CControlUI* root = builder.Create(GetSkinFile(), nullptr, this, &paintManager, nullptr);
    if (!root)
        endWithoutSkin(builder);
    paintManager.AttachDialog(root);
    paintManager.AddNotifier(this);
    InitWindow();
    return 0;
}

void WindowImplBase::endWithoutSkin(const CDialogBuilder& builder) {
    wchar_t location[1024], message[1024];
    builder.GetLastErrorLocation(location, std::size(location));
    builder.GetLastErrorMessage(message, std::size(message));
    const CUIString text = CUIString(L"load resource errr. location:") + location + L" msg:" + message;
    common::log("WindowImplBase::OnCreate", __LINE__, L"%s", text.GetData());
    MessageBoxW(nullptr, text, L"UILib", MB_ICONERROR);
    ExitProcess(1);
}

// Without setting handled: the focus control gets the key, too.
LRESULT WindowImplBase::MessageHandler(UINT message, WPARAM wParam, LPARAM, bool&) {
    if (message == WM_KEYDOWN && (wParam == VK_RETURN || wParam == VK_ESCAPE))
        return ResponseDefaultKeyEvent(wParam);
    return 0;
}

LRESULT WindowImplBase::ResponseDefaultKeyEvent(WPARAM key) {
    if (key != VK_ESCAPE)
        return 0;
    Close(1);
    return 1;
}

void WindowImplBase::OnClick(TUINotify& notification) {
    const CUIString name = notification.sender ? notification.sender->GetName() : CUIString();
    if (name == L"closebtn")
        Close(1);
    else if (name == L"minbtn")
        SendMessage(WM_SYSCOMMAND, SC_MINIMIZE);
    else if (name == L"maxbtn")
        SendMessage(WM_SYSCOMMAND, SC_MAXIMIZE);
    else if (name == L"restorebtn")
        SendMessage(WM_SYSCOMMAND, SC_RESTORE);
}

LRESULT WindowImplBase::OnNcActivate(UINT, WPARAM wParam, LPARAM, bool& handled) {
    if (IsIconic(window))
        handled = false;
    return wParam == 0;
}

// The client area is the whole window; a maximised one covers the work area only.
LRESULT WindowImplBase::OnNcCalcSize(UINT, WPARAM wParam, LPARAM lParam, bool&) {
    if (!IsZoomed(window))
        return 0;
    RECT& proposed =
        wParam ? reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0] : *reinterpret_cast<RECT*>(lParam);
    const RECT work = monitorOf(window).rcWork;
    proposed.right = proposed.left + width(work);
    proposed.bottom = proposed.top + height(work);
    return WVR_HREDRAW | WVR_VREDRAW;
}

LRESULT WindowImplBase::OnNcPaint(UINT, WPARAM, LPARAM, bool&) {
    return 0;
}

LRESULT WindowImplBase::OnNcHitTest(UINT, WPARAM, LPARAM lParam, bool&) {
    POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ScreenToClient(window, &point);
    RECT client = {};
    GetClientRect(window, &client);
    if (!IsZoomed(window))
        if (const LRESULT edge = edgeAt(point, client); edge != HTNOWHERE)
            return edge;
    return isCaption(point, client) ? HTCAPTION : HTCLIENT;
}

LRESULT WindowImplBase::edgeAt(POINT point, const RECT& client) const {
    const RECT inner = shrunk(client, paintManager.GetSizeBox());
    const bool left = point.x<inner.left, right = point.x> inner.right;
    if (point.y < inner.top)
        return left ? HTTOPLEFT : right ? HTTOPRIGHT : HTTOP;
    if (point.y > inner.bottom)
        return left ? HTBOTTOMLEFT : right ? HTBOTTOMRIGHT : HTBOTTOM;
    return left ? HTLEFT : right ? HTRIGHT : HTNOWHERE;
}

bool WindowImplBase::isCaption(POINT point, const RECT& client) const {
    const RECT caption = paintManager.GetCaptionRect();
    if (!contains({client.left + caption.left, client.top + caption.top, client.right - caption.right,
                   client.top + caption.bottom},
                  point))
        return false;
    const CControlUI* control = paintManager.FindControl(point);
    if (!control)
        return false;
    const wchar_t* name = control->GetClass();
    return !equalNoCase(name, L"Button") && !equalNoCase(name, L"Option") && !equalNoCase(name, L"Text");
}

LRESULT WindowImplBase::OnGetMinMaxInfo(UINT, WPARAM, LPARAM lParam, bool& handled) {
    auto& info = *reinterpret_cast<MINMAXINFO*>(lParam);
    const MONITORINFO monitor = monitorOf(window);
    info.ptMaxPosition = {monitor.rcWork.left - monitor.rcMonitor.left,
                          monitor.rcWork.top - monitor.rcMonitor.top};
    info.ptMaxTrackSize = {width(monitor.rcWork), height(monitor.rcWork)};
    const SIZE smallest = paintManager.GetMinInfo();
    info.ptMinTrackSize = {smallest.cx, smallest.cy};
    handled = false;
    return 0;
}

LRESULT WindowImplBase::OnSize(UINT, WPARAM, LPARAM, bool& handled) {
    const SIZE corner = paintManager.GetRoundCorner();
    if ((corner.cx || corner.cy) && !IsIconic(window)) {
        RECT frame = {};
        GetWindowRect(window, &frame);
        utility::Region region(
            CreateRoundRectRgn(0, 0, width(frame) + 1, height(frame) + 1, corner.cx, corner.cy));
        if (SetWindowRgn(window, region.get(), TRUE))
            region.release(); // the system owns it from here on
    }
    handled = false;
    return 0;
}

LRESULT WindowImplBase::OnSysCommand(UINT message, WPARAM wParam, LPARAM lParam, bool&) {
    if (wParam == SC_CLOSE) {
        SendMessage(WM_CLOSE);
        return 0;
    }
    const HWND handle = window;
    const bool wasZoomed = IsZoomed(handle);
    const LRESULT result = CWindowWnd::HandleMessage(message, wParam, lParam);
    // The system's loop for moving and sizing runs whatever comes in, also what destroys
    // this window: then the object is gone.
    if (IsWindow(handle) && (IsZoomed(handle) != FALSE) != wasZoomed)
        showRestoreButton(wasZoomed);
    return result;
}

void* WindowImplBase::findInterface(const wchar_t* name, const wchar_t* kind) const {
    CControlUI* control = find(name);
    return control ? control->GetInterface(kind) : nullptr;
}

void WindowImplBase::setText(const wchar_t* name, const std::wstring& text) {
    if (CControlUI* control = find(name))
        control->SetText(text.c_str());
}

void WindowImplBase::setVisible(const wchar_t* name, bool visible) {
    if (CControlUI* control = find(name))
        control->SetVisible(visible);
}

void WindowImplBase::showRestoreButton(bool wasZoomed) {
    const auto either = [this](const wchar_t* name, const wchar_t* otherName) {
        CControlUI* button = find(name);
        return button ? button : find(otherName);
    };
    CControlUI* maximise = either(L"maxbtn", L"maxbtnxx");
    CControlUI* restore = either(L"restorebtn", L"restorebtnxx");
    if (!maximise || !restore)
        return;
    maximise->SetVisible(wasZoomed);
    restore->SetVisible(!wasZoomed);
}

// The operations that leave their message to others.
#define UNHANDLED(operation)                                                                                 \
    LRESULT WindowImplBase::operation(UINT, WPARAM, LPARAM, bool& handled) {                                 \
        handled = false;                                                                                     \
        return 0;                                                                                            \
    }
UNHANDLED(OnClose)
UNHANDLED(OnDestroy)
UNHANDLED(OnMouseWheel)
UNHANDLED(OnMouseHover)
UNHANDLED(OnChar)
UNHANDLED(OnKeyDown)
UNHANDLED(OnKillFocus)
UNHANDLED(OnSetFocus)
UNHANDLED(OnLButtonDown)
UNHANDLED(OnLButtonUp)
UNHANDLED(OnMouseMove)
UNHANDLED(HandleCustomMessage)
#undef UNHANDLED

} // namespace UILib
