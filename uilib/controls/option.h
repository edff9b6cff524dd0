#pragma once

#include "uilib/controls/button.h"

// A button that stays selected. Alone it toggles at each click; of a group of options,
// which all bear the same group name in one window, exactly the last one clicked is
// selected.

namespace UILib {

class COptionUI : public CButtonUI {
public:
    ~COptionUI() override;

    const wchar_t* GetClass() const override { return L"Option"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;
    void SetManager(CPaintManagerUI* newManager, CControlUI* newParent, bool initialise) override;
    bool Activate() override;
    void SetEnabled(bool on) override;

    bool IsSelected() const { return selected; }
    CUIString GetGroup() const { return groupName; }
    void SetGroup(const wchar_t* name); // null: none
    void SetSelectedBkColor(Color color) { setAndInvalidate(selectedBkColor, color); }
    void SetSelectedTextColor(Color color) { setAndInvalidate(selectedTextColor, color); }

    SIZE EstimateSize(SIZE available) override;
    void PaintStatusImage(HDC context) override;
    // Sends "selectchanged"; in a group only the one that became selected sends it.
    virtual void Selected(bool on, bool notify = true);

protected:
    uint32_t stateTextColor() const override;

private:
    static const Attribute Rows[];

    void deselectOthers(bool notify);
    bool paintSelected(HDC context);

    bool selected = false;
    CUIString groupName;
    Color selectedBkColor;
    Color selectedTextColor;
    DrawRecord selectedImage;
    DrawRecord selectedHotImage;
    DrawRecord selectedDisabledImage;
    DrawRecord foreImage;
};

class CCheckBoxUI : public COptionUI {
public:
    const wchar_t* GetClass() const override { return L"CheckBox"; }
    void* GetInterface(const wchar_t* interfaceName) override;
};

} // namespace UILib
