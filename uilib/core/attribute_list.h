#pragma once

#include <string_view>

namespace UILib {

// Takes the next pair off the front of a list of the form name="value" name="value", with
// one blank between two pairs. False at the end of the list, and at any other shape.
bool takeAttribute(std::wstring_view& list, std::wstring_view& name, std::wstring_view& value);

} // namespace UILib
