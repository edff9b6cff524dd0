#include "kit/control_state.h"

#include "kit/console.h"
#include "uilib/controls/control.h"

#include <cstdio>

namespace kit {

using UILib::CControlUI;

static void sendMouse(CControlUI& control, UILib::EventKind kind) {
    const RECT& place = control.GetPos();
    UILib::TUIEvent event = {kind, &control};
    event.mouse = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    control.Event(event);
}

bool applyState(UILib::CPaintManagerUI& manager, const std::wstring& name, const std::wstring& state) {
    CControlUI* control = manager.FindControl(name.c_str());
    if (!control) {
        fprintf(stderr, "vynkit: no control %s\n", toUtf8(name).c_str());
        return false;
    }
    if (state == L"hot" || state == L"pushed")
        sendMouse(*control, UILib::EventMouseEnter);
    if (state == L"pushed")
        sendMouse(*control, UILib::EventButtonDown);
    else if (state == L"disabled")
        control->SetEnabled(false);
    else if (state == L"focused")
        control->SetFocus();
    else if (state == L"selected")
        control->SetAttribute(L"selected", L"true");
    else if (state != L"hot" && state != L"normal") {
        fprintf(stderr, "vynkit: no state %s\n", toUtf8(state).c_str());
        return false;
    }
    return true;
}

} // namespace kit
