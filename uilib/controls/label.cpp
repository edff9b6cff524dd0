#include "uilib/controls/label.h"

#include "uilib/controls/text_style.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_clip.h"
#include "uilib/core/render_engine.h"

#include <cwchar>

namespace UILib {

namespace {

constexpr int LineMargin = 8;       // around a single line, in its estimated height
constexpr int UnlimitedSize = 9999; // room for measuring
constexpr float LeastFuzzy = 0.0001f;

CLabelUI& label(CControlUI& control) {
    return static_cast<CLabelUI&>(control);
}

void setAlign(CControlUI& control, const wchar_t* value) {
    label(control).SetTextStyle(withAlign(label(control).GetTextStyle(), value));
}

void setVAlign(CControlUI& control, const wchar_t* value) {
    label(control).SetTextStyle(withVAlign(label(control).GetTextStyle(), value));
}

void setLuminousFuzzy(CControlUI& control, const wchar_t* value) {
    label(control).SetLuminousFuzzy(std::wcstof(value, nullptr));
}

void setShadowOffset(CControlUI& control, const wchar_t* value) {
    const SIZE pair = readSize(value);
    label(control).SetShadowOffset(pair.cx, pair.cy);
}

constexpr Attribute Rows[] = {
    {L"align", AttributeKind::Text, setAlign, "left, center or right"},
    {L"valign", AttributeKind::Text, setVAlign, "top, vcenter or bottom"},
    attribute<&CLabelUI::SetEndEllipsis>(L"endellipsis", "cuts a long text with three dots"),
    attribute<&CLabelUI::SetFont>(L"font", "number of the font"),
    attribute<&CLabelUI::SetTextColor>(L"textcolor", "text colour"),
    attribute<&CLabelUI::SetDisabledTextColor>(L"disabledtextcolor", "text colour while disabled"),
    attribute<&CLabelUI::SetTextPadding>(L"textpadding", "margins of the text"),
    attribute<&CLabelUI::SetMultiLine>(L"multiline", "breaks the text into lines"),
    attribute<&CLabelUI::SetShowHtml>(L"showhtml", "the text has tags"),
    attribute<&CLabelUI::SetEnabledEffect>(L"enabledeffect", "draws the text with effects"),
    attribute<&CLabelUI::SetEnabledLuminous>(L"enabledluminous", "effect: a glow"),
    {L"luminousfuzzy", AttributeKind::Number, setLuminousFuzzy, "effect: how far the glow blurs"},
    attribute<&CLabelUI::SetGradientAngle>(L"gradientangle", "effect: x where the gradient begins"),
    attribute<&CLabelUI::SetMinWidthEx>(L"minwidthex", "lower bound of the estimated width"),
    attribute<&CLabelUI::SetMaxWidthEx>(L"maxwidthex", "upper bound of the estimated width"),
    attribute<&CLabelUI::SetEnabledStroke>(L"enabledstroke", "effect: an outline"),
    attribute<&CLabelUI::SetEnabledShadow>(L"enabledshadow", "effect: a shadow"),
    attribute<&CLabelUI::SetGradientLength>(L"gradientlength", "effect: length of the gradient"),
    {L"shadowoffset", AttributeKind::Size, setShadowOffset, "effect: distance of the shadow, angle"},
    attribute<&CLabelUI::SetTextColor1>(L"textcolor1", "effect: second colour of the text"),
    attribute<&CLabelUI::SetTextShadowColorA>(L"textshadowcolora", "effect: colour of the shadow"),
    attribute<&CLabelUI::SetTextShadowColorB>(L"textshadowcolorb", "effect: second colour of the shadow"),
    attribute<&CLabelUI::SetStrokeColor>(L"strokecolor", "effect: colour of the outline"),
};

} // namespace

void* CLabelUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"Label") == 0 ? this : CControlUI::GetInterface(interfaceName);
}

const AttributeTable& CLabelUI::GetAttributeTable() const {
    static const AttributeTable table = {&CControlUI::GetAttributeTable(), Rows};
    return table;
}

void CLabelUI::needNewEstimate() {
    needEstimate = true;
    NeedParentUpdate();
}

void CLabelUI::SetText(const wchar_t* newText) {
    if (text == newText)
        return;
    needEstimate = true;
    CControlUI::SetText(newText);
}

void CLabelUI::SetFont(int id) {
    if (font == id)
        return;
    font = id;
    needNewEstimate();
}

void CLabelUI::SetTextStyle(unsigned drawTextFlags) {
    setAndInvalidate(textStyle, drawTextFlags);
}

void CLabelUI::SetTextPadding(const RECT& margins) {
    if (textPadding == margins)
        return;
    textPadding = margins;
    needNewEstimate();
}

void CLabelUI::SetEndEllipsis(bool on) {
    SetTextStyle(on ? textStyle | DT_END_ELLIPSIS : textStyle & ~DT_END_ELLIPSIS);
}

void CLabelUI::SetMultiLine(bool on) {
    const unsigned style = on ? (textStyle & ~DT_SINGLELINE) | DT_WORDBREAK : textStyle | DT_SINGLELINE;
    if (textStyle == style)
        return;
    SetTextStyle(style);
    needNewEstimate();
}

