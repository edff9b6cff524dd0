#include "uilib/controls/container.h"
#include "uilib/controls/scroll_bar.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_clip.h"

namespace UILib {

// Every child that does not float gets the whole area.
void CContainerUI::SetPos(RECT rectangle, bool invalidate) {
    CControlUI::SetPos(rectangle, invalidate);
    RECT area = shrunk(position, inset);
    if (const CScrollBarUI* bar = visibleBar(Axis::Vertical)) {
        area.top -= bar->GetScrollPos();
        area.bottom += bar->GetScrollRange() - bar->GetScrollPos();
        area.right -= bar->GetFixedWidth();
    }
    if (const CScrollBarUI* bar = visibleBar(Axis::Horizontal)) {
        area.left -= bar->GetScrollPos();
        area.right += bar->GetScrollRange() - bar->GetScrollPos();
        area.bottom -= bar->GetFixedHeight();
    }
    for (int i = 0; i < GetCount(); ++i) {
        CControlUI* item = GetItemAt(i);
        if (!item->IsVisible())
            continue;
        if (item->IsFloat()) {
            SetFloatPos(i);
            continue;
        }
        const int w = limited(width(area), item->GetMinWidth(), item->GetMaxWidth());
        const int h = limited(height(area), item->GetMinHeight(), item->GetMaxHeight());
        item->SetPos({area.left, area.top, area.left + w, area.top + h}, false);
    }
}

void CContainerUI::SetFloatPos(int index) {
    CControlUI* item = GetItemAt(index);
    if (!item || !item->IsVisible() || !item->IsFloat())
        return;
    const POINT at = item->GetFixedXY();
    const TPercentInfo share = item->GetFloatPercent();
    const int w = GetWidth(), h = GetHeight();
    item->SetPos({shareOf(w, share.left) + at.x, shareOf(h, share.top) + at.y,
                  shareOf(w, share.right) + at.x + item->GetFixedWidth(),
                  shareOf(h, share.bottom) + at.y + item->GetFixedHeight()},
                 false);
}

void CContainerUI::Move(int dx, int dy, bool invalidate) {
    CControlUI::Move(dx, dy, invalidate);
    for (Axis axis : {Axis::Vertical, Axis::Horizontal})
        if (CScrollBarUI* bar = visibleBar(axis))
            bar->Move(dx, dy, false);
    for (size_t i = 0; i < items.size(); ++i)
        if (items[i]->IsVisible())
            items[i]->Move(dx, dy, false);
}

bool CContainerUI::Paint(HDC context, const RECT& rectangle, CControlUI* stop) {
    if (!meets(rectangle, position))
        return true;
    CRenderClip clip;
    CRenderClip::GenerateClip(context, position, clip);
    CControlUI::Paint(context, rectangle, stop);
    if (!items.empty()) {
        const bool inClient = meets(rectangle, clientArea());
        if (!(inClient ? paintItems(context, rectangle, stop) : paintFloatingItems(context, rectangle, stop)))
            return false;
    }
    return paintBars(context, rectangle, stop);
}

bool CContainerUI::paintItems(HDC context, const RECT& rectangle, CControlUI* stop) {
    const RECT client = clientArea();
    CRenderClip clip;
    CRenderClip::GenerateClip(context, intersect(rectangle, client), clip);
    for (size_t i = 0; i < items.size(); ++i) {
        CControlUI* item = items[i];
        if (item == stop)
            return false;
        if (!item->IsVisible() || !meets(rectangle, item->GetPos()) || !meets(client, item->GetPos()))
            continue;
        if (!item->DoPaint(context, rectangle, stop))
            return false;
    }
    return true;
}

// Outside the client area only what floats may show.
bool CContainerUI::paintFloatingItems(HDC context, const RECT& rectangle, CControlUI* stop) {
    for (size_t i = 0; i < items.size(); ++i) {
        CControlUI* item = items[i];
        if (item == stop)
            return false;
        if (!item->IsVisible() || !item->IsFloat() || !meets(rectangle, item->GetPos()) ||
            !meets(position, item->GetPos()))
            continue;
        if (!item->DoPaint(context, rectangle, stop))
            return false;
    }
    return true;
}

bool CContainerUI::paintBars(HDC context, const RECT& rectangle, CControlUI* stop) {
    for (Axis axis : {Axis::Vertical, Axis::Horizontal}) {
        CScrollBarUI* bar = visibleBar(axis);
        if (!bar)
            continue;
        if (bar == stop)
            return false;
        if (meets(rectangle, bar->GetPos()) && !bar->DoPaint(context, rectangle, stop))
            return false;
    }
    return true;
}

} // namespace UILib
