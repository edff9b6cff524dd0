#pragma once

#include <string>

// The named edges at which text changes its encoding. Wide text is UTF-16; "ansi" is the
// system's code page, in which characters that it lacks come out as its default.
// A null source or a length below -1 gives an empty string; -1 means zero-terminated.

namespace utility {

std::wstring ansiToWide(const char* text, int length = -1);
std::wstring utf8ToWide(const char* text, int length = -1);
std::string wideToAnsi(const wchar_t* text, int length = -1);

inline std::wstring ansiToWide(const std::string& text) {
    return ansiToWide(text.data(), static_cast<int>(text.size()));
}
inline std::wstring utf8ToWide(const std::string& text) {
    return utf8ToWide(text.data(), static_cast<int>(text.size()));
}
inline std::string wideToAnsi(const std::wstring& text) {
    return wideToAnsi(text.data(), static_cast<int>(text.size()));
}

} // namespace utility
