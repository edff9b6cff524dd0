#pragma once

#include "uilib/core/raster.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

// Rows of an image at another size: smooth between the pixels' centres where it grows, the
// mean of what a pixel covers where it shrinks. Free of Windows.

namespace UILib::raster {

// One axis of a piece of an image, limited to the target positions that are painted.
struct Axis {
    int sourceBegin, sourceLength;
    int targetBegin, targetLength;
    int begin, end; // painted
    bool tiled;

    Axis(int sourceBegin, int sourceEnd, int targetBegin, int targetEnd, int begin, int end, Fit fit)
        : sourceBegin(sourceBegin),
          sourceLength(sourceEnd - sourceBegin),
          targetBegin(targetBegin),
          targetLength(targetEnd - targetBegin),
          begin(begin),
          end(end),
          tiled(fit == Fit::Tile) {}

    int count() const { return end - begin; }
    bool grows() const { return !tiled && sourceLength < targetLength; }
    bool shrinks() const { return !tiled && sourceLength > targetLength; }
    // Where neither: the source position of a target position.
    int sourceOf(int target) const {
        return sourceBegin + static_cast<int>((static_cast<int64_t>(target) - targetBegin) % sourceLength);
    }
};

class Resampler {
public:
    virtual ~Resampler() = default;
    // x.count() pixels for a target position of y; valid until the next call.
    virtual const uint32_t* row(int target) = 0;
};

// For axes of which at least one grows or shrinks. The image and the axes must outlive it.
std::unique_ptr<Resampler> makeResampler(const Raster& image, const Axis& x, const Axis& y);

} // namespace UILib::raster
