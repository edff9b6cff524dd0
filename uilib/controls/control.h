#pragma once

#include "uilib/core/attribute_table.h"
#include "uilib/core/delegates.h"
#include "uilib/core/events.h"
#include "uilib/core/image.h"
#include "uilib/core/rects.h"

#include <map>

// The base of everything in a window's tree: a rectangle with background, border, text,
// tooltip and flags that takes attributes from markup, gets events and paints itself.
//
// Positions are client coordinates of the window; sizes are pixels. A control belongs to
// its parent container, which deletes it; it may own one cover, a control that lies over
// it. Without a manager it can be built, given attributes and laid out, but not painted.
// Window thread only.

namespace UILib {

class CPaintManagerUI;

// Position as shares of the parent's size.
struct TPercentInfo {
    double left = 0, top = 0, right = 0, bottom = 0;
};

// What OnPaint and OnPostPaint are told.
struct PaintArguments {
    CControlUI* control;
    HDC context;
    const RECT& rectangle;
};

// Called for each control of a walk; a result other than null ends it.
using FindControlFunction = CControlUI* (*)(CControlUI* control, void* data);

enum FindFlags : unsigned {
    FindVisible = 1,
    FindEnabled = 2,
    FindHitTest = 4,    // data is a POINT
    FindUpdateTest = 8, // only where a layout is pending; a control that answers is not entered
    FindTopFirst = 16,
    FindMeFirst = 0x80000000,
};

enum ControlFlags : unsigned { FlagTabStop = 1, FlagSetCursor = 2, FlagListItem = 4 };

class CControlUI {
public:
    CControlUI() = default;
    CControlUI(const CControlUI&) = delete;
    CControlUI& operator=(const CControlUI&) = delete;
    virtual ~CControlUI();
    virtual void Delete(); // the way to destroy a control

    CDelegateList<CControlUI> OnInit;
    CDelegateList<CControlUI> OnDestroy;
    CDelegateList<CControlUI> OnSize;
    CDelegateList<TUIEvent> OnEvent;
    CDelegateList<TUINotify> OnNotify;
    CDelegateList<PaintArguments> OnPaint;
    CDelegateList<PaintArguments> OnPostPaint;

    // -- What it is.

    virtual CUIString GetName() const { return name; }
    virtual void SetName(const CUIString& newName);
    virtual const wchar_t* GetClass() const { return L"Control"; } // the tag that makes it
    virtual void* GetInterface(const wchar_t* interfaceName);      // null for an unknown one
    virtual unsigned GetControlFlags() const { return 0; }
    virtual HWND GetNativeWindow() const { return nullptr; }
    virtual bool Activate() { return IsVisible() && IsEnabled(); }

    // -- Where it belongs.

    virtual CPaintManagerUI* GetManager() const { return manager; }
    virtual void SetManager(CPaintManagerUI* newManager, CControlUI* newParent, bool initialise);
    virtual CControlUI* GetParent() const { return parent; }
    virtual CControlUI* GetCover() const { return cover; }
    virtual void SetCover(CControlUI* newCover); // takes it over; deletes the old one
    void SetVirtualWnd(const CUIString& windowName);
    CUIString GetVirtualWnd() const; // its own or the nearest ancestor's

    // -- Text.

    virtual CUIString GetText() const { return text; } // "@key" stays as it is
    virtual void SetText(const wchar_t* newText);
    virtual CUIString GetToolTip() const { return toolTip; }
    virtual void SetToolTip(const wchar_t* newText); // "<n>" breaks the line
    virtual void SetToolTipWidth(int pixels) { toolTipWidth = pixels; }
    virtual int GetToolTipWidth() const { return toolTipWidth; }
    virtual wchar_t GetShortcut() const { return shortcut; }
    virtual void SetShortcut(wchar_t character) { shortcut = character; }
    virtual CUIString GetUserData() const { return userData; }
    virtual void SetUserData(const wchar_t* data) { userData = data; }
    virtual UINT_PTR GetTag() const { return tag; }
    virtual void SetTag(UINT_PTR value) { tag = value; }

    // -- Place and size. Setters ask the parent for a new layout.

