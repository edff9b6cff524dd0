#pragma once

#include <string>

namespace kit {

// Text on one line: \\, \" and \xHH for backslash, quote and control characters.
std::wstring escaped(const wchar_t* text);

} // namespace kit
