#pragma once

#include "engine/geometry.h"
#include "engine/image.h"

#include <cstddef>

// Draws rectangles, gradients and pictures into 32-bit pixels in memory that it does not
// own. Corners are smooth. All is clipped; what a page may have drawn in one picture is
// bounded, and what exceeds it is left out.

namespace engine {

struct Bitmap {
    Color* pixels = nullptr; // row by row from the top, opaque
    int width = 0;
    int height = 0;
};

class Raster {
public:
    explicit Raster(const Bitmap& target) : target(target), clipRect{0, 0, target.width, target.height} {}

    const Rect& clip() const { return clipRect; }
    void setClip(const Rect& clip) { clipRect = intersection(clip, {0, 0, target.width, target.height}); }

    void fill(const Rect& area, int radius, Color color);
    void fillGradient(const Rect& area, int radius, const Gradient& gradient);

    // A frame inside of area, as thick on each side as told.
    void frame(const Rect& area, int radius, int thickness, Color color);

    // The part of image that source tells, scaled to area.
    void drawImage(const Rect& area, int radius, const Image& image, const Rect& source);

private:
    // Calls paint(x, y, coverage of 0 to 255) for the visible pixels of a rounded area.
    template <class Paint>
    void forEach(const Rect& area, int radius, Paint paint);
    void blend(int x, int y, Color premultiplied, uint32_t coverage);

    Bitmap target;
    Rect clipRect;
    size_t budget = 48 * 1024 * 1024; // pixels that may still be drawn
};

// The part of a picture that covers or fits an area of that shape.
Rect sourceFor(const Image& image, const Rect& area, bool cover);

} // namespace engine