    virtual const RECT& GetPos() const { return position; }
    virtual RECT GetRelativePos() const; // to the parent's top left; zeros without a parent
    virtual RECT GetClientPos() const { return position; }
    // A floating control takes the rectangle as relative to its parent.
    virtual void SetPos(RECT rectangle, bool invalidate = true);
    virtual void Move(int dx, int dy, bool invalidate = true);
    virtual int GetWidth() const { return width(position); }
    virtual int GetHeight() const { return height(position); }
    virtual int GetX() const { return position.left; }
    virtual int GetY() const { return position.top; }
    virtual RECT GetPadding() const { return padding; }
    virtual void SetPadding(const RECT& margins);
    virtual POINT GetFixedXY() const { return fixedXY; }
    virtual void SetFixedXY(POINT point);
    virtual TPercentInfo GetFloatPercent() const { return floatPercent; }
    virtual void SetFloatPercent(const TPercentInfo& percent);
    virtual int GetFixedWidth() const { return fixedSize.cx; }
    virtual void SetFixedWidth(int pixels); // 0: not fixed; negative values are refused
    virtual int GetFixedHeight() const { return fixedSize.cy; }
    virtual void SetFixedHeight(int pixels);
    virtual int GetMinWidth() const { return minimum.cx; }
    virtual void SetMinWidth(int pixels);
    virtual int GetMaxWidth() const { return std::max(maximum.cx, minimum.cx); }
    virtual void SetMaxWidth(int pixels);
    virtual int GetMinHeight() const { return minimum.cy; }
    virtual void SetMinHeight(int pixels);
    virtual int GetMaxHeight() const { return std::max(maximum.cy, minimum.cy); }
    virtual void SetMaxHeight(int pixels);
    virtual SIZE EstimateSize(SIZE available);
    virtual bool IsFloat() const { return floating; }
    virtual void SetFloat(bool on);

    // -- State.

    virtual bool IsVisible() const { return visible && internVisible; }
    virtual void SetVisible(bool on);
    virtual void SetVisibleKeepFocus(bool on);
    virtual void SetInternVisible(bool on); // by the parent's layout; asks for no update
    virtual bool IsEnabled() const { return enabled; }
    virtual void SetEnabled(bool on);
    virtual bool IsMouseEnabled() const { return mouseEnabled; }
    virtual void SetMouseEnabled(bool on) { mouseEnabled = on; }
    virtual bool IsKeyboardEnabled() const { return keyboardEnabled; }
    virtual void SetKeyboardEnabled(bool on) { keyboardEnabled = on; }
    virtual bool IsFocused() const { return focused; }
    bool ShowsFocus() const; // and the window shows its focus
    virtual void SetFocus(); // asks the manager; does not focus the window
    virtual bool IsContextMenuUsed() const { return menuUsed; }
    virtual void SetContextMenuUsed(bool on) { menuUsed = on; }

    // -- Colours and border.

    void SetBkColor(Color color);
    void SetBkColor2(Color color);
    void SetBkColor3(Color color);
    Color GetBkColor() const { return bkColors[0]; }
    void SetBkColorIndex(int index);
    void SetBkImage(const wchar_t* imageString);
    CUIString GetBkImage() const { return bkImage.drawString; }
    void SetBkEnlargeImage(const wchar_t* imageString) { bkImage.enlargeString = imageString; }
    void SetBorderColor(Color color);
    void SetFocusBorderColor(Color color);
    void SetBorderSize(const RECT& sizes);
    void SetBorderStyle(int penStyle);
    void SetBorderRound(SIZE round);
    void SetColorHSL(bool on) { colorHsl = on; }
    // The process-wide colour filter stands at "no change", so it passes every colour.
    uint32_t GetAdjustColor(uint32_t color) const { return color; }

    // -- Attributes.

    virtual const AttributeTable& GetAttributeTable() const;
    virtual void SetAttribute(const wchar_t* attributeName, const wchar_t* value);
    virtual CUIString GetAttribute(const wchar_t*) const { return {}; }
    virtual CUIString GetAttributeList() const { return {}; }
    virtual void ApplyAttributeList(const wchar_t* list); // name="value" name="value"
    void AddCustomAttribute(const wchar_t* attributeName, const wchar_t* value);
    const wchar_t* GetCustomAttribute(const wchar_t* attributeName) const; // null when absent
    void RemoveAllCustomAttribute() { customAttributes.clear(); }

