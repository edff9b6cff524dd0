#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"

#include <algorithm>
#include <cwctype>
#include <windowsx.h>

namespace UILib {

namespace {

constexpr UINT LayeredRefreshTimer = 8192;
constexpr UINT ReflectedMessage = 0x2000; // added to a message that goes back to its child

POINT pointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

WORD currentKeyState() {
    const auto down = [](int key, WORD bit) { return GetKeyState(key) < 0 ? bit : WORD(0); };
    return down(VK_LBUTTON, KeyLeftButton) | down(VK_RBUTTON, KeyRightButton) | down(VK_SHIFT, KeyShift) |
           down(VK_CONTROL, KeyControl) | down(VK_MENU, KeyAlt);
}

struct ShortcutWalk {
    wchar_t wanted; // upper case
    bool pickNext = false;
};

wchar_t upper(wchar_t character) {
    return static_cast<wchar_t>(std::towupper(character));
}

// A label's shortcut means the control behind it.
CControlUI* shortcutTarget(CControlUI* control, void* data) {
    ShortcutWalk& walk = *static_cast<ShortcutWalk*>(data);
    if (!control->IsVisible())
        return nullptr;
    if (upper(control->GetShortcut()) == walk.wanted)
        walk.pickNext = true;
    const bool isLabel = CUIString(control->GetClass()).Find(L"Label") >= 0;
    return walk.pickNext && !isLabel ? control : nullptr;
}

} // namespace

bool CPaintManagerUI::PreMessageHandler(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    for (size_t i = 0; i < preMessageFilters.size(); ++i) {
        bool handled = false;
        result = preMessageFilters[i]->MessageHandler(message, wParam, lParam, handled);
        if (handled)
            return true;
    }
    if (message == WM_KEYDOWN && wParam == VK_TAB)
        return SetNextTabControl(GetKeyState(VK_SHIFT) < 0 ? Tab::Backward : Tab::Forward);
    if (message == WM_SYSKEYDOWN && focus)
        sendEvent(focus, EventSystemKey, wParam, lParam, currentKeyState(), static_cast<wchar_t>(wParam));
    return message == WM_SYSCHAR && activateShortcut(static_cast<wchar_t>(wParam));
}

bool CPaintManagerUI::activateShortcut(wchar_t character) {
    if (!root || !character)
        return false;
    ShortcutWalk walk = {upper(character)};
    CControlUI* found = root->FindControl(shortcutTarget, &walk, FindEnabled | FindTopFirst | FindMeFirst);
    if (!found)
        return false;
    found->SetFocus();
    found->Activate();
    return true;
}

bool CPaintManagerUI::MessageHandler(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (!window)
        return false;
    if (applyMessageFilters(message, wParam, lParam, result))
        return true;
    if (layered && onLayeredFrame(message, wParam, result))
        return true;
    if (dispatchMouse(message, wParam, lParam) || dispatchKey(message, wParam, lParam))
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
            mouse = pointOf(lParam);
        } else if (message == WM_CONTEXTMENU || message == WM_MOUSEWHEEL) {
            mouse = pointOf(lParam);
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
        onSize();
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
        onClose();
        return false;
    case WM_KILLFOCUS:
        onKillWindowFocus(reinterpret_cast<HWND>(wParam));
        return false;
    case WM_SETCURSOR:
        return onSetCursor(lParam);
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

// True for a message of the mouse. None of them ends here.
bool CPaintManagerUI::dispatchMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_MOUSEMOVE:
        onMouseMove(wParam, lParam);
        return true;
    case WM_MOUSELEAVE:
        onMouseLeave();
        return true;
    case WM_LBUTTONDOWN:
        onButtonDown(wParam, lParam);
        return true;
    case WM_LBUTTONUP:
        onButtonUp(wParam, lParam);
        return true;
    case WM_LBUTTONDBLCLK:
        onDoubleClick(wParam, lParam);
        return true;
    case WM_RBUTTONDOWN:
        onRightButtonDown(wParam, lParam);
        return true;
    case WM_CONTEXTMENU:
        onContextMenu(wParam, lParam);
        return true;
    case WM_MOUSEWHEEL:
        onWheel(wParam, lParam);
        return true;
    default:
        return false;
    }
}

// True for a message of the keyboard. None of them ends here.
bool CPaintManagerUI::dispatchKey(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto key = static_cast<wchar_t>(wParam);
    switch (message) {
    case WM_KEYDOWN:
        if (root && focus) {
            keyed = focus;
            sendEvent(focus, EventKeyDown, wParam, lParam, currentKeyState(), key);
        }
        return true;
    case WM_KEYUP:
        if (CControlUI* control = keyed) {
            keyed = nullptr;
            sendEvent(control, EventKeyUp, wParam, lParam, currentKeyState(), key);
        }
        return true;
    case WM_CHAR:
        if (root && focus)
            sendEvent(focus, EventChar, wParam, lParam, currentKeyState(), key);
        return true;
    default:
        return false;
    }
}

