#pragma once

#include "uilib/core/geometry.h"
#include "uilib/core/nine_slice.h"

#include <cstddef>
#include <cstdint>

// Compositing of premultiplied 32-bit BGRA pixels in memory. Free of Windows.

namespace UILib {

// A view of pixels that somebody else owns; row 0 is the top one.
struct Raster {
    uint32_t* pixels = nullptr; // first pixel of row 0
    int width = 0;
    int height = 0;
    std::ptrdiff_t stride = 0; // from one row to the next below, in pixels; negative when bottom-up

    uint32_t* row(int y) const { return pixels + y * stride; }
    Box bounds() const { return {0, 0, width, height}; }
};

enum class Compose { Copy, Blend };

namespace raster {

// Each draws within clip and the target only.

// A colour that is not premultiplied; an opaque one replaces, any other is blended.
void fill(const Raster& target, const Box& clip, const Box& box, uint32_t argb);

// From first at the left or top to second at the right or bottom, mixed into what is there
// by one constant alpha; the colours' own alpha does not count.
void gradient(const Raster& target, const Box& clip, const Box& box, uint32_t first, uint32_t second,
              Direction direction, uint8_t alpha);

// One piece of an image. fade counts for Compose::Blend only.
void draw(const Raster& target, const Box& clip, const Raster& image, const Slice& slice, Compose compose,
          uint8_t fade);

} // namespace raster

} // namespace UILib
