#include "kit/control_state.h"

#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"

namespace kit {

using UILib::CControlUI;

static void sendMouse(CControlUI& control, UILib::EventKind kind) {
    const RECT& place = control.GetPos();
    UILib::TUIEvent event = {kind, &control};
    event.mouse = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    control.Event(event);
}

// Also in a window that shows it only after a key.
static void showFocus(CControlUI& control) {
    if (UILib::CPaintManagerUI* manager = control.GetManager())
        manager->SetKeyboardFocus(false);
    control.SetFocus();
}

bool applyState(CControlUI& control, const std::wstring& state) {
    if (state == L"hot" || state == L"pushed")
        sendMouse(control, UILib::EventMouseEnter);
    if (state == L"pushed")
        sendMouse(control, UILib::EventButtonDown);
    else if (state == L"disabled")
        control.SetEnabled(false);
    else if (state == L"focused")
        showFocus(control);
    else if (state == L"selected")
        control.SetAttribute(L"selected", L"true");
    else
        return state == L"hot" || state == L"normal";
    return true;
}

} // namespace kit
