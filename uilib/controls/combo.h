#pragma once

#include "uilib/controls/button_state.h"
#include "uilib/controls/container.h"
#include "uilib/controls/list_item.h"

// A drop-down list. The control shows the selected item; a press opens a popup window with
// a paint manager of its own, which borrows the items for as long as it is open. Items are
// parked in empty rectangles while it is closed. The combo owns its items and is their
// list owner; adding and removing closes the popup first.

namespace UILib {

class CComboWnd;

class CComboUI : public CContainerUI, public IListOwnerUI {
public:
    CComboUI();
    ~CComboUI() override;

    const wchar_t* GetClass() const override { return L"Combo"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;
    unsigned GetControlFlags() const override;
    CUIString GetText() const override; // of the selected item
    bool Activate() override;           // opens the popup; sends "dropdown"
    bool IsOpen() const { return comboWindow != nullptr; }

    // -- Items.

    bool Add(CControlUI* control) override;
    bool AddAt(CControlUI* control, int index) override;
    bool Remove(CControlUI* control, Destroy destroy = Destroy::Yes) override;
    void RemoveAll() override;
    bool SetItemIndex(CControlUI* control, int index) override;
    bool SetMultiItemIndex(CControlUI* first, int count, int index) override;

    // -- List owner. "itemselect" comes with the new and the earlier index.

    TListInfoUI* GetListInfo() override { return &listInfo; }
    int GetCurSel() const override { return curSel; }
    bool SelectItem(int index, bool takeFocus = false, bool notify = true) override;
    bool ExpandItem(int, bool) override { return false; }
    int GetExpandedItem() const override { return -1; }

    // -- Properties.

    void SetSelectCloseFlag(bool on) { selectCloseFlag = on; } // selecting closes the popup
    void SetTextPadding(const RECT& margins) { setAndInvalidate(textPadding, margins); }
    void SetShowText(bool on) { setAndInvalidate(showText, on); }
    void SetShowTextColor(Color color) { setAndInvalidate(showTextColor, color); }           // not 0: no text
    void SetSelectionTextColor(Color color) { setAndInvalidate(selectionTextColor, color); } // 0: the item's
    void SetHotBkColor(Color color) { setAndInvalidate(hotBkColor, color); }
    void SetPushedBkColor(Color color) { setAndInvalidate(pushedBkColor, color); }
    void SetDropBoxAttributeList(const CUIString& list) { dropBoxAttributes = list; }
    const CUIString& GetDropBoxAttributeList() const { return dropBoxAttributes; }
    void SetDropBoxSize(SIZE size) { dropBoxSize = size; } // width 0: the control's; greatest height
    SIZE GetDropBoxSize() const { return dropBoxSize; }
    void SetItemFont(int id);
    void SetEnabled(bool on) override;
    void SetVisible(bool on) override;
    void SetInternVisible(bool on) override;

    // -- Layout, events and painting: those of a control without children.

    void SetPos(RECT rectangle, bool invalidate = true) override;
    void Move(int dx, int dy, bool invalidate = true) override;
    SIZE EstimateSize(SIZE available) override;
    CControlUI* FindControl(FindControlFunction function, void* data, unsigned flags) override;
    void DoEvent(TUIEvent& event) override;
    bool Paint(HDC context, const RECT& rectangle, CControlUI* stop) override;
    void PaintStatusImage(HDC context) override;
    void PaintText(HDC context) override;

private:
    friend class CComboWnd;
    static const Attribute Rows[];

    void closePopup(); // gives the items back at once
    void closeWhenHidden();
    IListItemUI* listItem(int index) const;
    void renumber();
    void followSelection(const CControlUI* selected);
    bool dropSelection(bool notify);
    bool onKey(wchar_t key);
    bool selectByKey(int target);
    bool onMouse(const TUIEvent& event);
    bool paintState(HDC context);
    void paintForeignItem(HDC context, CControlUI& item, const RECT& place);

    CComboWnd* comboWindow = nullptr; // the open popup; deletes itself, and clears this
    int curSel = -1;
    bool showText = true;
    bool selectCloseFlag = true;
    Color showTextColor;
    RECT textPadding = {};
    CUIString dropBoxAttributes;
    SIZE dropBoxSize = {0, 150};
    unsigned buttonState = 0;
    Color hotBkColor;
    Color pushedBkColor;
    Color selectionTextColor;
    DrawRecord normalImage;
    DrawRecord hotImage;
    DrawRecord pushedImage;
    DrawRecord focusedImage;
    DrawRecord disabledImage;
    TListInfoUI listInfo;
};

} // namespace UILib
