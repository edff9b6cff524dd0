#include "uilib/core/control_classes.h"

#include "uilib/controls/combo.h"
#include "uilib/controls/edit.h"
#include "uilib/controls/gif_anim.h"
#include "uilib/controls/linear_layout.h"
#include "uilib/controls/list_element.h"
#include "uilib/controls/option.h"
#include "uilib/controls/progress.h"
#include "uilib/controls/scroll_bar.h"
#include "uilib/controls/tab_layout.h"

#include "uilib/core/ui_string.h"

#include <cwchar>

namespace UILib {

namespace {

template <class Control>
CControlUI* make() {
    return new Control;
}

enum class TagCase { Any, Exact };

struct ControlClass {
    const wchar_t* tag;
    CControlUI* (*create)();
    TagCase tagCase = TagCase::Any;

    bool isNamed(const wchar_t* name) const {
        return tagCase == TagCase::Exact ? std::wcscmp(tag, name) == 0 : equalNoCase(tag, name);
    }
};

constexpr ControlClass Classes[] = {
    {L"Control", make<CControlUI>},
    {L"Container", make<CContainerUI>},
    {L"VerticalLayout", make<CVerticalLayoutUI>},
    {L"VBox", make<CVerticalLayoutUI>},
    {L"HorizontalLayout", make<CHorizontalLayoutUI>},
    {L"HBox", make<CHorizontalLayoutUI>},
    {L"TabLayout", make<CTabLayoutUI>},
    {L"ScrollBar", make<CScrollBarUI>},
    {L"Label", make<CLabelUI>},
    {L"Button", make<CButtonUI>},
    {L"Option", make<COptionUI>},
    {L"CheckBox", make<CCheckBoxUI>},
    {L"Progress", make<CProgressUI>},
    {L"GifAnim", make<CGifAnimUI>, TagCase::Exact},
    {L"Edit", make<CEditUI>},
    {L"Combo", make<CComboUI>},
    {L"ComboBox", make<CComboUI>},
    {L"ListLabelElement", make<CListLabelElementUI>},
};

} // namespace

CControlUI* createControlOfTag(const wchar_t* tag) {
    for (const ControlClass& known : Classes)
        if (known.isNamed(tag))
            return known.create();
    return nullptr;
}

} // namespace UILib
