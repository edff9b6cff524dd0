#pragma once

#include "uilib/core/geometry.h"
#include "uilib/core/platform.h"

#include <cstdint>

// Between the system's rectangles and colours and ours.

namespace UILib {

// Far outside of any window, and small enough that sums and differences of a few fit an
// int: the layout of a hostile skin can give anything.
constexpr int CanvasLimit = 1 << 28;

inline int onCanvas(LONG coordinate) {
    return std::clamp<int>(coordinate, -CanvasLimit, CanvasLimit);
}

inline Box toBox(const RECT& rectangle) {
    return {onCanvas(rectangle.left), onCanvas(rectangle.top), onCanvas(rectangle.right),
            onCanvas(rectangle.bottom)};
}

inline RECT toRect(const Box& box) {
    return {box.left, box.top, box.right, box.bottom};
}

inline COLORREF toColorRef(uint32_t argb) { // without the alpha
    return RGB(argb >> 16 & 0xFF, argb >> 8 & 0xFF, argb & 0xFF);
}

inline Box moved(const Box& box, int x, int y) {
    return {box.left + x, box.top + y, box.right + x, box.bottom + y};
}

} // namespace UILib
