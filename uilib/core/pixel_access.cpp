#include "uilib/core/pixel_access.h"

#include "uilib/core/gdi_values.h"

namespace UILib {

namespace {

// The rectangles of the clip region, in device coordinates, cut to area.
std::vector<Box> clipParts(HDC context, const Box& area) {
    const utility::Region region(CreateRectRgn(0, 0, 0, 0));
    if (GetClipRgn(context, region.get()) != 1)
        return {area};
    std::vector<char> buffer(GetRegionData(region.get(), 0, nullptr));
    auto* data = reinterpret_cast<RGNDATA*>(buffer.data());
    if (!GetRegionData(region.get(), static_cast<DWORD>(buffer.size()), data))
        return {};
    std::vector<Box> parts;
    const auto* rectangles = reinterpret_cast<const RECT*>(data->Buffer);
    for (DWORD i = 0; i < data->rdh.nCount; ++i) {
        const Box part = intersect(toBox(rectangles[i]), area);
        if (!part.isEmpty())
            parts.push_back(part);
    }
    return parts;
}

} // namespace

PixelAccess::PixelAccess(HDC context, const Box& area) : context(context) {
    RECT box = {};
    const int kind = GetClipBox(context, &box);
    const Box visible = intersect(area, toBox(box));
    if (kind == NULLREGION || kind == ERROR || visible.isEmpty())
        return;
    const Raster* surface = DibSurface::behind(context);
    if (surface && GetMapMode(context) == MM_TEXT)
        useSurface(*surface, visible, kind);
    else
        useCopy(visible);
}

PixelAccess::~PixelAccess() {
    if (copy && *copy)
        BitBlt(context, copied.left, copied.top, copied.width(), copied.height(), copy->context(), 0, 0,
               SRCCOPY);
}

Box PixelAccess::toTarget(const Box& logical) const {
    return moved(logical, left, top);
}

void PixelAccess::useSurface(const Raster& surface, const Box& area, int clipKind) {
    GdiFlush(); // what GDI still holds back lies below what comes now
    POINT origin = {};
    LPtoDP(context, &origin, 1);
    left = origin.x;
    top = origin.y;
    pixels = surface;
    const Box device = toTarget(area);
    parts = clipKind == COMPLEXREGION ? clipParts(context, device) : std::vector<Box>{device};
}

void PixelAccess::useCopy(const Box& area) {
    copy.emplace(context, area.width(), area.height());
    if (!*copy)
        return;
    BitBlt(copy->context(), 0, 0, area.width(), area.height(), context, area.left, area.top, SRCCOPY);
    GdiFlush();
    copied = area;
    left = -area.left;
    top = -area.top;
    pixels = copy->raster();
    parts = {pixels.bounds()};
}

} // namespace UILib
