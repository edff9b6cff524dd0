#pragma once

#include "uilib/core/geometry.h"

#include <cstdint>
#include <string>
#include <string_view>

// The text of an image attribute: a plain file name, or items key='value' with one blank
// between two. Free of Windows.

namespace UILib {

constexpr std::wstring_view ColorType = L"*COLOR*"; // resource type of an image that is one colour

struct ImageString {
    std::wstring name;
    std::wstring type; // empty: a file
    uint32_t mask = 0;
    Box dest;
    Box source;
    Box corner;
    uint8_t fade = 255;
    bool hole = false;
    bool xTiled = false;
    bool yTiled = false;
    bool keepSource = false;
};

// Never fails: what does not follow the grammar ends the list, and what was read until
// then counts. A text that names no image counts as its name.
ImageString parseImageString(std::wstring_view text);

} // namespace UILib
