#pragma once

#include <string>
#include <string_view>
#include <vector>

// String helpers that know nothing of Windows. Only the blank counts as white space.

namespace utility {

std::string trim(std::string_view text);
std::wstring trim(std::wstring_view text);

void toLower(std::string& text); // tolower on each character, in place

// The decimal number at the start of text, behind white space and a sign; what follows is
// ignored. 0 without one, and the nearest 32-bit value for a number beyond them.
int toInt(const std::string& text);

// The trimmed pieces between separators; empty ones stay, also a last one. An empty
// text or separator gives no items.
std::vector<std::string> split(std::string_view text, std::string_view separator);
std::vector<std::wstring> split(std::wstring_view text, std::wstring_view separator);

// Letters, digits, dot, dash and underscore of ASCII, 1 to 64 of them: a version from a
// remote document that may become part of a file name.
bool isPlainVersion(std::wstring_view word);

} // namespace utility
