#pragma once

#include "uilib/controls/button_state.h"
#include "uilib/controls/label.h"

// A text field of one line. The control only paints; while it has the focus, a window of
// the system's edit class lies over its text area and takes the keyboard. That window goes
// with the focus, and the control paints the text again.

namespace UILib {

class CEditWnd;

class CEditUI : public CLabelUI {
public:
    CEditUI();
    ~CEditUI() override;

    const wchar_t* GetClass() const override { return L"Edit"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;
    unsigned GetControlFlags() const override;
    HWND GetNativeWindow() const override; // null while there is none

    // -- Properties. Those that the native window knows too change there at once.

    void SetText(const wchar_t* newText) override;
    void SetFont(int id) override;
    void SetReadOnly(bool on);
    bool IsReadOnly() const { return readOnly; }
    void SetNumberOnly(bool on); // counts from the next focus on
    void SetPasswordMode(bool on) { setAndInvalidate(passwordMode, on); }
    bool IsPasswordMode() const { return passwordMode; }
    wchar_t GetPasswordChar() const { return passwordChar; }
    void SetAutoSelectAll(bool on) { autoSelectAll = on; } // on focus, in place of the caret at the end
    bool IsAutoSelectAll() const { return autoSelectAll; }
    void SetMaxChar(int characters);
    unsigned GetMaxChar() const { return maxChar; }
    void SetNativeBkColor(Color color) { nativeBkColor = color; } // all bits set: the system's own
    Color GetNativeBkColor() const { return nativeBkColor; }
    void SetCaretColor(Color color) { caretColor = color; } // of a layered window
    Color GetCaretColor() const { return caretColor; }
    void SetHotBorderColor(Color color) { setAndInvalidate(hotBorderColor, color); }
    unsigned GetWindowStyle() const { return windowStyle; } // added to the native window's
    void SetEnabled(bool on) override;
    void SetVisible(bool on) override;
    void SetInternVisible(bool on) override;

    // -- Layout.

    void SetPos(RECT rectangle, bool invalidate = true) override;
    void Move(int dx, int dy, bool invalidate = true) override;
    SIZE EstimateSize(SIZE available) override;
    // Where the native window lies; all zeros where it cannot be seen.
    RECT nativeRectangle() const;

    void DoEvent(TUIEvent& event) override;
    void PaintStatusImage(HDC context) override;
    void PaintText(HDC context) override;
    void PaintBorder(HDC context) override;

private:
    friend class CEditWnd;
    static const Attribute Rows[];

    bool onMouse(const TUIEvent& event);
    void onPress(const TUIEvent& event);
    void openWindow();
    void placeWindow();
    void closeWhenHidden();
    bool drawState(HDC context, DrawRecord& image, int frame);
    void onNativeText(const wchar_t* newText); // the user has typed

    CEditWnd* editWindow = nullptr; // deletes itself, and clears this
    unsigned maxChar = 255;
    bool readOnly = false;
    bool passwordMode = false;
    bool autoSelectAll = false;
    wchar_t passwordChar = L'*';
    unsigned buttonState = 0;
    Color nativeBkColor = 0xFFFFFFFF;
    Color hotBorderColor;
    unsigned windowStyle = 0;
    DrawRecord normalImage;
    DrawRecord hotImage;
    DrawRecord focusedImage;
    DrawRecord disabledImage;
    DrawRecord standardImage;
    Color caretColor = 0xFF000000;
};

} // namespace UILib
