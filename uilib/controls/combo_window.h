#pragma once

#include "uilib/controls/linear_layout.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/window.h"

// The popup of a combo: a borderless window with a paint manager of its own, whose root
// lists the combo's items. It closes when the focus leaves it, whatever the reason, and
// gives the items back before it goes. Window thread only.

namespace UILib {

class CComboUI;

// The list in the popup. The items stay the combo's.
class CComboBodyUI : public CVerticalLayoutUI {
public:
    explicit CComboBodyUI(CComboUI* combo) : owner(combo) {}

    bool DoPaint(HDC context, const RECT& rectangle, CControlUI* stop) override;

private:
    void paintLines(HDC context, const RECT& rectangle);

    CComboUI* owner;
};

class CComboWnd final : public CWindowWnd {
public:
    // Opens below the combo, or above it where the screen ends. Without a window, which is
    // logged, the object is to be deleted by the caller.
    bool Init(CComboUI* combo);
    void dismiss(); // gives the items back now and closes later; the combo may go

private:
    const wchar_t* GetWindowClassName() const override { return L"ComboWnd"; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFinalMessage(HWND handle) override;

    RECT dropRectangle() const; // screen coordinates
    int neededHeight(int width) const;
    void onCreate();
    void takeItemFont();
    CComboBodyUI* makeBody();
    void giveBack();
    void focusOwner();
    void onButtonDown(LPARAM lParam);
    void onButtonUp(LPARAM lParam);
    void onKey(WPARAM key);
    void onWheel(WPARAM wParam);
    void onKillFocus(HWND next);
    void showSelection();
    CControlUI* controlAt(LPARAM lParam) const;

    CPaintManagerUI paintManager;
    CComboUI* owner = nullptr;            // null once dismissed
    CComboBodyUI* layout = nullptr;       // the root; null once the items are back
    CControlUI* focusAtOpening = nullptr; // only compared
    int oldSel = -1;
    bool scrolling = false;
};

} // namespace UILib