void CLabelUI::SetShowHtml(bool on) {
    if (showHtml == on)
        return;
    showHtml = on;
    needNewEstimate();
}

void CLabelUI::SetMinWidthEx(int pixels) {
    if (minWidthEx == pixels)
        return;
    minWidthEx = pixels;
    needNewEstimate();
}

void CLabelUI::SetMaxWidthEx(int pixels) {
    if (maxWidthEx == pixels)
        return;
    maxWidthEx = pixels;
    needNewEstimate();
}

void CLabelUI::SetFixedWidth(int pixels) {
    needEstimate = true;
    CControlUI::SetFixedWidth(pixels);
}

void CLabelUI::SetFixedHeight(int pixels) {
    needEstimate = true;
    CControlUI::SetFixedHeight(pixels);
}

void CLabelUI::SetLuminousFuzzy(float divider) {
    if (divider >= LeastFuzzy)
        setAndInvalidate(effects.luminousFuzzy, divider);
}

void CLabelUI::SetShadowOffset(int offset, int degrees) {
    if (degrees < -180 || degrees > 180)
        return;
    int x = position.top, y = position.left;
    if (degrees >= 0)
        x -= offset;
    else if (degrees > -180)
        x += offset;
    if (degrees > -90 && degrees <= 90)
        y -= offset;
    else if (degrees != -90)
        y += offset;
    setAndInvalidate(effects.shadowOffsetX, static_cast<float>(x));
    setAndInvalidate(effects.shadowOffsetY, static_cast<float>(y));
}

void CLabelUI::DoEvent(TUIEvent& event) {
    if (event.kind == EventSetFocus || event.kind == EventKillFocus)
        storeFocused(event.kind == EventSetFocus);
    else
        CControlUI::DoEvent(event);
}

int CLabelUI::fontHeight() const {
    return manager ? manager->GetFontInfo(font).metrics.tmHeight : 0;
}

void CLabelUI::drawOrMeasure(HDC context, RECT& rectangle, const wchar_t* shown, uint32_t color,
                             unsigned style) const {
    int links = 0;
    if (showHtml)
        CRenderEngine::DrawHtmlText(context, manager, rectangle, shown, color, nullptr, nullptr, links, font,
                                    style);
    else
        CRenderEngine::DrawText(context, manager, rectangle, shown, color, font, style);
}

SIZE CLabelUI::EstimateSize(SIZE available) {
    const SIZE fixed = {GetFixedWidth(), GetFixedHeight()};
    if ((fixed.cx > 0 && fixed.cy > 0) || !manager)
        return fixed;
    const bool singleLine = textStyle & DT_SINGLELINE;
    if (needEstimate || (!singleLine && !(available == availableLast))) {
        needEstimate = false;
        availableLast = available;
        fixedLast = singleLine ? estimateLine() : estimateLines(available);
    }
    fixedLast.cx = std::max<LONG>(fixedLast.cx, minWidthEx);
    if (maxWidthEx >= 1)
        fixedLast.cx = std::min<LONG>(fixedLast.cx, maxWidthEx);
    return fixedLast;
}

SIZE CLabelUI::estimateLine() const {
    SIZE size = {GetFixedWidth(), GetFixedHeight()};
    if (size.cy == 0)
        size.cy = fontHeight() + textPadding.top + textPadding.bottom + LineMargin;
    if (size.cx == 0) {
        RECT measured = {0, 0, UnlimitedSize, size.cy};
        drawOrMeasure(manager->GetPaintDC(), measured, text, 0,
                      (textStyle | DT_CALCRECT) & ~(DT_CENTER | DT_RIGHT));
        size.cx = width(measured) + textPadding.left + textPadding.right;
    }
    return size;
}

SIZE CLabelUI::estimateLines(SIZE available) const {
    SIZE size = {GetFixedWidth(), GetFixedHeight()};
    if (size.cx == 0)
        size.cx = available.cx;
    RECT measured = {textPadding.left, 0, std::max(available.cx - textPadding.right, textPadding.left),
                     UnlimitedSize};
    drawOrMeasure(manager->GetPaintDC(), measured, text, 0,
                  (textStyle | DT_CALCRECT) & ~(DT_CENTER | DT_RIGHT));
    size.cy = height(measured) + textPadding.top + textPadding.bottom;
    return size;
}

void CLabelUI::takeDefaultColors() {
    if (!manager)
        return;
    if (!textColor)
        textColor = manager->GetDefaultFontColor();
    if (!disabledTextColor)
        disabledTextColor = manager->GetDefaultDisabledColor();
}

void CLabelUI::PaintText(HDC context) {
    takeDefaultColors();
    if (text.IsEmpty() || !manager)
        return;
    RECT rectangle = textRectangle();
    const uint32_t color = GetAdjustColor(IsEnabled() ? textColor : disabledTextColor);
    if (!enabledEffect) {
        drawOrMeasure(context, rectangle, text, color, textStyle);
        return;
    }
    CUIString shown = text;
    CPaintManagerUI::ResolveLanguageKey(shown);
    CRenderClip clip;
    CRenderClip::GenerateClip(context, paintRect, clip);
    drawTextWithEffects(context, rectangle, shown.view(), manager->GetFont(font), color, textStyle, effects);
}

} // namespace UILib
