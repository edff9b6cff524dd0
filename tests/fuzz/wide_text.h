#pragma once

#include <cstdint>
#include <string>

// Any bytes as text of the framework: a byte a character, and now and then one of two
// bytes, so that surrogates and the whole of the plane come up.

inline std::wstring wideText(const uint8_t* data, size_t size) {
    constexpr uint8_t escape = 0x1B; // takes two bytes
    std::wstring text;
    for (size_t i = 0; i < size; ++i) {
        if (data[i] == escape && i + 2 < size) {
            text += static_cast<wchar_t>(data[i + 1] << 8 | data[i + 2]);
            i += 2;
        } else {
            text += static_cast<wchar_t>(data[i]);
        }
    }
    return text;
}
