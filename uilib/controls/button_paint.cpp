#include "uilib/controls/button.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

#include <string>
#include <vector>

namespace UILib {

namespace {

enum StripFrame { FrameNormal, FrameHot, FramePushed, FrameDisabled };

constexpr int LinePitch = 18; // of a text in several lines
constexpr int LineHeight = 14;
constexpr wchar_t LineBreak[] = L"<n>";

std::vector<std::wstring> splitLines(std::wstring_view text) {
    std::vector<std::wstring> lines;
    for (size_t at; (at = text.find(LineBreak)) != text.npos;
         text.remove_prefix(at + std::size(LineBreak) - 1))
        lines.emplace_back(text.substr(0, at));
    lines.emplace_back(text);
    return lines;
}

} // namespace

void CButtonUI::PaintStateColor(HDC context) {
    refreshState(*this, buttonState);
    const Color color = buttonState & StateDisabled ? disabledBkColor
                        : buttonState & StatePushed ? pushedBkColor
                        : buttonState & StateHot    ? hotBkColor
                                                    : Color();
    if (color)
        CRenderEngine::DrawColor(context, paintRect, GetAdjustColor(color));
}

bool CButtonUI::drawStrip(HDC context, int frame) {
    return CRenderEngine::DrawStateImage(context, manager, position, paintRect, standardImage, frame);
}

// With that share of the fade that the image string asks for.
bool CButtonUI::drawFaded(HDC context, DrawRecord& image, int alpha) {
    if (!DrawImage(nullptr, image)) // loads, which reads the string
        return false;
    const uint8_t own = image.fade;
    image.fade = static_cast<uint8_t>(own * alpha / 255);
    DrawImage(context, image);
    image.fade = own;
    return true;
}

void CButtonUI::PaintStatusImage(HDC context) {
    refreshState(*this, buttonState);
    if (paintStateImage(context))
        return;
    DrawImage(context, secondImage);
    if (showRed)
        DrawImage(context, redImage);
}

// True when nothing goes on top.
bool CButtonUI::paintStateImage(HDC context) {
    if (buttonState & StateDisabled) {
        if (!DrawImage(context, disabledImage) && !drawStrip(context, FrameDisabled))
            paintNormal(context);
    } else if (buttonState & StatePushed) {
        if (!DrawImage(context, pushedImage) && !drawStrip(context, FramePushed))
            DrawImage(context, normalImage);
    } else if (buttonState & StateHot) {
        paintHot(context);
        return DrawImage(context, hotForeImage);
    } else if (!(buttonState & StateFocused) || !DrawImage(context, focusedImage)) {
        paintNormal(context);
    }
    return false;
}

void CButtonUI::paintHot(HDC context) {
    if (fadeDelta) {
        if (fadeAlpha)
            drawFaded(context, normalImage, fadeAlpha);
        drawFaded(context, hotImage, 255 - fadeAlpha);
    } else if (!DrawImage(context, hotImage) && !drawStrip(context, FrameHot)) {
        DrawImage(context, normalImage);
    }
}

void CButtonUI::paintNormal(HDC context) {
    if (fadeDelta) {
        if (fadeAlpha < 255)
            drawFaded(context, hotImage, 255 - fadeAlpha);
        drawFaded(context, normalImage, fadeAlpha);
    } else if (!DrawImage(context, normalImage)) {
        drawStrip(context, FrameNormal);
    }
}

uint32_t CButtonUI::stateTextColor() const {
    if ((buttonState & StatePushed) && pushedTextColor)
        return pushedTextColor;
    if ((buttonState & StateHot) && hotTextColor)
        return hotTextColor;
    if ((buttonState & StateFocused) && focusedTextColor)
        return focusedTextColor;
    return IsEnabled() ? textColor : disabledTextColor;
}

void CButtonUI::PaintText(HDC context) {
    refreshState(*this, buttonState);
    takeDefaultColors();
    if (text.IsEmpty() || !manager)
        return;
    const uint32_t color = GetAdjustColor(stateTextColor());
    if (IsShowHtml() && drawMultiLine && paintTextLines(context, color))
        return;
    RECT rectangle = textRectangle();
    drawOrMeasure(context, rectangle, text, color, textStyle);
}

// False when the text is a single line.
bool CButtonUI::paintTextLines(HDC context, uint32_t color) {
    CUIString shown = text;
    CPaintManagerUI::ResolveLanguageKey(shown);
    const std::vector<std::wstring> lines = splitLines(shown.view());
    if (lines.size() < 2)
        return false;
    const RECT area = textRectangle();
    const int block = static_cast<int>(lines.size()) * LinePitch - (LinePitch - LineHeight);
    RECT line = {area.left, area.top + (height(area) - block) / 2, area.right, 0};
    for (const std::wstring& words : lines) {
        line.bottom = line.top + LineHeight;
        RECT strip = line;
        if (meets(strip, paintRect))
            drawOrMeasure(context, strip, words.c_str(), color, textStyle);
        line.top += LinePitch;
    }
    return true;
}

void CButtonUI::PaintBorder(HDC context) {
    CLabelUI::PaintBorder(context);
    if (buttonState & StateHot)
        CLabelUI::PaintBorder(context, hotBorderColor);
}

} // namespace UILib
