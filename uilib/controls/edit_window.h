#pragma once

#include "uilib/core/window.h"
#include "utility/handles.h"

#include <commctrl.h>
#include <cstdint>

// The native window of a focused edit control: the system's edit class under a name of our
// own. It tells its control what is typed, and closes and deletes itself when the focus
// goes. Window thread only.

namespace UILib {

class CEditUI;

class CEditWnd final : public CWindowWnd {
public:
    // Opens over the control's text and takes the focus. Without a window, which is
    // logged, the object is to be deleted by the caller.
    bool Init(CEditUI* control);
    void detach(); // the control goes: closes at once

private:
    const wchar_t* GetWindowClassName() const override { return L"EditWnd"; }
    const wchar_t* GetSuperClassName() const override { return WC_EDITW; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFinalMessage(HWND handle) override;

    void setUp();
    LRESULT onKillFocus(WPARAM wParam, LPARAM lParam);
    bool keepsFocus() const;
    void onReflectedCommand(WORD code);
    void readText();
    LRESULT onColor(HDC context);
    LRESULT onPrint(HDC context, LPARAM flags);
    void makeBrush(uint32_t color);
    bool isLayered() const;

    CEditUI* owner = nullptr; // null once detached
    utility::Brush bkBrush;
    bool initialized = false;
    bool caretShown = false;
};

} // namespace UILib
