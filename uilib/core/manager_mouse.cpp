#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"

#include <algorithm>
#include <utility>
#include <windowsx.h>

namespace UILib {

namespace {

POINT pointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

} // namespace

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

// Gives the focus to the control there, which may go by that: it is there still while it is
// the click control.
CControlUI* CPaintManagerUI::press(LPARAM lParam) {
    focusWindowUnlessNoActivate();
    CControlUI* control = controlAt(pointOf(lParam));
    if (!control)
        return nullptr;
    click = control;
    control->SetFocus();
    return control;
}

void CPaintManagerUI::onButtonDown(WPARAM wParam, LPARAM lParam) {
    showFocus(false);
    CControlUI* control = press(lParam);
    if (!control)
        return;
    SetCapture();
    if (click == control)
        sendEvent(control, EventButtonDown, wParam, lParam, LOWORD(wParam));
}

void CPaintManagerUI::onButtonUp(WPARAM wParam, LPARAM lParam) {
    mouse = pointOf(lParam);
    CControlUI* control = std::exchange(click, nullptr);
    if (control || captured) // without one the pressed control has gone meanwhile
        ReleaseCapture();
    if (control)
        sendEvent(control, EventButtonUp, wParam, lParam, LOWORD(wParam));
}

// The system has taken the mouse away, and no release will come: what is pressed gets one
// far from every control, which ends the press and clicks nothing.
void CPaintManagerUI::onCaptureChanged(WPARAM, LPARAM lParam) {
    constexpr POINT nowhere = {-2 * PlaceLimit, -2 * PlaceLimit};
    if (!captured || reinterpret_cast<HWND>(lParam) == window)
        return;
    captured = false;
    CControlUI* control = std::exchange(click, nullptr);
    if (!control)
        return;
    TUIEvent event = {EventButtonUp, control, GetTickCount(), nowhere};
    control->Event(event);
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
    CControlUI* control = press(lParam);
    if (control && click == control)
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

bool CPaintManagerUI::onSetCursor(WPARAM wParam, LPARAM lParam) {
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
    sendEvent(control, EventSetCursor, wParam, lParam, currentKeyState());
    return true;
}

} // namespace UILib
