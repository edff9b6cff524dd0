#include "uilib/controls/control.h"
#include "uilib/core/attribute_list.h"
#include "uilib/core/number_text.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

#include <cwchar>

namespace UILib {

namespace {

void setPlace(CControlUI& control, const wchar_t* value) {
    const RECT place = readRectangle(value);
    control.SetFixedXY({place.left, place.top});
    control.SetFixedWidth(width(place));
    control.SetFixedHeight(height(place));
}

// "true", or the shares of the parent's size: left,top,right,bottom.
void setFloat(CControlUI& control, const wchar_t* value) {
    if (!std::wcschr(value, L',')) {
        control.SetFloat(readFlag(value));
        return;
    }
    double shares[4] = {};
    for (double& share : shares) {
        wchar_t* end;
        const double number = std::wcstod(value, &end);
        if (number > -1000 && number < 1000) // refuses what has no place in an int, and NaN
            share = number;
        value = *end ? end + 1 : end;
    }
    control.SetFloatPercent({shares[0], shares[1], shares[2], shares[3]});
    control.SetFloat(true);
}

void setBorderSize(CControlUI& control, const wchar_t* value) {
    if (std::wcschr(value, L',')) {
        control.SetBorderSize(readRectangle(value));
        return;
    }
    const LONG size = readNumber(value);
    control.SetBorderSize({size, size, size, size});
}

void setShortcut(CControlUI& control, const wchar_t* value) {
    control.SetShortcut(value[0]);
}

void setTag(CControlUI& control, const wchar_t* value) {
    std::wstring_view text(value);
    control.SetTag(static_cast<UINT_PTR>(readInteger(text)));
}

constexpr Attribute Rows[] = {
    {L"pos", AttributeKind::Rectangle, setPlace, "fixed place and size of a floating control"},
    attribute<&CControlUI::SetPadding>(L"padding", "outer margins"),
    attribute<&CControlUI::SetBkColor>(L"bkcolor", "background colour"),
    attribute<&CControlUI::SetBkColor>(L"bkcolor1", "background colour"),
    attribute<&CControlUI::SetBkColor2>(L"bkcolor2", "lower colour of a gradient"),
    attribute<&CControlUI::SetBkColor3>(L"bkcolor3", "lowest colour of a gradient of three"),
    attribute<&CControlUI::SetBkColorIndex>(L"bkcolorIndex", "background from the installation's colours"),
    attribute<&CControlUI::SetBorderColor>(L"bordercolor", "border colour"),
    attribute<&CControlUI::SetFocusBorderColor>(L"focusbordercolor", "border colour while focused"),
    attribute<&CControlUI::SetColorHSL>(L"colorhsl", "takes part in the colour filter"),
    {L"bordersize", AttributeKind::Rectangle, setBorderSize, "border width, one number or one a side"},
    attribute<&CControlUI::SetBorderStyle>(L"borderstyle", "pen style of the border"),
    attribute<&CControlUI::SetBorderRound>(L"borderround", "ellipse of the rounded corners"),
    imageAttribute<&CControlUI::SetBkImage>(L"bkimage", "background image"),
    imageAttribute<&CControlUI::SetBkEnlargeImage>(L"bkEnlargeimage",
                                                   "background image of the enlarged display"),
    attribute<&CControlUI::SetFixedWidth>(L"width", "fixed width"),
    attribute<&CControlUI::SetFixedHeight>(L"height", "fixed height"),
    attribute<&CControlUI::SetMinWidth>(L"minwidth", "smallest width"),
    attribute<&CControlUI::SetMinHeight>(L"minheight", "smallest height"),
    attribute<&CControlUI::SetMaxWidth>(L"maxwidth", "largest width"),
    attribute<&CControlUI::SetMaxHeight>(L"maxheight", "largest height"),
    attribute<&CControlUI::SetName>(L"name", "name by which the window finds the control"),
    attribute<&CControlUI::SetText>(L"text", "text, or @key of the language table"),
    attribute<&CControlUI::SetToolTip>(L"tooltip", "tooltip, or @key; <n> breaks the line"),
    attribute<&CControlUI::SetUserData>(L"userdata", "free text"),
    {L"tag", AttributeKind::Number, setTag, "free number"},
    attribute<&CControlUI::SetEnabled>(L"enabled", "takes input"),
    attribute<&CControlUI::SetMouseEnabled>(L"mouse", "is found under the mouse"),
    attribute<&CControlUI::SetKeyboardEnabled>(L"keyboard", "takes keys"),
    attribute<&CControlUI::SetVisible>(L"visible", "is shown"),
    {L"float", AttributeKind::Text, setFloat, "is placed by itself: true, or shares of the parent's size"},
    {L"shortcut", AttributeKind::Text, setShortcut, "key that activates it together with Alt"},
    attribute<&CControlUI::SetContextMenuUsed>(L"menu", "answers the context menu"),
    attribute<&CControlUI::SetVirtualWnd>(L"virtualwnd", "virtual window of its notifications"),
};
constexpr AttributeTable Table = {nullptr, Rows};

} // namespace

const AttributeTable& CControlUI::GetAttributeTable() const {
    return Table;
}

void CControlUI::SetAttribute(const wchar_t* attributeName, const wchar_t* value) {
    if (const Attribute* row = GetAttributeTable().find(attributeName))
        row->set(*this, value);
    else
        AddCustomAttribute(attributeName, value);
}

void CControlUI::ApplyAttributeList(const wchar_t* list) {
    std::wstring_view rest(list), attributeName, value;
    while (takeAttribute(rest, attributeName, value))
        SetAttribute(CUIString(attributeName), CUIString(value));
}

void CControlUI::AddCustomAttribute(const wchar_t* attributeName, const wchar_t* value) {
    if (attributeName && *attributeName && value && *value)
        customAttributes.emplace(attributeName, value);
}

const wchar_t* CControlUI::GetCustomAttribute(const wchar_t* attributeName) const {
    const auto hit = customAttributes.find(attributeName);
    return hit == customAttributes.end() ? nullptr : hit->second.GetData();
}

void CControlUI::SetBkColor(Color color) {
    setAndInvalidate(bkColors[0], color);
}

void CControlUI::SetBkColor2(Color color) {
    setAndInvalidate(bkColors[1], color);
}

void CControlUI::SetBkColor3(Color color) {
    setAndInvalidate(bkColors[2], color);
}

void CControlUI::SetBkColorIndex(int index) {
    SetBkColor(CPaintManagerUI::GetCustomColor(index));
}

void CControlUI::SetBkImage(const wchar_t* imageString) {
    if (bkImage.drawString == imageString && bkImage.image)
        return;
    bkImage.Clear();
    bkImage.drawString = imageString;
    if (manager)
        CRenderEngine::DrawImage(nullptr, manager, position, {}, bkImage);
    if (floating && !fixedSize.cx && !fixedSize.cy && bkImage.image) {
        SetFixedWidth(bkImage.image->width);
        SetFixedHeight(bkImage.image->height);
    }
    Invalidate();
}

void CControlUI::SetBorderColor(Color color) {
    setAndInvalidate(borderColor, color);
}

void CControlUI::SetFocusBorderColor(Color color) {
    setAndInvalidate(focusBorderColor, color);
}

void CControlUI::SetBorderSize(const RECT& sizes) {
    setAndInvalidate(borderSize, sizes);
}

void CControlUI::SetBorderStyle(int penStyle) {
    setAndInvalidate(borderStyle, penStyle);
}

void CControlUI::SetBorderRound(SIZE round) {
    setAndInvalidate(borderRound, round);
}

} // namespace UILib
