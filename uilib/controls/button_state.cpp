#include "uilib/controls/button_state.h"

#include "uilib/core/paint_manager.h"

namespace UILib {

void refreshState(const CControlUI& control, unsigned& state) {
    state &= ~(StateFocused | StateDisabled);
    if (control.ShowsFocus())
        state |= StateFocused;
    if (!control.IsEnabled())
        state |= StateDisabled;
}

Hover followMouse(CControlUI& control, unsigned& state, const TUIEvent& event) {
    const bool inside = contains(control.GetPos(), event.mouse);
    CPaintManagerUI* manager = control.GetManager();
    if (event.kind == EventMouseEnter) {
        if (inside && control.IsEnabled() && !(state & StateHot)) {
            state |= StateHot;
            control.Invalidate();
        }
        return Hover::Entered;
    }
    if (inside) {
        if (manager)
            manager->AddMouseLeaveNeeded(&control);
        return Hover::Unchanged;
    }
    if (control.IsEnabled()) {
        state &= ~StateHot;
        control.Invalidate();
    }
    if (manager)
        manager->RemoveMouseLeaveNeeded(&control);
    return Hover::Left;
}

bool passMouseToParent(CControlUI& control, TUIEvent& event) {
    if (control.IsMouseEnabled() || !isMouseEvent(event.kind))
        return false;
    if (control.GetParent())
        control.GetParent()->DoEvent(event);
    return true;
}

} // namespace UILib
