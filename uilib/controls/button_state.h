#pragma once

#include "uilib/controls/control.h"

// The state of a control that answers to the mouse, as bits, and how it follows the mouse.

namespace UILib {

enum ButtonState : unsigned {
    StateFocused = 1,
    StateSelected = 2,
    StateDisabled = 4,
    StateHot = 8,
    StatePushed = 16,
    StateCaptured = 64,
};

enum class Hover { Unchanged, Entered, Left };

// Focused and disabled are read from the control, at each paint.
void refreshState(const CControlUI& control, unsigned& state);

// What a mouse-enter or mouse-leave event does to the hot bit. A leave to a part that lies
// over the control changes nothing: it comes again once the mouse is outside.
Hover followMouse(CControlUI& control, unsigned& state, const TUIEvent& event);

// Hands the mouse events of a control that takes none to its parent; true for these.
bool passMouseToParent(CControlUI& control, TUIEvent& event);

} // namespace UILib
