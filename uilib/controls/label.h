#pragma once

#include "uilib/controls/control.h"
#include "uilib/controls/text_effects.h"

// Shows one text: plain, with tags, or with effects. The base of every control with a
// text. Its estimate is as large as the text; it is kept until text, font or padding
// change, and for several lines also until another size is available.

namespace UILib {

class CLabelUI : public CControlUI {
public:
    const wchar_t* GetClass() const override { return L"Label"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;

    // -- Text. Setters that change the size ask for a new estimate.

    void SetText(const wchar_t* newText) override;
    virtual void SetFont(int id); // of the manager's tables; -1: the default font
    int GetFont() const { return font; }
    virtual void SetTextStyle(unsigned drawTextFlags);
    unsigned GetTextStyle() const { return textStyle; }
    void SetTextColor(Color color) { setAndInvalidate(textColor, color); } // 0: the window's default
    Color GetTextColor() const { return textColor; }
    void SetDisabledTextColor(Color color) { setAndInvalidate(disabledTextColor, color); }
    Color GetDisabledTextColor() const { return disabledTextColor; }
    void SetTextPadding(const RECT& margins);
    const RECT& GetTextPadding() const { return textPadding; }
    void SetEndEllipsis(bool on);
    void SetMultiLine(bool on);
    void SetShowHtml(bool on);
    bool IsShowHtml() const { return showHtml; }

    // -- Size. Bounds of the estimated width; a maximum below 1 is none.

    void SetMinWidthEx(int pixels);
    void SetMaxWidthEx(int pixels);
    void SetFixedWidth(int pixels) override;
    void SetFixedHeight(int pixels) override;
    SIZE EstimateSize(SIZE available) override;

    // -- Effects. They count only while enabled.

    void SetEnabledEffect(bool on) { setAndInvalidate(enabledEffect, on); }
    void SetEnabledLuminous(bool on) { setAndInvalidate(effects.luminous, on); }
    void SetLuminousFuzzy(float divider); // below 0.0001 refused
    void SetGradientAngle(int x) { setAndInvalidate(effects.gradientAngle, x); }
    void SetGradientLength(int pixels) { setAndInvalidate(effects.gradientLength, pixels); }
    void SetEnabledStroke(bool on) { setAndInvalidate(effects.stroke, on); }
    void SetEnabledShadow(bool on) { setAndInvalidate(effects.shadow, on); }
    void SetShadowOffset(int offset, int degrees); // degrees outside -180 to 180 are refused
    void SetTextColor1(Color color) { setAndInvalidate(effects.secondColor, color.argb); }
    void SetTextShadowColorA(Color color) { setAndInvalidate(effects.shadowColorA, color.argb); }
    void SetTextShadowColorB(Color color) { setAndInvalidate(effects.shadowColorB, color.argb); }
    void SetStrokeColor(Color color) { setAndInvalidate(effects.strokeColor, color.argb); }
    const TextEffects& GetEffects() const { return effects; }

    void DoEvent(TUIEvent& event) override;
    void PaintText(HDC context) override;

protected:
    void takeDefaultColors();
    RECT textRectangle() const { return shrunk(position, textPadding); }
    int fontHeight() const; // 0 without a manager
    // In the label's font, style and kind of text; with DT_CALCRECT it measures.
    void drawOrMeasure(HDC context, RECT& rectangle, const wchar_t* shown, uint32_t color,
                       unsigned style) const;

    int font = -1;
    unsigned textStyle = DT_VCENTER | DT_SINGLELINE;
    Color textColor;
    Color disabledTextColor;

private:
    void needNewEstimate();
    SIZE estimateLine() const;
    SIZE estimateLines(SIZE available) const;

    RECT textPadding = {};
    bool showHtml = false;
    int minWidthEx = 0;
    int maxWidthEx = 0;
    bool needEstimate = true;
    SIZE availableLast = {}; // of the last estimate
    SIZE fixedLast = {};
    bool enabledEffect = false;
    TextEffects effects;
};

} // namespace UILib
