#include "uilib/controls/combo.h"
#include "uilib/controls/image_rows.h"
#include "uilib/controls/text_style.h"

#include <type_traits>
#include <utility>

namespace UILib {

namespace {

CComboUI& combo(CControlUI& control) {
    return static_cast<CComboUI&>(control);
}

// Fields of the look that the items share, each read by its type.

template <auto Field>
using ItemField = std::remove_cvref_t<decltype(std::declval<TListInfoUI>().*Field)>;

template <auto Field>
void setItem(CControlUI& control, const wchar_t* value) {
    auto& field = combo(control).GetListInfo()->*Field;
    using Value = ItemField<Field>;
    if constexpr (std::is_same_v<Value, DrawRecord>) {
        setImage(control, field, value);
        return;
    } else if constexpr (std::is_same_v<Value, Color>) {
        field = readColorValue(value);
    } else if constexpr (std::is_same_v<Value, RECT>) {
        field = readRectangle(value);
    } else if constexpr (std::is_same_v<Value, bool>) {
        field = readFlag(value);
    } else {
        field = readNumber(value);
    }
    control.Invalidate();
}

template <auto Field>
constexpr Attribute item(const wchar_t* name, const char* description) {
    using Value = ItemField<Field>;
    constexpr AttributeKind Kind =
        std::is_same_v<Value, DrawRecord> ? AttributeKind::Image : detail::kindOf<Value>();
    return {name, Kind, setItem<Field>, description};
}

void setItemAlign(CControlUI& control, const wchar_t* value) {
    TListInfoUI& info = *combo(control).GetListInfo();
    info.textStyle = withAlign(info.textStyle, value);
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
    item<&TListInfoUI::itemHeight>(L"itemheight", "items: height"),
    attribute<&CComboUI::SetItemFont>(L"itemfont", "items: number of the font"),
    {L"itemalign", AttributeKind::Text, setItemAlign, "items: left, center or right"},
    item<&TListInfoUI::textPadding>(L"itemtextpadding", "items: margins of the text"),
    item<&TListInfoUI::textColor>(L"itemtextcolor", "items: text colour"),
    item<&TListInfoUI::bkColor>(L"itembkcolor", "items: background"),
    item<&TListInfoUI::bkImage>(L"itembkimage", "items: background picture"),
    item<&TListInfoUI::altBk>(L"itemaltbk", "items: only every second has the background"),
    item<&TListInfoUI::selectedTextColor>(L"itemselectedtextcolor", "selected item: text colour"),
    item<&TListInfoUI::selectedBkColor>(L"itemselectedbkcolor", "selected item: background"),
    item<&TListInfoUI::selectedImage>(L"itemselectedimage", "selected item: picture"),
    item<&TListInfoUI::hotTextColor>(L"itemhottextcolor", "item under the mouse: text colour"),
    item<&TListInfoUI::hotBkColor>(L"itemhotbkcolor", "item under the mouse: background"),
    item<&TListInfoUI::hotImage>(L"itemhotimage", "item under the mouse: picture"),
    item<&TListInfoUI::disabledTextColor>(L"itemdisabledtextcolor", "disabled item: text colour"),
    item<&TListInfoUI::disabledBkColor>(L"itemdisabledbkcolor", "disabled item: background"),
    item<&TListInfoUI::disabledImage>(L"itemdisabledimage", "disabled item: picture"),
    item<&TListInfoUI::vLineSize>(L"itemvlinesize", "lines between columns: width"),
    item<&TListInfoUI::vLineColor>(L"itemvlinecolor", "lines between columns: colour"),
    item<&TListInfoUI::hLineSize>(L"itemhlinesize", "lines between items: width"),
    item<&TListInfoUI::hLineColor>(L"itemhlinecolor", "lines between items: colour"),
    item<&TListInfoUI::showHtml>(L"itemshowhtml", "items: the text has tags"),
};

const AttributeTable& CComboUI::GetAttributeTable() const {
    static const AttributeTable table = {&CContainerUI::GetAttributeTable(), Rows};
    return table;
}

} // namespace UILib
