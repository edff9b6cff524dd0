#pragma once

#include "uilib/core/platform.h"
#include "uilib/core/raster.h"
#include "utility/handles.h"

#include <optional>

// A bitmap to paint into: a 32-bit DIB section of premultiplied BGRA, bottom-up, selected
// into a memory context of its own for its whole life. The render engine knows the contexts
// of living surfaces and writes their pixels directly, clipped by the context's clip
// region; any other context costs it a copy there and back. Window thread only.

namespace UILib {

class DibSurface {
public:
    // Zeroed. Invalid (false) when the system has no memory for it. compatible: a context
    // to take after, or null for the screen.
    DibSurface(HDC compatible, int width, int height);
    DibSurface(const DibSurface&) = delete;
    DibSurface& operator=(const DibSurface&) = delete;
    ~DibSurface();

    explicit operator bool() const { return selection.has_value(); }
    HDC context() const { return memory.get(); }
    HBITMAP bitmap() const { return dib.get(); }
    const Raster& raster() const { return pixels; } // row 0 is the top one

    void clear(const RECT& part); // to zero; limited to the surface

    // The bitmap without its context; the surface is invalid afterwards.
    utility::Bitmap takeBitmap();

    // The pixels behind a context, or null when it is not a surface's.
    static const Raster* behind(HDC context);

private:
    utility::MemoryContext memory;
    utility::Bitmap dib;
    std::optional<utility::Selection> selection;
    Raster pixels;
};

} // namespace UILib
