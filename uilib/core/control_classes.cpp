#include "uilib/core/control_classes.h"

#include "uilib/controls/linear_layout.h"
#include "uilib/controls/scroll_bar.h"
#include "uilib/controls/tab_layout.h"

#include "uilib/core/ui_string.h"

namespace UILib {

namespace {

template <class Control>
CControlUI* make() {
    return new Control;
}

struct ControlClass {
    const wchar_t* tag;
    CControlUI* (*create)();
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
};

} // namespace

CControlUI* createControlOfTag(const wchar_t* tag) {
    for (const ControlClass& known : Classes)
        if (equalNoCase(known.tag, tag))
            return known.create();
    return nullptr;
}

} // namespace UILib
