#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_clip.h"
#include "uilib/core/render_engine.h"

namespace UILib {

bool CControlUI::DoPaint(HDC context, const RECT& rectangle, CControlUI* stop) {
    if (stop == this)
        return false;
    paintRect = intersect(rectangle, position);
    if (isEmpty(paintRect))
        return true;
    PaintArguments arguments = {this, context, rectangle};
    if (!OnPaint.Fire(arguments))
        return true;
    if (!Paint(context, rectangle, stop))
        return false;
    return !cover || cover->DoPaint(context, rectangle, stop);
}

bool CControlUI::Paint(HDC context, const RECT&, CControlUI*) {
    CRenderClip clip;
    if (borderRound.cx > 0 || borderRound.cy > 0)
        CRenderClip::GenerateRoundClip(context, paintRect, position, borderRound.cx, borderRound.cy, clip);
    paintLayers(context);
    return true;
}

void CControlUI::paintLayers(HDC context) {
    PaintBkColor(context);
    PaintStateColor(context);
    PaintBkImage(context);
    PaintStatusImage(context);
    PaintText(context);
    PaintBorder(context);
}

void CControlUI::PaintBkColor(HDC context) {
    const uint32_t first = GetAdjustColor(bkColors[0]), second = GetAdjustColor(bkColors[1]),
                   third = GetAdjustColor(bkColors[2]);
    if (!first)
        return;
    if (!second) {
        // A translucent fill must blend the same whatever part is repainted.
        CRenderEngine::DrawColor(context, first >> 24 == 255 ? paintRect : position, first);
        return;
    }
    if (!third) {
        CRenderEngine::DrawGradient(context, position, first, second, Direction::Vertical);
        return;
    }
    RECT upper = position, lower = position;
    upper.bottom = lower.top = (position.top + position.bottom) / 2;
    CRenderEngine::DrawGradient(context, upper, first, second, Direction::Vertical);
    CRenderEngine::DrawGradient(context, lower, second, third, Direction::Vertical);
}

void CControlUI::PaintBkImage(HDC context) {
    if (!bkColors[0] && !bkImage.drawString.IsEmpty())
        DrawImage(context, bkImage);
}

bool CControlUI::DrawImage(HDC context, DrawRecord& image) {
    return CRenderEngine::DrawImage(context, manager, position, paintRect, image);
}

void CControlUI::PaintBorder(HDC context) {
    PaintBorder(context, ShowsFocus() && focusBorderColor ? focusBorderColor : borderColor);
}

void CControlUI::PaintBorder(HDC context, uint32_t color) {
    if (borderSize.left <= 0 || !color)
        return;
    color = GetAdjustColor(color);
    if (borderRound.cx || borderRound.cy)
        CRenderEngine::DrawRoundRect(context, position, borderSize.left, borderRound.cx, borderRound.cy,
                                     color, borderStyle);
    else if (borderSize.left == borderSize.top && borderSize.left == borderSize.right &&
             borderSize.left == borderSize.bottom)
        CRenderEngine::DrawRect(context, position, borderSize.left, color, borderStyle);
    else
        paintBorderSides(context, color);
}

// Each side as a line along its own middle.
void CControlUI::paintBorderSides(HDC context, uint32_t color) {
    const auto line = [&](LONG size, const RECT& along) {
        if (size > 0)
            CRenderEngine::DrawLine(context, along, size, color, borderStyle);
    };
    const RECT& p = position;
    const RECT& b = borderSize;
    const LONG top = p.top + b.top / 2, bottom = p.bottom - b.bottom / 2;
    const LONG left = p.left + b.left / 2, right = p.right - b.right / 2;
    line(b.top, {p.left + b.left, top, p.right - b.right, top});
    line(b.right, {right, p.top, right, p.bottom});
    line(b.bottom, {p.left + b.left, bottom, p.right - b.right, bottom});
    line(b.left, {left, p.top, left, p.bottom});
}

void CControlUI::DoPostPaint(HDC context, const RECT& rectangle) {
    PaintArguments arguments = {this, context, rectangle};
    OnPostPaint.Fire(arguments);
}

} // namespace UILib