    // -- Updates and events.

    void Invalidate();
    void NeedUpdate();
    void NeedParentUpdate();
    bool IsUpdateNeeded() const { return updateNeeded; }
    virtual CControlUI* FindControl(FindControlFunction function, void* data, unsigned flags);
    void Init();
    virtual void DoInit() {}
    virtual void Event(TUIEvent& event);
    virtual void DoEvent(TUIEvent& event);

    // -- Painting. Each gives false when the stop control was reached.

    virtual bool DoPaint(HDC context, const RECT& rectangle, CControlUI* stop);
    virtual bool Paint(HDC context, const RECT& rectangle, CControlUI* stop);
    virtual void PaintBkColor(HDC context);
    virtual void PaintBkImage(HDC context);
    virtual void PaintStatusImage(HDC) {}
    virtual void PaintStateColor(HDC) {}
    virtual void PaintText(HDC) {}
    virtual void PaintBorder(HDC context);
    virtual void DoPostPaint(HDC context, const RECT& rectangle);
    bool DrawImage(HDC context, DrawRecord& image);

protected:
    // Derived classes with a state border of their own draw it with these.
    void PaintBorder(HDC context, uint32_t color);
    // What a setter of something visible ends with, or of something that takes room.
    template <class Value>
    void setAndInvalidate(Value& field, const Value& value);
    template <class Value>
    void setAndLayout(Value& field, const Value& value);
    bool passesFilter(FindControlFunction function, void* data, unsigned flags);
    // The control through which a walk of the tree comes here.
    virtual CControlUI* walkParent() const { return parent; }
    void clearUpdateNeeded() { updateNeeded = false; }
    void storeFocused(bool on) { focused = on; }
    void storeVisible(bool on) { visible = on; }
    void storeFixedSize(SIZE size) { fixedSize = size; } // without a layout

    CPaintManagerUI* manager = nullptr;
    CControlUI* parent = nullptr;
    RECT position = {};
    RECT paintRect = {}; // position within the area being painted; valid during a paint
    CUIString text;
    DrawRecord secondImage;

private:
    void placeFloating(const RECT& relative);
    void placeCover();
    void invalidateWithin(RECT area);
    void hideFocus();
    void markAncestors();
    void paintLayers(HDC context);
    void paintBorderSides(HDC context, uint32_t color);

    CControlUI* cover = nullptr;
    CUIString virtualWindow;
    CUIString name;
    CUIString toolTip;
    CUIString userData;
    UINT_PTR tag = 0;
    wchar_t shortcut = 0;
    int toolTipWidth = 300;

    RECT padding = {};
    POINT fixedXY = {};
    SIZE fixedSize = {};
    SIZE minimum = {};
    SIZE maximum = {9999, 9999};
    TPercentInfo floatPercent;

    bool updateNeeded = true;
    bool updateBelow = false; // true wherever a descendant needs one, and for a while longer
    bool menuUsed = false;
    bool visible = true;
    bool internVisible = true;
    bool enabled = true;
    bool mouseEnabled = true;
    bool keyboardEnabled = false;
    bool focused = false;
    bool floating = false;
    bool insideSetPos = false;

    Color bkColors[3];
    DrawRecord bkImage;
    Color borderColor;
    Color focusBorderColor;
    RECT borderSize = {};
    SIZE borderRound = {};
    int borderStyle = PS_SOLID;
    bool colorHsl = false;
    std::map<CUIString, CUIString> customAttributes;
};

inline bool operator==(const SIZE& a, const SIZE& b) {
    return a.cx == b.cx && a.cy == b.cy;
}
inline bool operator==(const POINT& a, const POINT& b) {
    return a.x == b.x && a.y == b.y;
}
inline bool operator==(const RECT& a, const RECT& b) {
    return equal(a, b);
}

template <class Value>
void CControlUI::setAndInvalidate(Value& field, const Value& value) {
    if (field == value)
        return;
    field = value;
    Invalidate();
}

template <class Value>
void CControlUI::setAndLayout(Value& field, const Value& value) {
    if (field == value)
        return;
    field = value;
    NeedParentUpdate();
}

} // namespace UILib