void CPaintManagerUI::sendEvent(CControlUI* control, EventKind kind, WPARAM wParam, LPARAM lParam,
                                WORD keyState, wchar_t key) {
    TUIEvent event = {kind, control, GetTickCount(), mouse, key, keyState, wParam, lParam};
    control->Event(event);
}

// The control that a mouse message is for. One of another manager is none of ours: a
// popup may share our tree.
CControlUI* CPaintManagerUI::controlAt(POINT point) {
    mouse = point;
    CControlUI* found = FindControl(point);
    return found && found->GetManager() == this ? found : nullptr;
}

void CPaintManagerUI::onMouseMove(WPARAM wParam, LPARAM lParam) {
    if (!root)
        return;
    trackMouse();
    mouse = pointOf(lParam);
    CControlUI* found = FindControl(mouse);
    if (found && found->GetManager() != this)
        return;
    if (!captured)
        changeHover(found, wParam, lParam);
    if (CControlUI* target = click ? click : found)
        sendEvent(target, EventMouseMove, wParam, lParam, currentKeyState());
}

void CPaintManagerUI::changeHover(CControlUI* found, WPARAM wParam, LPARAM lParam) {
    if (found == hover)
        return;
    if (hover) {
        const auto listeners = mouseLeave;
        for (CControlUI* listener : listeners)
            if (std::find(mouseLeave.begin(), mouseLeave.end(), listener) != mouseLeave.end())
                sendEvent(listener, EventMouseLeave, wParam, lParam, currentKeyState());
        if (hover)
            sendEvent(hover, EventMouseLeave, wParam, lParam, currentKeyState());
        hover = nullptr;
        hideToolTip();
    }
    if (found) {
        hover = found;
        sendEvent(found, EventMouseEnter, wParam, lParam, currentKeyState());
    }
}

void CPaintManagerUI::onButtonDown(WPARAM wParam, LPARAM lParam) {
    focusWindowUnlessNoActivate();
    CControlUI* control = controlAt(pointOf(lParam));
    if (!control)
        return;
    click = control;
    control->SetFocus();
    SetCapture();
    if (click == control) // still there
        sendEvent(control, EventButtonDown, wParam, lParam, LOWORD(wParam));
}

void CPaintManagerUI::onButtonUp(WPARAM wParam, LPARAM lParam) {
    mouse = pointOf(lParam);
    CControlUI* control = click;
    if (!control)
        return;
    click = nullptr;
    ReleaseCapture();
    sendEvent(control, EventButtonUp, wParam, lParam, LOWORD(wParam));
}

void CPaintManagerUI::onDoubleClick(WPARAM wParam, LPARAM lParam) {
    focusWindowUnlessNoActivate();
    CControlUI* control = controlAt(pointOf(lParam));
    if (!control)
        return;
    SetCapture();
    click = control; // before the event: it is cleared when the event deletes the control
    sendEvent(control, EventDoubleClick, wParam, lParam, LOWORD(wParam));
}

void CPaintManagerUI::onRightButtonDown(WPARAM wParam, LPARAM lParam) {
    focusWindowUnlessNoActivate();
    CControlUI* control = controlAt(pointOf(lParam));
    if (!control)
        return;
    click = control;
    control->SetFocus();
    if (click == control)
        sendEvent(control, EventRightButtonDown, wParam, lParam, LOWORD(wParam));
}

void CPaintManagerUI::onContextMenu(WPARAM wParam, LPARAM lParam) {
    if (!root || captured)
        return;
    mouse = pointOf(lParam);
    ScreenToClient(window, &mouse);
    CControlUI* control = click;
    if (!control)
        return;
    click = nullptr;
    sendEvent(control, EventContextMenu, wParam, reinterpret_cast<LPARAM>(control), LOWORD(wParam));
}

void CPaintManagerUI::onWheel(WPARAM wParam, LPARAM lParam) {
    POINT point = pointOf(lParam);
    ScreenToClient(window, &point);
    CControlUI* control = controlAt(point);
    if (!control)
        return;
    const bool down = GET_WHEEL_DELTA_WPARAM(wParam) < 0;
    sendEvent(control, EventScrollWheel, down ? WheelDown : WheelUp, lParam, currentKeyState());
    // What has scrolled under the mouse gets to know of it.
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(mouse.x, mouse.y));
}

bool CPaintManagerUI::onSetCursor(LPARAM lParam) {
    if (!root || LOWORD(lParam) != HTCLIENT)
        return false;
    if (captured)
        return true;
    POINT point = {};
    GetCursorPos(&point);
    ScreenToClient(window, &point);
    CControlUI* control = FindControl(point);
    if (!control || !(control->GetControlFlags() & FlagSetCursor))
        return false;
    sendEvent(control, EventSetCursor, 0, lParam, currentKeyState());
    return true;
}

void CPaintManagerUI::onSize() {
    if (focus)
        sendEvent(focus, EventWindowSize);
    if (root)
        root->NeedUpdate();
    if (layered)
        Invalidate();
}

void CPaintManagerUI::onClose() {
    if (hover)
        sendEvent(hover, EventMouseLeave);
    if (click)
        sendEvent(click, EventButtonUp);
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
