#pragma once

#include "uilib/core/attribute_table.h"
#include "uilib/core/events.h"
#include "uilib/core/image.h"

// Between a list and its items: the look that they share, and what each asks of the other.
// An item knows its list as IListOwnerUI, a list finds IListItemUI by GetInterface.

namespace UILib {

// The look of all items of one list. Colours of 0 paint nothing.
struct TListInfoUI {
    static constexpr int ColumnLimit = 64;

    int columnCount = 0;
    RECT columns[ColumnLimit] = {};
    int itemHeight = 0; // 0: as high as the text
    int font = 0;
    unsigned textStyle = DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;
    RECT textPadding = {};
    Color textColor = 0xFF000000;
    Color bkColor;
    DrawRecord bkImage;
    bool altBk = false; // only every second item has the background
    Color selectedTextColor = 0xFF000000;
    Color selectedBkColor = 0xFFC1E3FF;
    DrawRecord selectedImage;
    Color hotTextColor = 0xFF000000;
    Color hotBkColor = 0xFFE9F5FF;
    DrawRecord hotImage;
    Color disabledTextColor = 0xFFCCCCCC;
    Color disabledBkColor = 0xFFFFFFFF;
    DrawRecord disabledImage;
    int hLineSize = 0; // between two items
    Color hLineColor = 0xFF3C3C3C;
    int vLineSize = 0; // between two columns
    Color vLineColor = 0xFF3C3C3C;
    bool showHtml = false;
};

class IListOwnerUI {
public:
    virtual TListInfoUI* GetListInfo() = 0;
    virtual int GetCurSel() const = 0; // -1: nothing
    // False when that item cannot be selected; nothing is selected then.
    virtual bool SelectItem(int index, bool takeFocus = false, bool notify = true) = 0;
    virtual void DoEvent(TUIEvent& event) = 0;
    virtual bool ExpandItem(int index, bool expand) = 0;
    virtual int GetExpandedItem() const = 0; // -1: none

protected:
    ~IListOwnerUI() = default;
};

class IListItemUI {
public:
    virtual int GetIndex() const = 0; // in the list
    virtual void SetIndex(int newIndex) = 0;
    virtual int GetDrawIndex() const = 0; // among the visible items
    virtual void SetDrawIndex(int newIndex) = 0;
    virtual IListOwnerUI* GetOwner() = 0; // not owned; null outside a list
    virtual void SetOwner(IListOwnerUI* newOwner) = 0;
    virtual bool IsSelected() const = 0;
    virtual bool Select(bool on = true, bool notify = true) = 0;
    virtual bool IsExpanded() const = 0;
    virtual bool Expand(bool on = true) = 0;
    virtual void DrawItemText(HDC context, const RECT& rectangle, uint32_t color) = 0;
    virtual void DrawItemText(HDC context, const RECT& rectangle) = 0; // in the state's colour

protected:
    ~IListItemUI() = default;
};

} // namespace UILib
