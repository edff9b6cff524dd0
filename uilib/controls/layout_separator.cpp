#include "uilib/controls/linear_layout.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

#include <cstdlib>

namespace UILib {

namespace {

constexpr uint32_t BandColor = 0xAA000000;

}

void CLinearLayoutUI::SetSepImmMode(bool on) {
    if (immediate == on)
        return;
    if (dragging && !immediate && manager)
        manager->RemovePostPaint(this);
    immediate = on;
}

RECT CLinearLayoutUI::separatorBand(const RECT& place) const {
    RECT band = place;
    const bool vertical = axis == Axis::Vertical;
    LONG& first = vertical ? band.top : band.left;
    LONG& last = vertical ? band.bottom : band.right;
    if (separator >= 0)
        first = std::max(first, last - separator);
    else
        last = std::min(last, first - separator);
    return band;
}

void CLinearLayoutUI::DoEvent(TUIEvent& event) {
    if (separator) {
        if ((event.kind == EventButtonDown || event.kind == EventDoubleClick) && onSeparatorPress(event))
            return;
        if (event.kind == EventButtonUp && dragging) {
            onSeparatorRelease();
            return;
        }
        if (event.kind == EventMouseMove && dragging) {
            onSeparatorDrag(event);
            return;
        }
        if (event.kind == EventSetCursor && IsEnabled() && contains(separatorBand(position), event.mouse)) {
            SetCursor(LoadCursorW(nullptr, axis == Axis::Vertical ? IDC_SIZENS : IDC_SIZEWE));
            return;
        }
    }
    CContainerUI::DoEvent(event);
}

bool CLinearLayoutUI::onSeparatorPress(const TUIEvent& event) {
    if (!IsEnabled() || !contains(separatorBand(position), event.mouse))
        return false;
    dragging = true;
    lastMouse = event.mouse;
    newPosition = position;
    if (!immediate && manager)
        manager->AddPostPaint(this);
    return true;
}

void CLinearLayoutUI::onSeparatorRelease() {
    dragging = false;
    position = newPosition;
    if (!immediate && manager)
        manager->RemovePostPaint(this);
    NeedParentUpdate();
}

void CLinearLayoutUI::onSeparatorDrag(const TUIEvent& event) {
    const bool vertical = axis == Axis::Vertical, trailing = separator > 0;
    const RECT oldBand = separatorBand(newPosition);
    const int mouse = vertical ? event.mouse.y : event.mouse.x, last = vertical ? lastMouse.y : lastMouse.x;
    const int delta = mouse - last;
    lastMouse = event.mouse;
    LONG& edge = vertical ? (trailing ? newPosition.bottom : newPosition.top)
                          : (trailing ? newPosition.right : newPosition.left);
    const LONG opposite = vertical ? (trailing ? newPosition.top : newPosition.bottom)
                                   : (trailing ? newPosition.left : newPosition.right);
    // The mouse may be far from the band after a limit held it: only a move from the
    // band's own side takes it along again.
    const LONG farSide = trailing ? edge : edge - separator;
    if (!delta || (delta > 0 ? mouse < farSide - std::abs(separator) : mouse > farSide))
        return;
    const int least = vertical ? GetMinHeight() : GetMinWidth(),
              most = vertical ? GetMaxHeight() : GetMaxWidth();
    const int old = std::abs(edge - opposite);
    const int grown = old + (trailing ? delta : -delta);
    const int size = limited(grown, least, most);
    if (size == old)
        return;
    edge = trailing ? opposite + size : opposite - size;
    storeFixedSize(vertical ? SIZE{GetFixedWidth(), size} : SIZE{size, GetFixedHeight()});
    if (immediate) {
        position = newPosition;
        NeedParentUpdate();
    } else if (manager) {
        manager->Invalidate(join(oldBand, separatorBand(newPosition)));
    }
}

void CLinearLayoutUI::DoPostPaint(HDC context, const RECT& rectangle) {
    if (dragging && !immediate)
        CRenderEngine::DrawColor(context, separatorBand(newPosition), BandColor);
    CContainerUI::DoPostPaint(context, rectangle);
}

} // namespace UILib
