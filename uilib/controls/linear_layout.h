#pragma once

#include "uilib/controls/container.h"

// Layouts that put their children one behind the other. A child without a size along the
// layout's axis takes an equal share of what the others leave, and the last such child
// takes the rounding. Across the axis a child fills the layout up to its own limits.
//
// Both directions are one class that speaks of "along" and "across" its axis. A layout
// with a separator can be dragged to another size by a band at its edge.

namespace UILib {

class CLinearLayoutUI : public CContainerUI {
public:
    void* GetInterface(const wchar_t* interfaceName) override;
    unsigned GetControlFlags() const override { return IsEnabled() && separator ? FlagSetCursor : 0u; }

    int GetSepSize() const { return separator; }
    void SetSepSize(int pixels) { separator = pixels; } // negative: at the leading edge
    bool IsSepImmMode() const { return immediate; }
    void SetSepImmMode(bool on);

    void SetPos(RECT rectangle, bool invalidate = true) override;
    void DoEvent(TUIEvent& event) override;
    void DoPostPaint(HDC context, const RECT& rectangle) override;

protected:
    explicit CLinearLayoutUI(Axis axis) : axis(axis) {}

private:
    // Sizes and edges by direction, whatever the axis.
    struct Extent {
        int along = 0;
        int across = 0;
    };
    struct Measure { // of the first pass
        int adjustable = 0;
        int fixedSum = 0;
        int neededAcross = 0;
        int count = 0;
    };
    struct Item; // a child's sizes, limits and margins by direction

    Extent extentOf(SIZE size) const;
    SIZE sizeOf(Extent extent) const;
    Axis otherAxis() const { return axis == Axis::Vertical ? Axis::Horizontal : Axis::Vertical; }
    RECT layoutArea() const;
    Extent available(const RECT& area) const;
    Extent estimate(const Item& item, int across, int along, int& acrossLimit) const;
    Measure measure(Extent room) const;
    int placeItems(const RECT& area, Extent room, const Measure& measured);
    int acrossStart(const RECT& area, const Item& item, int size) const;

    RECT separatorBand(const RECT& place) const;
    bool onSeparatorPress(const TUIEvent& event);
    void onSeparatorRelease();
    void onSeparatorDrag(const TUIEvent& event);

    Axis axis;
    int separator = 0;
    bool immediate = false;
    bool dragging = false;
    POINT lastMouse = {};
    RECT newPosition = {};
};

class CVerticalLayoutUI : public CLinearLayoutUI {
public:
    CVerticalLayoutUI() : CLinearLayoutUI(Axis::Vertical) {}
    const wchar_t* GetClass() const override { return L"VerticalLayout"; }
    const AttributeTable& GetAttributeTable() const override;
};

class CHorizontalLayoutUI : public CLinearLayoutUI {
public:
    CHorizontalLayoutUI() : CLinearLayoutUI(Axis::Horizontal) {}
    const wchar_t* GetClass() const override { return L"HorizontalLayout"; }
    const AttributeTable& GetAttributeTable() const override;
};

} // namespace UILib
