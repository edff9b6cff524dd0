#pragma once

#include "uilib/controls/button_state.h"
#include "uilib/controls/list_item.h"

// Items of a list. They have no look of their own: colours, font and pictures are the
// list's. Selecting an item and selecting by the list lead to the same state.

namespace UILib {

class CListElementUI : public CControlUI, public IListItemUI {
public:
    const wchar_t* GetClass() const override { return L"ListElement"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;
    unsigned GetControlFlags() const override { return FlagListItem; }
    bool Activate() override; // sends "itemactivate"

    int GetIndex() const override { return index; }
    void SetIndex(int newIndex) override { index = newIndex; }
    int GetDrawIndex() const override { return drawIndex; }
    void SetDrawIndex(int newIndex) override { drawIndex = newIndex; }
    IListOwnerUI* GetOwner() override { return owner; }
    void SetOwner(IListOwnerUI* newOwner) override { owner = newOwner; }
    bool IsSelected() const override { return selected; }
    bool Select(bool on = true, bool notify = true) override;
    bool IsExpanded() const override { return false; }
    bool Expand(bool) override { return false; }
    void SetManager(CPaintManagerUI* newManager, CControlUI* newParent, bool initialise) override;
    void SetVisible(bool on) override;
    void SetEnabled(bool on) override;

    void DoEvent(TUIEvent& event) override;
    using IListItemUI::DrawItemText;

protected:
    void tellWindow(const wchar_t* notification); // the one that the list is in
    void drawBackground(HDC context);
    bool drawStateImage(HDC context, TListInfoUI& info);
    Color stateBackground(const TListInfoUI& info) const;
    bool hasAlternateLook(const TListInfoUI& info) const { return !info.altBk || drawIndex % 2 == 1; }

    int index = -1;
    int drawIndex = 0;
    bool selected = false;
    unsigned buttonState = 0;
    IListOwnerUI* owner = nullptr;
};

// An item that is one text.
class CListLabelElementUI : public CListElementUI {
public:
    const wchar_t* GetClass() const override { return L"ListLabelElement"; }
    void* GetInterface(const wchar_t* interfaceName) override;

    void SetText(const wchar_t* newText) override;
    void SetFixedWidth(int pixels) override;
    void SetFixedHeight(int pixels) override;
    SIZE EstimateSize(SIZE available) override;
    void DoEvent(TUIEvent& event) override;
    bool DoPaint(HDC context, const RECT& rectangle, CControlUI* stop) override;
    void DrawItemText(HDC context, const RECT& rectangle, uint32_t color) override;
    void DrawItemText(HDC context, const RECT& rectangle) override;

private:
    // What the last estimate was made for.
    struct Basis {
        SIZE available = {};
        int itemHeight = 0;
        int font = 0;
        unsigned textStyle = 0;
        RECT textPadding = {};
        bool showHtml = false;

        bool operator==(const Basis& other) const = default;
    };

    SIZE measure(SIZE available, const TListInfoUI& info) const;
    void drawOrMeasure(HDC context, RECT& rectangle, const TListInfoUI& info, uint32_t color,
                       unsigned style) const;

    bool needEstimate = true;
    Basis last;
    SIZE lastSize = {};
};

} // namespace UILib
