#include "uilib/controls/container.h"
#include "uilib/controls/scroll_bar.h"
#include "uilib/core/paint_manager.h"

namespace UILib {

namespace {

constexpr int PlainStep = 8;
// A layout that needs more room each time it gets more would go on without end.
constexpr int BarLayoutLimit = 8;

RECT placeOfVerticalBar(const RECT& area, const CScrollBarUI& bar) {
    return {area.right, area.top, area.right + bar.GetFixedWidth(), area.bottom};
}

RECT placeOfHorizontalBar(const RECT& area, const CScrollBarUI& bar) {
    return {area.left, area.bottom, area.right, area.bottom + bar.GetFixedHeight()};
}

bool isUsable(const CScrollBarUI* bar) {
    return bar && bar->IsVisible() && bar->IsEnabled();
}

} // namespace

CScrollBarUI* CContainerUI::visibleBar(Axis axis) const {
    CScrollBarUI* bar = axis == Axis::Vertical ? verticalBar.get() : horizontalBar.get();
    return bar && bar->IsVisible() ? bar : nullptr;
}

RECT CContainerUI::clientArea() const {
    RECT area = shrunk(position, inset);
    if (const CScrollBarUI* bar = visibleBar(Axis::Vertical))
        area.right -= bar->GetFixedWidth();
    if (const CScrollBarUI* bar = visibleBar(Axis::Horizontal))
        area.bottom -= bar->GetFixedHeight();
    return area;
}

void CContainerUI::EnableScrollBar(bool vertical, bool horizontal) {
    enableBar(verticalBar, Axis::Vertical, vertical);
    enableBar(horizontalBar, Axis::Horizontal, horizontal);
    NeedUpdate();
}

void CContainerUI::enableBar(std::unique_ptr<CScrollBarUI>& bar, Axis axis, bool on) {
    if (!on) {
        if (bar)
            bar.release()->Delete();
        return;
    }
    if (bar)
        return;
    bar = std::make_unique<CScrollBarUI>();
    bar->SetScrollRange(0);
    if (axis == Axis::Horizontal)
        bar->SetHorizontal(true);
    bar->SetOwner(this);
    bar->SetManager(manager, nullptr, false);
    const wchar_t* tag = axis == Axis::Vertical ? L"VScrollBar" : L"HScrollBar";
    if (const wchar_t* defaults = manager ? manager->GetDefaultAttributeList(tag) : nullptr)
        bar->ApplyAttributeList(defaults);
}

SIZE CContainerUI::GetScrollPos() const {
    return {horizontalBar ? horizontalBar->GetScrollPos() : 0, verticalBar ? verticalBar->GetScrollPos() : 0};
}

SIZE CContainerUI::GetScrollRange() const {
    return {horizontalBar ? horizontalBar->GetScrollRange() : 0,
            verticalBar ? verticalBar->GetScrollRange() : 0};
}

// Moves the children; costs no layout.
void CContainerUI::SetScrollPos(SIZE target) {
    const auto scroll = [](CScrollBarUI* bar, int to) {
        if (!bar)
            return 0;
        const int old = bar->GetScrollPos();
        bar->SetScrollPos(to, Notification::Send);
        return bar->GetScrollPos() - old;
    };
    const int dy = scroll(visibleBar(Axis::Vertical), target.cy);
    const int dx = scroll(visibleBar(Axis::Horizontal), target.cx);
    if (!dx && !dy)
        return;
    for (size_t i = 0; i < items.size(); ++i) // an edit that leaves the view loses the focus
        if (items[i]->IsVisible() && !items[i]->IsFloat())
            items[i]->Move(-dx, -dy, false);
    Invalidate();
}

void CContainerUI::scrollBy(int dx, int dy) {
    const SIZE now = GetScrollPos();
    SetScrollPos({now.cx + dx, now.cy + dy});
}

int CContainerUI::lineStep() const {
    if (verticalBar && verticalBar->GetScrollUnit() > 1)
        return verticalBar->GetScrollUnit();
    return manager ? manager->GetDefaultFontInfo().metrics.tmHeight + PlainStep : PlainStep;
}

int CContainerUI::columnStep() const {
    return horizontalBar && horizontalBar->GetScrollUnit() > 1 ? horizontalBar->GetScrollUnit() : PlainStep;
}

void CContainerUI::LineUp() {
    scrollBy(0, -lineStep());
}

void CContainerUI::LineDown() {
    scrollBy(0, lineStep());
}

void CContainerUI::PageUp() {
    const CScrollBarUI* bar = visibleBar(Axis::Horizontal);
    scrollBy(0, -(GetHeight() - inset.top - inset.bottom - (bar ? bar->GetFixedHeight() : 0)));
}

void CContainerUI::PageDown() {
    const CScrollBarUI* bar = visibleBar(Axis::Horizontal);
    scrollBy(0, GetHeight() - inset.top - inset.bottom - (bar ? bar->GetFixedHeight() : 0));
}

void CContainerUI::HomeUp() {
    SetScrollPos({GetScrollPos().cx, 0});
}

void CContainerUI::EndDown() {
    SetScrollPos({GetScrollPos().cx, GetScrollRange().cy});
}

void CContainerUI::LineLeft() {
    scrollBy(-columnStep(), 0);
}

void CContainerUI::LineRight() {
    scrollBy(columnStep(), 0);
}

void CContainerUI::PageLeft() {
    const CScrollBarUI* bar = visibleBar(Axis::Vertical);
    scrollBy(-(GetWidth() - inset.left - inset.right - (bar ? bar->GetFixedWidth() : 0)), 0);
}

void CContainerUI::PageRight() {
    const CScrollBarUI* bar = visibleBar(Axis::Vertical);
    scrollBy(GetWidth() - inset.left - inset.right - (bar ? bar->GetFixedWidth() : 0), 0);
}

void CContainerUI::HomeLeft() {
    SetScrollPos({0, GetScrollPos().cy});
}

void CContainerUI::EndRight() {
    SetScrollPos({GetScrollRange().cx, GetScrollPos().cy});
}

bool CContainerUI::onKey(WPARAM key) {
    struct Step {
        WPARAM key;
        void (CContainerUI::*vertical)();
        void (CContainerUI::*horizontal)();
    };
    static constexpr Step Steps[] = {
        {VK_DOWN, &CContainerUI::LineDown, &CContainerUI::LineRight},
        {VK_UP, &CContainerUI::LineUp, &CContainerUI::LineLeft},
        {VK_NEXT, &CContainerUI::PageDown, &CContainerUI::PageRight},
        {VK_PRIOR, &CContainerUI::PageUp, &CContainerUI::PageLeft},
        {VK_HOME, &CContainerUI::HomeUp, &CContainerUI::HomeLeft},
        {VK_END, &CContainerUI::EndDown, &CContainerUI::EndRight},
    };
    const bool vertical = isUsable(verticalBar.get());
    if (!vertical && !isUsable(horizontalBar.get()))
        return false;
    for (const Step& step : Steps)
        if (step.key == key) {
            (this->*(vertical ? step.vertical : step.horizontal))();
            return true;
        }
    return false;
}

bool CContainerUI::onWheel(const TUIEvent& event) {
    const bool up = event.wParam == WheelUp, horizontal = isUsable(horizontalBar.get());
    const bool overHorizontal = horizontal && contains(horizontalBar->GetPos(), event.mouse);
    if (!overHorizontal && isUsable(verticalBar.get()))
        up ? LineUp() : LineDown();
    else if (horizontal)
        up ? LineLeft() : LineRight();
    else
        return false;
    return true;
}

void CContainerUI::layoutAgain(bool invalidate) {
    if (barLayouts >= BarLayoutLimit)
        return;
    ++barLayouts;
    SetPos(IsFloat() ? GetRelativePos() : GetPos(), invalidate);
    --barLayouts;
}

void CContainerUI::layoutForNewBar() {
    insideBarLayout = true;
    layoutAgain(true);
    insideBarLayout = false;
}

void CContainerUI::hideBar(CScrollBarUI& bar) {
    bar.SetVisible(false);
    bar.SetScrollPos(0, Notification::Send);
    bar.SetScrollRange(0);
}

// Gives a placed bar its range. True when that moved its position back, so that the
// children stand at a place they can no longer be scrolled to.
bool CContainerUI::fitRange(CScrollBarUI& bar, int range) {
    if (bar.GetScrollRange() == range)
        return false;
    const int old = bar.GetScrollPos();
    bar.SetScrollRange(std::abs(range));
    if (bar.GetScrollRange() == 0) {
        bar.SetVisible(false);
        bar.SetScrollPos(0, Notification::Send);
    }
    return bar.GetScrollPos() < old;
}

void CContainerUI::ProcessScrollBar(RECT area, int neededWidth, int neededHeight) {
    if (verticalBar && horizontalBar) {
        const bool changed = settleHorizontal(area, neededWidth);
        settleVertical(area, neededWidth, neededHeight, changed);
    } else if (verticalBar) {
        fitOnlyBar(*verticalBar, placeOfVerticalBar(area, *verticalBar), neededHeight - height(area));
    } else if (horizontalBar) {
        fitOnlyBar(*horizontalBar, placeOfHorizontalBar(area, *horizontalBar), neededWidth - width(area));
    }
}

void CContainerUI::fitOnlyBar(CScrollBarUI& bar, const RECT& place, int range) {
    if (range > 0 && !bar.IsVisible()) {
        bar.SetVisible(true);
        bar.SetScrollRange(range);
        bar.SetScrollPos(0, Notification::Send);
        layoutForNewBar();
    } else if (bar.IsVisible() && range <= 0 && !insideBarLayout) {
        hideBar(bar);
        layoutAgain(true);
    } else if (bar.IsVisible()) {
        bar.SetPos(place, false);
        if (fitRange(bar, range))
            layoutAgain(false);
    }
}

// Of both bars the horizontal one comes first. Takes its height from the area, or gives
// it back; true when its range has changed.
bool CContainerUI::settleHorizontal(RECT& area, int needed) {
    CScrollBarUI& bar = *horizontalBar;
    const int range = needed - width(area);
    if (range <= 0) {
        if (bar.IsVisible()) {
            hideBar(bar);
            area.bottom += bar.GetFixedHeight();
        }
        return false;
    }
    if (!bar.IsVisible()) {
        bar.SetVisible(true);
        bar.SetScrollPos(0, Notification::Send);
        area.bottom -= bar.GetFixedHeight();
    }
    bar.SetPos(placeOfHorizontalBar(area, bar), false);
    if (bar.GetScrollRange() == range)
        return false;
    bar.SetScrollRange(range);
    return true;
}

void CContainerUI::settleVertical(RECT area, int neededWidth, int neededHeight, bool horizontalChanged) {
    CScrollBarUI& bar = *verticalBar;
    const int range = neededHeight - height(area);
    const auto widen = [&](int pixels) {
        area.right += pixels;
        if (!horizontalBar->IsVisible())
            return;
        horizontalBar->SetPos(placeOfHorizontalBar(area, *horizontalBar), false);
        horizontalBar->SetScrollRange(neededWidth - width(area));
    };
    if (range > 0 && !bar.IsVisible()) {
        bar.SetVisible(true);
        bar.SetScrollRange(range);
        bar.SetScrollPos(0, Notification::Send);
        widen(-bar.GetFixedWidth());
        layoutForNewBar();
    } else if (bar.IsVisible() && (range > 0 || insideBarLayout)) {
        bar.SetPos(placeOfVerticalBar(area, bar), false);
        const bool movedBack = fitRange(bar, range);
        if (movedBack || horizontalChanged)
            layoutAgain(false);
    } else if (bar.IsVisible()) {
        hideBar(bar);
        widen(bar.GetFixedWidth());
        layoutAgain(true);
    } else if (horizontalChanged) {
        layoutAgain(true);
    }
}

} // namespace UILib
