#include "uilib/controls/combo.h"
#include "uilib/controls/image_rows.h"
#include "uilib/controls/text_style.h"

namespace UILib {

namespace {

CComboUI& combo(CControlUI& control) {
    return static_cast<CComboUI&>(control);
}

// Fields of the look that the items share.

template <Color TListInfoUI::*Field>
void setItemColor(CControlUI& control, const wchar_t* value) {
    combo(control).GetListInfo()->*Field = readColorValue(value);
    control.Invalidate();
}

template <DrawRecord TListInfoUI::*Field>
void setItemImage(CControlUI& control, const wchar_t* value) {
    setImage(control, combo(control).GetListInfo()->*Field, value);
}

template <int TListInfoUI::*Field>
void setItemNumber(CControlUI& control, const wchar_t* value) {
    combo(control).GetListInfo()->*Field = readNumber(value);
    control.Invalidate();
}

template <bool TListInfoUI::*Field>
void setItemFlag(CControlUI& control, const wchar_t* value) {
    combo(control).GetListInfo()->*Field = readFlag(value);
    control.Invalidate();
}

template <Color TListInfoUI::*Field>
constexpr Attribute itemColor(const wchar_t* name, const char* description) {
    return {name, AttributeKind::Color, setItemColor<Field>, description};
}

template <DrawRecord TListInfoUI::*Field>
constexpr Attribute itemImage(const wchar_t* name, const char* description) {
    return {name, AttributeKind::Image, setItemImage<Field>, description};
}

template <int TListInfoUI::*Field>
constexpr Attribute itemNumber(const wchar_t* name, const char* description) {
    return {name, AttributeKind::Number, setItemNumber<Field>, description};
}

template <bool TListInfoUI::*Field>
constexpr Attribute itemFlag(const wchar_t* name, const char* description) {
    return {name, AttributeKind::Flag, setItemFlag<Field>, description};
}

void setItemAlign(CControlUI& control, const wchar_t* value) {
    TListInfoUI& info = *combo(control).GetListInfo();
    info.textStyle = withAlign(info.textStyle, value);
}

void setItemTextPadding(CControlUI& control, const wchar_t* value) {
    combo(control).GetListInfo()->textPadding = readRectangle(value);
    control.Invalidate();
}

} // namespace

const Attribute CComboUI::Rows[] = {
    attribute<&CComboUI::SetTextPadding>(L"textpadding", "margins of the selection's text"),
    attribute<&CComboUI::SetShowText>(L"showtext", "shows the selection"),
    attribute<&CComboUI::SetShowTextColor>(L"showtextcolor", "other than 0 hides the selection's text"),
    attribute<&CComboUI::SetSelectionTextColor>(L"textcolor", "text colour of the selection"),
    attribute<&CComboUI::SetHotBkColor>(L"hotbkcolor", "background under the mouse"),
    attribute<&CComboUI::SetPushedBkColor>(L"pushedbkcolor", "background while open"),
    imageRow<&CComboUI::normalImage>(L"normalimage", "picture at rest"),
    imageRow<&CComboUI::hotImage>(L"hotimage", "picture under the mouse"),
    imageRow<&CComboUI::pushedImage>(L"pushedimage", "picture while open"),
    imageRow<&CComboUI::focusedImage>(L"focusedimage", "picture with the focus"),
    imageRow<&CComboUI::disabledImage>(L"disabledimage", "picture while disabled"),
    enlargeRow<&CComboUI::normalImage>(L"normalEnlargeImage"),
    enlargeRow<&CComboUI::hotImage>(L"hotEnlargeImage"),
    enlargeRow<&CComboUI::pushedImage>(L"pushedEnlargeImage"),
    enlargeRow<&CComboUI::focusedImage>(L"focusedEnlargeImage"),
    enlargeRow<&CComboUI::disabledImage>(L"disabledEnlargeImage"),
    attribute<&CComboUI::SetDropBoxAttributeList>(L"dropbox", "attributes of the popup's list"),
    attribute<&CComboUI::SetDropBoxSize>(L"dropboxsize", "popup: width, or 0; greatest height"),
    itemNumber<&TListInfoUI::itemHeight>(L"itemheight", "items: height"),
    attribute<&CComboUI::SetItemFont>(L"itemfont", "items: number of the font"),
    {L"itemalign", AttributeKind::Text, setItemAlign, "items: left, center or right"},
    {L"itemtextpadding", AttributeKind::Rectangle, setItemTextPadding, "items: margins of the text"},
    itemColor<&TListInfoUI::textColor>(L"itemtextcolor", "items: text colour"),
    itemColor<&TListInfoUI::bkColor>(L"itembkcolor", "items: background"),
    itemImage<&TListInfoUI::bkImage>(L"itembkimage", "items: background picture"),
    itemFlag<&TListInfoUI::altBk>(L"itemaltbk", "items: only every second has the background"),
    itemColor<&TListInfoUI::selectedTextColor>(L"itemselectedtextcolor", "selected item: text colour"),
    itemColor<&TListInfoUI::selectedBkColor>(L"itemselectedbkcolor", "selected item: background"),
    itemImage<&TListInfoUI::selectedImage>(L"itemselectedimage", "selected item: picture"),
    itemColor<&TListInfoUI::hotTextColor>(L"itemhottextcolor", "item under the mouse: text colour"),
    itemColor<&TListInfoUI::hotBkColor>(L"itemhotbkcolor", "item under the mouse: background"),
    itemImage<&TListInfoUI::hotImage>(L"itemhotimage", "item under the mouse: picture"),
    itemColor<&TListInfoUI::disabledTextColor>(L"itemdisabledtextcolor", "disabled item: text colour"),
    itemColor<&TListInfoUI::disabledBkColor>(L"itemdisabledbkcolor", "disabled item: background"),
    itemImage<&TListInfoUI::disabledImage>(L"itemdisabledimage", "disabled item: picture"),
    itemNumber<&TListInfoUI::vLineSize>(L"itemvlinesize", "lines between columns: width"),
    itemColor<&TListInfoUI::vLineColor>(L"itemvlinecolor", "lines between columns: colour"),
    itemNumber<&TListInfoUI::hLineSize>(L"itemhlinesize", "lines between items: width"),
    itemColor<&TListInfoUI::hLineColor>(L"itemhlinecolor", "lines between items: colour"),
    itemFlag<&TListInfoUI::showHtml>(L"itemshowhtml", "items: the text has tags"),
};

const AttributeTable& CComboUI::GetAttributeTable() const {
    static const AttributeTable table = {&CContainerUI::GetAttributeTable(), Rows};
    return table;
}

} // namespace UILib
