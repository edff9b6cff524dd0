#include "uilib/core/render_engine.h"

#include "uilib/core/gdi_values.h"
#include "uilib/core/pixel_access.h"

#include <cstdint>

namespace UILib {

namespace {

uint32_t alphaOf(uint32_t argb) {
    return argb >> 24;
}

} // namespace

void CRenderEngine::DrawBitmap(HDC context, const ImageRecord& image, const RECT& rectangle,
                               const RECT& paint, const RECT& sourcePart, const BitmapStyle& style) {
    const Box target = toBox(rectangle);
    const Box painted = intersect(target, toBox(paint));
    const std::vector<Slice> slices = cut(
        {target, toBox(sourcePart), toBox(style.corner), style.hole, style.xTiled, style.yTiled}, painted);
    if (slices.empty())
        return;
    const PixelAccess access(context, painted);
    const Raster source = {image.pixels, image.width, image.height, image.width};
    const Compose compose = style.alphaChannel || style.fade < 255 ? Compose::Blend : Compose::Copy;
    for (Slice slice : slices) {
        slice.target = access.toTarget(slice.target);
        for (const Box& clip : access.clips())
            raster::draw(access.target(), clip, source, slice, compose, style.fade);
    }
}

void CRenderEngine::DrawColor(HDC context, const RECT& rectangle, uint32_t color) {
    const Box box = toBox(rectangle);
    if (alphaOf(color) == 0 || box.isEmpty())
        return;
    const PixelAccess access(context, box);
    for (const Box& clip : access.clips())
        raster::fill(access.target(), clip, access.toTarget(box), color);
}

void CRenderEngine::DrawGradient(HDC context, const RECT& rectangle, uint32_t first, uint32_t second,
                                 Direction direction) {
    const Box box = toBox(rectangle);
    const uint32_t alpha = (alphaOf(first) + alphaOf(second)) / 2;
    if (alpha == 0 || box.isEmpty())
        return;
    const PixelAccess access(context, box);
    for (const Box& clip : access.clips())
        raster::gradient(access.target(), clip, access.toTarget(box), first, second, direction,
                         static_cast<uint8_t>(alpha));
}

void CRenderEngine::DrawLine(HDC context, const RECT& rectangle, int width, uint32_t color, int penStyle) {
    const LOGPEN description = {static_cast<UINT>(penStyle), {width, width}, toColorRef(color)};
    const utility::Pen pen(CreatePenIndirect(&description));
    const utility::Selection selection(context, pen.get());
    MoveToEx(context, rectangle.left, rectangle.top, nullptr);
    LineTo(context, rectangle.right, rectangle.bottom);
}

void CRenderEngine::DrawRect(HDC context, const RECT& rectangle, int width, uint32_t color, int penStyle) {
    const utility::Pen pen(CreatePen(penStyle | PS_INSIDEFRAME, width, toColorRef(color)));
    const utility::Selection penSelection(context, pen.get());
    const utility::Selection brushSelection(context, GetStockObject(HOLLOW_BRUSH));
    Rectangle(context, rectangle.left, rectangle.top, rectangle.right, rectangle.bottom);
}

void CRenderEngine::DrawRoundRect(HDC context, const RECT& rectangle, int width, int ellipseWidth,
                                  int ellipseHeight, uint32_t color, int penStyle) {
    const utility::Pen pen(CreatePen(penStyle | PS_INSIDEFRAME, width, toColorRef(color)));
    const utility::Selection penSelection(context, pen.get());
    const utility::Selection brushSelection(context, GetStockObject(HOLLOW_BRUSH));
    RoundRect(context, rectangle.left, rectangle.top, rectangle.right, rectangle.bottom, ellipseWidth,
              ellipseHeight);
}

utility::Bitmap CRenderEngine::CreateARGB32Bitmap(HDC context, int width, int height, uint32_t** pixels) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return utility::Bitmap(
        CreateDIBSection(context, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(pixels), nullptr, 0));
}

utility::Bitmap CRenderEngine::GenerateBitmap(IRenderHost* manager, const RECT& rectangle,
                                              CControlUI* control, uint32_t backgroundColor) {
    const Box box = toBox(rectangle);
    if (box.isEmpty())
        return {};
    DibSurface surface(manager->GetPaintDC(), box.width(), box.height());
    if (!surface)
        return {};
    SetViewportOrgEx(surface.context(), -box.left, -box.top, nullptr);
    manager->PaintTree(surface.context(), rectangle, control);
    DrawColor(surface.context(), rectangle, backgroundColor);
    GdiFlush();
    return surface.takeBitmap();
}

} // namespace UILib
