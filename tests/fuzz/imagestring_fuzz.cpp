#include "tests/fuzz/wide_text.h"
#include "uilib/core/image_string.h"
#include "uilib/core/raster.h"

#include <array>

// Any text as an image attribute, and what it says painted: the target pixels are just as
// many as the sanitizer guards.

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const UILib::ImageString parsed = UILib::parseImageString(wideText(data, size));
    std::array<uint32_t, 12 * 10> image;
    std::array<uint32_t, 40 * 30> target = {};
    image.fill(0x80402010);
    const UILib::Raster source = {image.data(), 12, 10, 12};
    const UILib::Raster canvas = {target.data(), 40, 30, 40};
    const UILib::Box part = parsed.source.isZero() ? source.bounds() : parsed.source;
    const UILib::Box box = parsed.dest.isZero() ? canvas.bounds() : parsed.dest;
    for (const UILib::Slice& slice :
         cut({box, part, parsed.corner, parsed.hole, parsed.xTiled, parsed.yTiled}, canvas.bounds()))
        UILib::raster::draw(canvas, canvas.bounds(), source, slice,
                            parsed.fade < 255 ? UILib::Compose::Blend : UILib::Compose::Copy, parsed.fade);
    return 0;
}
