#include "kit/attribute_origins.h"

#include "uilib/controls/control.h"
#include "uilib/core/attribute_list.h"

namespace kit {

using UILib::CControlUI;

const std::vector<AttributeOrigins::Origin>& AttributeOrigins::of(const CControlUI& control) {
    return origins[&control];
}

void AttributeOrigins::OnControlBuilt(CControlUI& control, UILib::CMarkupNode& element,
                                      const wchar_t* defaults) {
    std::vector<Origin>& list = origins[&control];
    const UILib::AttributeTable& table = control.GetAttributeTable();
    std::wstring_view rest(defaults ? defaults : L""), name, value;
    while (UILib::takeAttribute(rest, name, value)) {
        const std::wstring own(name);
        if (!element.FindAttribute(own.c_str())) // the element has the last word
            list.push_back({own, std::wstring(value), "Default", table.find(own.c_str()) != nullptr});
    }
    for (int i = 0; i < element.GetAttributeCount(); ++i) {
        const wchar_t* own = element.GetAttributeName(i);
        list.push_back({own, element.GetAttributeValue(i), "element", table.find(own) != nullptr});
    }
}

} // namespace kit
