#pragma once

#include "uilib/core/paint_manager.h"

#include <string>

namespace kit {

// Brings a named control into one of the states normal, hot, pushed, disabled, focused and
// selected, on the way that the user would. The tree must be laid out. False, with the
// reason on the error output, for an unknown name or state.
bool applyState(UILib::CPaintManagerUI& manager, const std::wstring& name, const std::wstring& state);

} // namespace kit
