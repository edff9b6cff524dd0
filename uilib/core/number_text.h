#pragma once

#include "uilib/core/geometry.h"

#include <cstdint>
#include <string_view>

// The numbers of skin attributes, read as the C runtime reads them with a 32-bit long:
// leading white space, a sign and (in base 16) a leading 0x are passed over, reading stops
// at the first other character, a number beyond 32 bits becomes the nearest one. Free of
// Windows and of the locale.

namespace UILib {

// Coordinates from a skin stay within this, so that sums of a few of them fit an int.
constexpr int CoordinateLimit = 1 << 20;

// Both take the number off the front of text; without a digit they give 0 and take nothing.
int32_t readInteger(std::wstring_view& text, int base = 10);
uint32_t readUnsigned(std::wstring_view& text, int base = 10);

// One decimal number, within the coordinate limit.
int readCoordinate(std::wstring_view& text);

// Four decimal numbers with one character between two: "4,4,4,4". What is missing is 0.
Box readBox(std::wstring_view text);

// "#AARRGGBB" or "AARRGGBB" as 32-bit ARGB.
uint32_t readColor(std::wstring_view text);

} // namespace UILib
