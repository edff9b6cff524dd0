#include "uilib/core/render_clip.h"

namespace UILib {

CRenderClip::~CRenderClip() {
    if (context)
        SelectClipRgn(context, before.get());
}

void CRenderClip::apply(HDC target, utility::Region region) {
    context = target;
    before.reset(CreateRectRgn(0, 0, 0, 0));
    if (GetClipRgn(context, before.get()) != 1)
        before.reset();
    // Regions are in device coordinates, whatever the origin of the context is.
    POINT origin = {};
    LPtoDP(context, &origin, 1);
    OffsetRgn(region.get(), origin.x, origin.y);
    inside = std::move(region);
    ExtSelectClipRgn(context, inside.get(), RGN_AND);
}

void CRenderClip::GenerateClip(HDC context, const RECT& rectangle, CRenderClip& clip) {
    clip.apply(context, utility::Region(CreateRectRgnIndirect(&rectangle)));
}

void CRenderClip::GenerateRoundClip(HDC context, const RECT& rectangle, const RECT& rounding,
                                    int ellipseWidth, int ellipseHeight, CRenderClip& clip) {
    utility::Region region(CreateRectRgnIndirect(&rectangle));
    const utility::Region round(CreateRoundRectRgn(rounding.left, rounding.top, rounding.right + 1,
                                                   rounding.bottom + 1, ellipseWidth, ellipseHeight));
    CombineRgn(region.get(), region.get(), round.get(), RGN_AND);
    clip.apply(context, std::move(region));
}

} // namespace UILib
