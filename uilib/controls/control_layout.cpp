#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"

namespace UILib {

RECT CControlUI::GetRelativePos() const {
    return parent ? moved(position, -parent->position.left, -parent->position.top) : RECT{};
}

void CControlUI::SetPos(RECT rectangle, bool invalidate) {
    rectangle.right = std::max(rectangle.right, rectangle.left);
    rectangle.bottom = std::max(rectangle.bottom, rectangle.top);
    const RECT old = isEmpty(position) ? rectangle : position;
    if (floating && parent)
        placeFloating(rectangle);
    else
        position = rectangle;
    if (manager && !insideSetPos) {
        insideSetPos = true;
        OnSize.Fire(*this);
        insideSetPos = false;
    }
    updateNeeded = false;
    if (invalidate && IsVisible())
        invalidateWithin(join(old, position));
    placeCover();
}

// Takes the place and works the fixed values back from it, so that the next layout of
// the parent puts the control there again.
void CControlUI::placeFloating(const RECT& relative) {
    const RECT& outer = parent->position;
    const int w = width(outer), h = height(outer);
    position = moved(relative, outer.left, outer.top);
    fixedXY.x = relative.left - static_cast<int>(floatPercent.left * w);
    fixedXY.y = relative.top - static_cast<int>(floatPercent.top * h);
    fixedSize.cx = relative.right - fixedXY.x - static_cast<int>(floatPercent.right * w);
    fixedSize.cy = relative.bottom - fixedXY.y - static_cast<int>(floatPercent.bottom * h);
}

void CControlUI::invalidateWithin(RECT area) {
    for (const CControlUI* ancestor = parent; ancestor; ancestor = ancestor->parent) {
        area = intersect(area, ancestor->position);
        if (isEmpty(area) || !ancestor->IsVisible())
            return;
    }
    if (manager)
        manager->Invalidate(area);
}

void CControlUI::placeCover() {
    if (!cover || !cover->IsVisible())
        return;
    const int w = GetWidth(), h = GetHeight();
    if (!cover->IsFloat()) {
        const int coverWidth = limited(w, cover->GetMinWidth(), cover->GetMaxWidth());
        const int coverHeight = limited(h, cover->GetMinHeight(), cover->GetMaxHeight());
        cover->SetPos({position.left, position.top, position.left + coverWidth, position.top + coverHeight},
                      false);
        return;
    }
    const POINT at = cover->GetFixedXY();
    const TPercentInfo share = cover->GetFloatPercent();
    cover->SetPos({static_cast<int>(w * share.left) + at.x, static_cast<int>(h * share.top) + at.y,
                   static_cast<int>(w * share.right) + at.x + cover->GetFixedWidth(),
                   static_cast<int>(h * share.bottom) + at.y + cover->GetFixedHeight()},
                  false);
}

void CControlUI::Move(int dx, int dy, bool invalidate) {
    const RECT old = position;
    position = moved(position, dx, dy);
    if (invalidate && manager && IsVisible())
        invalidateWithin(join(old, position));
    if (cover && cover->IsVisible())
        cover->Move(dx, dy, false);
}

void CControlUI::SetPadding(const RECT& margins) {
    setAndLayout(padding, margins);
}

void CControlUI::SetFixedXY(POINT point) {
    setAndLayout(fixedXY, point);
}

void CControlUI::SetFloatPercent(const TPercentInfo& percent) {
    floatPercent = percent;
    NeedParentUpdate();
}

void CControlUI::SetFloat(bool on) {
    setAndLayout(floating, on);
}

void CControlUI::SetFixedWidth(int pixels) {
    if (pixels >= 0)
        setAndLayout(fixedSize.cx, static_cast<LONG>(pixels));
}

void CControlUI::SetFixedHeight(int pixels) {
    if (pixels >= 0)
        setAndLayout(fixedSize.cy, static_cast<LONG>(pixels));
}

void CControlUI::SetMinWidth(int pixels) {
    if (pixels >= 0)
        setAndLayout(minimum.cx, static_cast<LONG>(pixels));
}

void CControlUI::SetMaxWidth(int pixels) {
    if (pixels >= 0)
        setAndLayout(maximum.cx, static_cast<LONG>(pixels));
}

void CControlUI::SetMinHeight(int pixels) {
    if (pixels >= 0)
        setAndLayout(minimum.cy, static_cast<LONG>(pixels));
}

void CControlUI::SetMaxHeight(int pixels) {
    if (pixels >= 0)
        setAndLayout(maximum.cy, static_cast<LONG>(pixels));
}

SIZE CControlUI::EstimateSize(SIZE) {
    return fixedSize;
}

} // namespace UILib
