#pragma once

#include "uilib/core/geometry.h"

#include <vector>

// Cuts an image and the rectangle that it is drawn over into nine pieces alike: the
// corners keep their size, the edges stretch along their length, the centre stretches or
// repeats. Free of Windows.

namespace UILib {

enum class Fit { Stretch, Tile };

struct Slice {
    Box target;
    Box source;
    // Tiles begin at the left or top of the target and are cut at its other side.
    Fit horizontal = Fit::Stretch;
    Fit vertical = Fit::Stretch;
};

struct NineSlice {
    Box target;
    Box source; // part of the image
    Box corner; // widths of the four borders
    bool hole = false;
    bool xTiled = false;
    bool yTiled = false;
};

// The pieces that meet paint, in painting order: the centre, then the edges from the top
// left to the bottom right. Pieces without an area are left out.
std::vector<Slice> cut(const NineSlice& image, const Box& paint);

} // namespace UILib
