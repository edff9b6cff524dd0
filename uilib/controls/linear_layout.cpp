#include "uilib/controls/linear_layout.h"

#include "uilib/controls/scroll_bar.h"

#include <cwchar>

namespace UILib {

namespace {

constexpr Attribute VerticalRows[] = {
    attribute<&CVerticalLayoutUI::SetSepSize>(L"sepheight", "height of the band that resizes the layout"),
    attribute<&CVerticalLayoutUI::SetSepImmMode>(L"sepimm", "the layout follows the dragged band at once"),
};
constexpr Attribute HorizontalRows[] = {
    attribute<&CHorizontalLayoutUI::SetSepSize>(L"sepwidth", "width of the band that resizes the layout"),
    attribute<&CHorizontalLayoutUI::SetSepImmMode>(L"sepimm", "the layout follows the dragged band at once"),
};

int scrollPos(const CScrollBarUI* bar) {
    return bar ? bar->GetScrollPos() : 0;
}

int scrollRange(const CScrollBarUI* bar) {
    return bar ? bar->GetScrollRange() : 0;
}

} // namespace

const AttributeTable& CVerticalLayoutUI::GetAttributeTable() const {
    static const AttributeTable table = {&CContainerUI::GetAttributeTable(), VerticalRows};
    return table;
}

const AttributeTable& CHorizontalLayoutUI::GetAttributeTable() const {
    static const AttributeTable table = {&CContainerUI::GetAttributeTable(), HorizontalRows};
    return table;
}

void* CLinearLayoutUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, GetClass()) == 0 ? this : CContainerUI::GetInterface(interfaceName);
}

struct CLinearLayoutUI::Item {
    Item(const CControlUI& control, Axis axis) : control(const_cast<CControlUI&>(control)) {
        const RECT padding = control.GetPadding();
        if (axis == Axis::Vertical) {
            before = padding.top, after = padding.bottom, acrossBefore = padding.left,
            acrossAfter = padding.right;
            fixed = control.GetFixedHeight(), least = control.GetMinHeight(), most = control.GetMaxHeight();
            acrossFixed = control.GetFixedWidth(), acrossLeast = control.GetMinWidth(),
            acrossMost = control.GetMaxWidth();
        } else {
            before = padding.left, after = padding.right, acrossBefore = padding.top,
            acrossAfter = padding.bottom;
            fixed = control.GetFixedWidth(), least = control.GetMinWidth(), most = control.GetMaxWidth();
            acrossFixed = control.GetFixedHeight(), acrossLeast = control.GetMinHeight(),
            acrossMost = control.GetMaxHeight();
        }
    }

    CControlUI& control;
    int before, after, acrossBefore, acrossAfter; // margins
    int fixed, least, most;
    int acrossFixed, acrossLeast, acrossMost;
};

CLinearLayoutUI::Extent CLinearLayoutUI::extentOf(SIZE size) const {
    return axis == Axis::Vertical ? Extent{size.cy, size.cx} : Extent{size.cx, size.cy};
}

SIZE CLinearLayoutUI::sizeOf(Extent extent) const {
    return axis == Axis::Vertical ? SIZE{extent.across, extent.along} : SIZE{extent.along, extent.across};
}

RECT CLinearLayoutUI::layoutArea() const {
    return clientArea();
}

// What the children may take: a scrolled layout has its range beyond the area.
CLinearLayoutUI::Extent CLinearLayoutUI::available(const RECT& area) const {
    return extentOf({width(area) + scrollRange(visibleBar(Axis::Horizontal)),
                     height(area) + scrollRange(visibleBar(Axis::Vertical))});
}

CLinearLayoutUI::Extent CLinearLayoutUI::estimate(const Item& item, int across, int along,
                                                  int& acrossLimit) const {
    acrossLimit = std::min(across - item.acrossBefore - item.acrossAfter,
                           item.acrossFixed > 0 ? item.acrossFixed : item.acrossMost);
    const int alongLimit = std::min(along, item.fixed > 0 ? item.fixed : item.most);
    return extentOf(item.control.EstimateSize(sizeOf({alongLimit, acrossLimit})));
}

