#pragma once

#include "uilib/controls/button_state.h"
#include "uilib/controls/label.h"

// A label that answers to mouse and keyboard and looks different in each state. Pictures
// come one a state or as a strip of four; a missing one falls back to that of a plainer
// state. With a fade, the pictures of rest and hover blend into each other on a timer.

namespace UILib {

class CButtonUI : public CLabelUI {
public:
    CButtonUI() { textStyle = DT_CENTER | DT_VCENTER | DT_SINGLELINE; }

    const wchar_t* GetClass() const override { return L"Button"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;
    unsigned GetControlFlags() const override;
    bool Activate() override; // sends "click"

    void SetNormalImage(const wchar_t* imageString);
    CUIString GetNormalImage() const { return normalImage.drawString; }
    void SetFadeDelta(int step) { fadeDelta = static_cast<uint8_t>(step); } // a tick of 30 ms; 0: no fade
    void SetHotBkColor(Color color) { setAndInvalidate(hotBkColor, color); }
    void SetPushedBkColor(Color color) { setAndInvalidate(pushedBkColor, color); }
    void SetDisabledBkColor(Color color) { setAndInvalidate(disabledBkColor, color); }
    void SetHotTextColor(Color color) { setAndInvalidate(hotTextColor, color); }
    void SetPushedTextColor(Color color) { setAndInvalidate(pushedTextColor, color); }
    void SetFocusedTextColor(Color color) { setAndInvalidate(focusedTextColor, color); }
    void SetHotBorderColor(Color color) { setAndInvalidate(hotBorderColor, color); }
    void SetShowCursor(bool on) { showCursor = on; } // the hand
    void SetShowRed(bool on) { setAndInvalidate(showRed, on); }
    void SetDrawMultiLine(bool on) { setAndInvalidate(drawMultiLine, on); }
    void SetEnabled(bool on) override;

    void DoEvent(TUIEvent& event) override;
    void PaintStateColor(HDC context) override;
    void PaintStatusImage(HDC context) override;
    void PaintText(HDC context) override;
    void PaintBorder(HDC context) override;

protected:
    virtual uint32_t stateTextColor() const; // with the default colours in place

    unsigned buttonState = 0;

private:
    static const Attribute Rows[];

    bool onMouse(const TUIEvent& event);
    void onPress(const TUIEvent& event);
    void onRelease(const TUIEvent& event);
    void startFade();
    void fade();
    bool drawFaded(HDC context, DrawRecord& image, int alpha);
    bool drawStrip(HDC context, int frame);
    bool paintStateImage(HDC context);
    void paintHot(HDC context);
    void paintNormal(HDC context);
    bool paintTextLines(HDC context, uint32_t color);

    bool showCursor = false;
    bool showRed = false;
    bool drawMultiLine = false;
    Color hotBkColor;
    Color pushedBkColor;
    Color disabledBkColor;
    Color hotTextColor;
    Color pushedTextColor;
    Color focusedTextColor;
    Color hotBorderColor;
    uint8_t fadeAlpha = 255; // weight of the normal image
    uint8_t fadeDelta = 0;
    DrawRecord normalImage;
    DrawRecord hotImage;
    DrawRecord hotForeImage;
    DrawRecord pushedImage;
    DrawRecord focusedImage;
    DrawRecord disabledImage;
    DrawRecord standardImage;
    DrawRecord redImage;
};

} // namespace UILib
