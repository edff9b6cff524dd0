#pragma once

#include <string>

// Brings a control into a state on the way that a user would.

namespace UILib {
class CControlUI;
}

namespace kit {

// normal, hot, pushed, disabled, focused or selected; false for any other.
bool applyState(UILib::CControlUI& control, const std::wstring& state);

} // namespace kit