CLinearLayoutUI::Measure CLinearLayoutUI::measure(Extent room) const {
    Measure result;
    for (const CControlUI* control : items) {
        if (!control->IsVisible() || control->IsFloat())
            continue;
        const Item item(*control, axis);
        int acrossLimit;
        Extent size = estimate(item, room.across, room.along, acrossLimit);
        if (size.along == 0)
            ++result.adjustable;
        else
            size.along = limited(size.along, item.least, item.most);
        result.fixedSum += item.before + item.after + size.along;
        const int across = limited(std::max(size.across, 0), item.acrossLeast, item.acrossMost);
        result.neededAcross = std::max(result.neededAcross, across + item.acrossBefore + item.acrossAfter);
        ++result.count;
    }
    result.fixedSum += GetChildPadding() * (result.count - 1);
    return result;
}

int CLinearLayoutUI::acrossStart(const RECT& area, const Item& item, int size) const {
    const bool vertical = axis == Axis::Vertical;
    const int first = vertical ? area.left : area.top, last = vertical ? area.right : area.bottom;
    const CScrollBarUI* bar = visibleBar(otherAxis());
    const bool centred = vertical ? GetChildAlign() == AlignCenter : GetChildVAlign() == AlignMiddle;
    const bool atEnd = vertical ? GetChildAlign() == AlignRight : GetChildVAlign() == AlignBottom;
    if (centred)
        return (first + last) / 2 + scrollRange(bar) / 2 - scrollPos(bar) - size / 2;
    if (atEnd)
        return last + scrollRange(bar) - scrollPos(bar) - item.acrossAfter - size;
    return first - scrollPos(bar) + item.acrossBefore;
}

// Gives every child its rectangle and returns what they need along the axis, gaps left
// out. The gaps and the margins of earlier children shorten the last adjustable child.
int CLinearLayoutUI::placeItems(const RECT& area, Extent room, const Measure& measured) {
    const int expand =
        measured.adjustable > 0 ? std::max((room.along - measured.fixedSum) / measured.adjustable, 0) : 0;
    int rest = room.along, fixedSum = measured.fixedSum, adjusted = 0, needed = 0;
    int at = (axis == Axis::Vertical ? area.top : area.left) - scrollPos(visibleBar(axis));
    for (int i = 0; i < GetCount(); ++i) {
        CControlUI* control = GetItemAt(i);
        if (!control->IsVisible())
            continue;
        if (control->IsFloat()) {
            SetFloatPos(i);
            continue;
        }
        const Item item(*control, axis);
        rest -= item.before;
        int acrossLimit;
        Extent size = estimate(item, room.across, rest, acrossLimit);
        if (size.along == 0) {
            const bool last = ++adjusted == measured.adjustable;
            size.along =
                limited(last ? std::max(rest - item.after - fixedSum, 0) : expand, item.least, item.most);
        } else {
            size.along = limited(size.along, item.least, item.most);
            fixedSum -= size.along;
        }
        const int wanted =
            item.acrossMost ? item.acrossMost : room.across - item.acrossBefore - item.acrossAfter;
        size.across = std::max(std::min(std::max(wanted, 0), acrossLimit), item.acrossLeast);
        const int start = at + item.before, across = acrossStart(area, item, size.across);
        if (axis == Axis::Vertical)
            control->SetPos({across, start, across + size.across, start + size.along}, false);
        else
            control->SetPos({start, across, start + size.along, across + size.across}, false);
        at += size.along + GetChildPadding() + item.before + item.after;
        needed += item.before + size.along + item.after;
        rest -= size.along + GetChildPadding() + item.after;
    }
    return needed;
}

void CLinearLayoutUI::SetPos(RECT rectangle, bool invalidate) {
    CControlUI::SetPos(rectangle, invalidate);
    const RECT area = layoutArea();
    Extent needed;
    if (!items.empty()) {
        const Extent room = available(area);
        const Measure measured = measure(room);
        needed = {placeItems(area, room, measured) + GetChildPadding() * (measured.count - 1),
                  measured.neededAcross};
    }
    const SIZE size = sizeOf(needed);
    ProcessScrollBar(area, size.cx, size.cy);
}

} // namespace UILib
