#pragma once

#include "uilib/core/platform.h"
#include "utility/handles.h"

// A clip on a device context for as long as the object lives; then the clip that was there
// before comes back. Made by the two operations, which may be called once an object.

namespace UILib {

class CRenderClip {
public:
    CRenderClip() = default;
    CRenderClip(const CRenderClip&) = delete;
    CRenderClip& operator=(const CRenderClip&) = delete;
    ~CRenderClip();

    // Both intersect with the clip that is there.
    static void GenerateClip(HDC context, const RECT& rectangle, CRenderClip& clip);
    // Rounded: the intersection of the rectangle with the round rectangle over rounding.
    static void GenerateRoundClip(HDC context, const RECT& rectangle, const RECT& rounding, int ellipseWidth,
                                  int ellipseHeight, CRenderClip& clip);

private:
    void apply(HDC target, utility::Region region);

    HDC context = nullptr;
    utility::Region before; // null when there was none
    utility::Region inside;
};

} // namespace UILib
