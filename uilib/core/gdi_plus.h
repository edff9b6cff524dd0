#pragma once

#include "uilib/core/platform.h"
#include "utility/handles.h"

#include <propidl.h> // gdiplus.h needs it and does not include it

#include <gdiplus.h>

// The flat functions of GDI+, for what GDI cannot draw: text through brushes and the
// frames of animated images. Owners for its objects. Window thread only.

namespace UILib {

// Starts GDI+ at the first call; it ends with the process. False when it cannot start.
bool startGdiPlus();

template <class Object, auto Delete>
struct GdiPlusTraits {
    using Handle = Object*;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { Delete(handle); }
};

namespace flat = Gdiplus::DllExports;

using GdiPlusGraphics = utility::Owner<GdiPlusTraits<Gdiplus::GpGraphics, flat::GdipDeleteGraphics>>;
using GdiPlusBrush = utility::Owner<GdiPlusTraits<Gdiplus::GpBrush, flat::GdipDeleteBrush>>;
using GdiPlusFont = utility::Owner<GdiPlusTraits<Gdiplus::GpFont, flat::GdipDeleteFont>>;
using GdiPlusFormat = utility::Owner<GdiPlusTraits<Gdiplus::GpStringFormat, flat::GdipDeleteStringFormat>>;
using GdiPlusImage = utility::Owner<GdiPlusTraits<Gdiplus::GpImage, flat::GdipDisposeImage>>;

} // namespace UILib
