#pragma once

#include "uilib/core/dib_surface.h"

#include <optional>
#include <vector>

// The pixels behind a part of any device context, for as long as the object lives: those
// of the DibSurface itself, or a copy that goes back at the end.

namespace UILib {

class PixelAccess {
public:
    // area: in the context's logical coordinates; only what the clip lets through is had.
    PixelAccess(HDC context, const Box& area);
    PixelAccess(const PixelAccess&) = delete;
    PixelAccess& operator=(const PixelAccess&) = delete;
    ~PixelAccess();

    const Raster& target() const { return pixels; }
    // What may be written, in the target's coordinates; empty when nothing may.
    const std::vector<Box>& clips() const { return parts; }
    Box toTarget(const Box& logical) const;

private:
    void useSurface(const Raster& surface, const Box& area, int clipKind);
    void useCopy(const Box& area);

    HDC context;
    Raster pixels;
    int left = 0, top = 0; // of the logical origin in the target
    std::vector<Box> parts;
    std::optional<DibSurface> copy;
    Box copied;
};

} // namespace UILib
