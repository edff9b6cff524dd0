#include "uilib/controls/progress.h"

#include "uilib/controls/image_rows.h"
#include "uilib/core/render_engine.h"

#include <climits>
#include <cwchar>

namespace UILib {

namespace {

constexpr int DefaultHeight = 12;

} // namespace

const Attribute CProgressUI::Rows[] = {
    imageRow<&CProgressUI::foreImage>(L"foreimage", "picture of the bar"),
    attribute<&CProgressUI::SetForeColor>(L"forecolor", "colour of the bar"),
    attribute<&CProgressUI::SetHorizontal>(L"hor", "grows to the right, else upward"),
    attribute<&CProgressUI::SetMinValue>(L"min", "lower end; before value"),
    attribute<&CProgressUI::SetMaxValue>(L"max", "upper end; before value"),
    attribute<&CProgressUI::SetValue>(L"value", "present value"),
};

CProgressUI::CProgressUI() {
    textStyle = DT_CENTER | DT_SINGLELINE;
    SetFixedHeight(DefaultHeight);
}

void* CProgressUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"Progress") == 0 ? this : CLabelUI::GetInterface(interfaceName);
}

const AttributeTable& CProgressUI::GetAttributeTable() const {
    static const AttributeTable table = {&CLabelUI::GetAttributeTable(), Rows};
    return table;
}

void CProgressUI::SetValue(int newValue) {
    setAndInvalidate(value, limited(newValue, minValue, maxValue));
}

RECT CProgressUI::bar() const {
    const int64_t range = int64_t(maxValue) - minValue;
    const int w = GetWidth(), h = GetHeight();
    if (horizontal)
        return {0, 0, static_cast<LONG>((int64_t(value) - minValue) * w / range), h};
    return {0, static_cast<LONG>((int64_t(maxValue) - value) * h / range), w, h};
}

void CProgressUI::PaintStatusImage(HDC context) {
    if (maxValue <= minValue) {
        minValue = std::min(minValue, INT_MAX - 1);
        maxValue = minValue + 1;
    }
    value = limited(value, minValue, maxValue);
    const RECT filled = bar();
    if (foreColor)
        CRenderEngine::DrawColor(context, intersect(paintRect, moved(filled, position.left, position.top)),
                                 GetAdjustColor(foreColor));
    if (!DrawImage(nullptr, foreImage)) // loads, which reads a "dest" of the string's own
        return;
    foreImage.destOffset = filled;
    DrawImage(context, foreImage);
}

} // namespace UILib
