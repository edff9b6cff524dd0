#pragma once

#include <string>
#include <string_view>

// UTF-8 to wide text without the system, for documents that are read natively too.
// A damaged sequence becomes one U+FFFD as far as it could still have become sound, and
// each byte that starts nothing another.

namespace UILib {

// The code point at the front of bytes, which are not empty; at moves behind it.
char32_t takeUtf8(const char*& at, const char* end);

// Writes at most bytes.size() units to target and returns the end of what it wrote.
wchar_t* decodeUtf8(std::string_view bytes, wchar_t* target);

std::wstring wideFromUtf8(std::string_view bytes);

// Unpaired surrogates become U+FFFD.
std::string utf8FromWide(std::wstring_view text);

} // namespace UILib
