#pragma once

#include "uilib/controls/control.h"

#include <memory>
#include <vector>

// Controls that have children, and the two scroll bars of such a control. A plain
// container lays its children on top of each other; the layouts derive from it and differ
// only in how SetPos gives the children their rectangles.
//
// Children belong to the container and are kept in paint order. With delayed destruction,
// the default, what is removed lives on until the manager's queue has run, so that a
// control may be removed while its own event is on the stack.

namespace UILib {

class CScrollBarUI;

enum class Destroy { Yes, No };
enum class Notification { Send, Skip };

class IContainerUI {
public:
    virtual CControlUI* GetItemAt(int index) const = 0;            // null outside the list
    virtual int GetItemIndex(const CControlUI* control) const = 0; // -1 when it is not here
    virtual bool SetItemIndex(CControlUI* control, int index) = 0;
    virtual bool SetMultiItemIndex(CControlUI* first, int count, int index) = 0;
    virtual int GetCount() const = 0;
    virtual bool Add(CControlUI* control) = 0; // takes the control over when it succeeds
    virtual bool AddAt(CControlUI* control, int index) = 0;
    virtual bool Remove(CControlUI* control, Destroy destroy = Destroy::Yes) = 0;
    virtual bool RemoveAt(int index, Destroy destroy = Destroy::Yes) = 0;
    virtual void RemoveAll() = 0;

protected:
    ~IContainerUI() = default;
};

enum class Axis { Horizontal, Vertical };

class CContainerUI : public CControlUI, public IContainerUI {
public:
    enum ChildAlign { AlignLeft = 0, AlignCenter = 1, AlignRight = 2 };
    enum ChildVAlign { AlignTop = 0, AlignMiddle = 4, AlignBottom = 8 };

    CContainerUI();
    ~CContainerUI() override;

    const wchar_t* GetClass() const override { return L"Container"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;

    // -- Children.

    CControlUI* GetItemAt(int index) const override;
    int GetItemIndex(const CControlUI* control) const override;
    bool SetItemIndex(CControlUI* control, int index) override;
    bool SetMultiItemIndex(CControlUI* first, int count, int index) override;
    int GetCount() const override { return static_cast<int>(items.size()); }
    bool Add(CControlUI* control) override;
    bool AddAt(CControlUI* control, int index) override;
    bool Remove(CControlUI* control, Destroy destroy = Destroy::Yes) override;
    bool RemoveAt(int index, Destroy destroy = Destroy::Yes) override;
    void RemoveAll() override;
    virtual bool IsAutoDestroy() const { return autoDestroy; } // Remove deletes what it removes
    virtual void SetAutoDestroy(bool on) { autoDestroy = on; }
    virtual bool IsDelayedDestroy() const { return delayedDestroy; }
    virtual void SetDelayedDestroy(bool on) { delayedDestroy = on; }
    virtual bool IsMouseChildEnabled() const { return mouseChildEnabled; } // hit tests enter the children
    virtual void SetMouseChildEnabled(bool on) { mouseChildEnabled = on; }
    virtual int FindSelectable(int index, bool forward = true) const;

    // -- Layout.

    virtual RECT GetInset() const { return inset; }
    virtual void SetInset(const RECT& margins);
    virtual int GetChildPadding() const { return childPadding; }
    virtual void SetChildPadding(int pixels);
    virtual ChildAlign GetChildAlign() const { return childAlign; }
    virtual void SetChildAlign(ChildAlign align);
    virtual ChildVAlign GetChildVAlign() const { return childVAlign; }
    virtual void SetChildVAlign(ChildVAlign align);
    void SetPos(RECT rectangle, bool invalidate = true) override;
    void Move(int dx, int dy, bool invalidate = true) override;
    virtual void SetFloatPos(int index);
    void SetManager(CPaintManagerUI* newManager, CControlUI* newParent, bool initialise) override;
    void SetVisible(bool on) override;
    void SetInternVisible(bool on) override;
    void SetMouseEnabled(bool on) override;

    // -- Scrolling.

    virtual SIZE GetScrollPos() const; // 0 for a missing bar
    virtual SIZE GetScrollRange() const;
    virtual void SetScrollPos(SIZE target);
    virtual void LineUp();
    virtual void LineDown();
    virtual void PageUp();
    virtual void PageDown();
    virtual void HomeUp();
    virtual void EndDown();
    virtual void LineLeft();
    virtual void LineRight();
    virtual void PageLeft();
    virtual void PageRight();
    virtual void HomeLeft();
    virtual void EndRight();
    virtual void EnableScrollBar(bool vertical, bool horizontal);
    virtual CScrollBarUI* GetVerticalScrollBar() const { return verticalBar.get(); }
    virtual CScrollBarUI* GetHorizontalScrollBar() const { return horizontalBar.get(); }
    // Shows, hides and places the bars for what the children need of the area.
    virtual void ProcessScrollBar(RECT area, int neededWidth, int neededHeight);

    // -- Events and painting.

    CControlUI* FindControl(FindControlFunction function, void* data, unsigned flags) override;
    void DoEvent(TUIEvent& event) override;
    bool Paint(HDC context, const RECT& rectangle, CControlUI* stop) override;

protected:
    // A bar that is there and shown, or null.
    CScrollBarUI* visibleBar(Axis axis) const;
    RECT clientArea() const; // position less inset and visible bars
    std::vector<CControlUI*> items;

private:
    bool prepareItem(CControlUI* control);
    void destroyItem(CControlUI* control);
    void showChildren();
    void enableBar(std::unique_ptr<CScrollBarUI>& bar, Axis axis, bool on);
    void scrollBy(int dx, int dy);
    int lineStep() const;
    int columnStep() const;
    void layoutAgain(bool invalidate);
    void layoutForNewBar();
    void fitOnlyBar(CScrollBarUI& bar, const RECT& place, int range);
    bool settleHorizontal(RECT& area, int needed);
    void settleVertical(RECT area, int neededWidth, int neededHeight, bool horizontalChanged);
    void hideBar(CScrollBarUI& bar);
    bool fitRange(CScrollBarUI& bar, int range);
    bool onKey(WPARAM key);
    bool onWheel(const TUIEvent& event);
    bool paintItems(HDC context, const RECT& rectangle, CControlUI* stop);
    bool paintFloatingItems(HDC context, const RECT& rectangle, CControlUI* stop);
    bool paintBars(HDC context, const RECT& rectangle, CControlUI* stop);
    CControlUI* findInItems(FindControlFunction function, void* data, unsigned flags);

    RECT inset = {};
    int childPadding = 0;
    ChildAlign childAlign = AlignLeft;
    ChildVAlign childVAlign = AlignTop;
    bool autoDestroy = true;
    bool delayedDestroy = true;
    bool mouseChildEnabled = true;
    bool insideBarLayout = false; // a bar was just shown: it must not be hidden in this round
    int barLayouts = 0;           // nested rounds of fitting the bars
    std::unique_ptr<CScrollBarUI> verticalBar;
    std::unique_ptr<CScrollBarUI> horizontalBar;
};

} // namespace UILib
