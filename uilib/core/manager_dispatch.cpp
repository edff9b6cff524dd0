#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"

#include <windowsx.h>

namespace UILib {

constexpr UINT ReflectedMessage = 0x2000; // added to a message that goes back to its child

bool CPaintManagerUI::MessageHandler(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (!window)
        return false;
    if (applyMessageFilters(message, wParam, lParam, result))
        return true;
    if (layered && onLayeredFrame(message, wParam, result))
        return true;
    if (dispatchInput(message, wParam, lParam))
        return false;
    return dispatch(message, wParam, lParam, result);
}

bool CPaintManagerUI::applyMessageFilters(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    for (size_t i = 0; i < messageFilters.size(); ++i) {
        bool handled = false;
        const LRESULT filtered = messageFilters[i]->MessageHandler(message, wParam, lParam, handled);
        if (!handled)
            continue;
        result = filtered;
        if (message >= WM_MOUSEMOVE && message <= WM_LBUTTONDBLCLK) {
            mouse = POINT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        } else if (message == WM_CONTEXTMENU || message == WM_MOUSEWHEEL) {
            mouse = POINT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
            ScreenToClient(window, &mouse);
        }
        return true;
    }
    return false;
}

// A layered window has no frame of the system's that could be measured or painted.
bool CPaintManagerUI::onLayeredFrame(UINT message, WPARAM wParam, LRESULT& result) {
    if (message == WM_NCCALCSIZE || message == WM_NCPAINT) {
        result = 0;
        return true;
    }
    if (message != WM_NCACTIVATE || IsIconic(window))
        return false;
    result = wParam == 0;
    return true;
}

// Messages that end here with a result, and those that others may still want (false).
bool CPaintManagerUI::dispatch(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    switch (message) {
    case WM_APP + 1:
        runQueue();
        return false;
    case WM_SIZE:
        onSize(wParam, lParam);
        return true;
    case WM_PAINT:
        onPaint();
        return true;
    case WM_ERASEBKGND:
        result = 1;
        return true;
    case WM_PRINTCLIENT:
        onPrintClient(reinterpret_cast<HDC>(wParam), lParam);
        return false;
    case WM_CLOSE:
        onClose(wParam, lParam);
        return false;
    case WM_KILLFOCUS:
        onKillWindowFocus(reinterpret_cast<HWND>(wParam));
        return false;
    case WM_SETCURSOR:
        return onSetCursor(wParam, lParam);
    case WM_MOUSEACTIVATE:
        result = MA_NOACTIVATE;
        return noActivate;
    case WM_MOUSEHOVER:
        return onHover(wParam, lParam);
    case WM_GETMINMAXINFO:
        onMinMaxInfo(lParam);
        return false;
    case WM_TIMER:
        if (wParam == LayeredRefreshTimer)
            refreshLayered();
        else
            onTimer(static_cast<UINT>(wParam), lParam);
        return false;
    case WM_NOTIFY:
        return lParam && reflect(message, wParam, lParam, reinterpret_cast<NMHDR*>(lParam)->hwndFrom, result);
    case WM_COMMAND:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
        return lParam && reflect(message, wParam, lParam, reinterpret_cast<HWND>(lParam), result);
    default:
        return false;
    }
}

bool CPaintManagerUI::reflect(UINT message, WPARAM wParam, LPARAM lParam, HWND child, LRESULT& result) {
    result = SendMessageW(child, message + ReflectedMessage, wParam, lParam);
    return true;
}

// True for a message of the mouse or the keyboard. None of them ends here.
bool CPaintManagerUI::dispatchInput(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr struct {
        UINT message;
        void (CPaintManagerUI::*handle)(WPARAM, LPARAM);
    } Handlers[] = {
        {WM_MOUSEMOVE, &CPaintManagerUI::onMouseMove},
        {WM_MOUSELEAVE, &CPaintManagerUI::onMouseLeave},
        {WM_LBUTTONDOWN, &CPaintManagerUI::onButtonDown},
        {WM_LBUTTONUP, &CPaintManagerUI::onButtonUp},
        {WM_LBUTTONDBLCLK, &CPaintManagerUI::onDoubleClick},
        {WM_CAPTURECHANGED, &CPaintManagerUI::onCaptureChanged},
        {WM_RBUTTONDOWN, &CPaintManagerUI::onRightButtonDown},
        {WM_CONTEXTMENU, &CPaintManagerUI::onContextMenu},
        {WM_MOUSEWHEEL, &CPaintManagerUI::onWheel},
        {WM_KEYDOWN, &CPaintManagerUI::onKeyDown},
        {WM_KEYUP, &CPaintManagerUI::onKeyUp},
        {WM_CHAR, &CPaintManagerUI::onCharacter},
    };
    for (const auto& handler : Handlers)
        if (handler.message == message) {
            (this->*handler.handle)(wParam, lParam);
            return true;
        }
    return false;
}

void CPaintManagerUI::sendEvent(CControlUI* control, EventKind kind, WPARAM wParam, LPARAM lParam,
                                WORD keyState, wchar_t key) {
    TUIEvent event = {kind, control, GetTickCount(), mouse, key, keyState, wParam, lParam};
    control->Event(event);
}

void CPaintManagerUI::onSize(WPARAM wParam, LPARAM lParam) {
    if (focus)
        sendEvent(focus, EventWindowSize, wParam, lParam);
    if (root)
        root->NeedUpdate();
    if (layered)
        Invalidate();
}

void CPaintManagerUI::onClose(WPARAM wParam, LPARAM lParam) {
    if (hover)
        sendEvent(hover, EventMouseLeave, wParam, lParam);
    if (click)
        sendEvent(click, EventButtonUp, wParam, lParam);
    SetFocus(nullptr, FocusWindow::Yes);
    if (GetActiveWindow() == window) {
        HWND next = GetWindow(window, GW_OWNER);
        if (!next && (GetWindowLongW(window, GWL_STYLE) & WS_CHILD))
            next = GetParent(window);
        if (next)
            ::SetFocus(next);
    }
    if (toolTipWindow)
        DestroyWindow(toolTipWindow);
    toolTipWindow = nullptr;
}

void CPaintManagerUI::onMinMaxInfo(LPARAM lParam) const {
    auto& info = *reinterpret_cast<MINMAXINFO*>(lParam);
    const auto set = [](LONG& target, LONG value) {
        if (value > 0)
            target = value;
    };
    set(info.ptMinTrackSize.x, minInfo.cx);
    set(info.ptMinTrackSize.y, minInfo.cy);
    set(info.ptMaxTrackSize.x, maxInfo.cx);
    set(info.ptMaxTrackSize.y, maxInfo.cy);
}

} // namespace UILib
