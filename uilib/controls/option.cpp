#include "uilib/controls/option.h"

#include "uilib/controls/image_rows.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

#include <cwchar>

namespace UILib {

namespace {

constexpr int LineMargin = 8; // of the text, above and below together

void setSelected(CControlUI& control, const wchar_t* value) {
    static_cast<COptionUI&>(control).Selected(readFlag(value));
}

} // namespace

const Attribute COptionUI::Rows[] = {
    attribute<&COptionUI::SetGroup>(L"group", "name of its group"),
    {L"selected", AttributeKind::Flag, setSelected, "is selected"},
    imageRow<&COptionUI::selectedImage>(L"selectedimage", "picture while selected"),
    imageRow<&COptionUI::selectedHotImage>(L"selectedhotimage", "picture while selected, under the mouse"),
    imageRow<&COptionUI::selectedDisabledImage>(L"selecteddisabledimage",
                                                "picture while selected and disabled"),
    imageRow<&COptionUI::foreImage>(L"foreimage", "picture on top of the state's"),
    enlargeRow<&COptionUI::selectedImage>(L"selectedEnlargeImage"),
    enlargeRow<&COptionUI::selectedHotImage>(L"selectedhotEnlargeImage"),
    enlargeRow<&COptionUI::selectedDisabledImage>(L"selectedDisabledEnlargeImage"),
    enlargeRow<&COptionUI::foreImage>(L"foreEnlargeImage"),
    attribute<&COptionUI::SetSelectedBkColor>(L"selectedbkcolor", "background while selected"),
    attribute<&COptionUI::SetSelectedTextColor>(L"selectedtextcolor", "text colour while selected"),
};

COptionUI::~COptionUI() {
    if (manager && !groupName.IsEmpty())
        manager->RemoveOptionGroup(groupName, this);
}

void* COptionUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"Option") == 0 ? this : CButtonUI::GetInterface(interfaceName);
}

const AttributeTable& COptionUI::GetAttributeTable() const {
    static const AttributeTable table = {&CButtonUI::GetAttributeTable(), Rows};
    return table;
}

void COptionUI::SetManager(CPaintManagerUI* newManager, CControlUI* newParent, bool initialise) {
    if (manager && manager != newManager && !groupName.IsEmpty())
        manager->RemoveOptionGroup(groupName, this);
    CButtonUI::SetManager(newManager, newParent, initialise);
    if (!initialise || !manager || groupName.IsEmpty())
        return;
    manager->AddOptionGroup(groupName, this);
    if (selected) // a tree joins in its order: of several in the markup the last one stays
        deselectOthers(false);
}

bool COptionUI::Activate() {
    if (!CButtonUI::Activate())
        return false;
    Selected(groupName.IsEmpty() ? !selected : true);
    return true;
}

void COptionUI::SetEnabled(bool on) {
    CButtonUI::SetEnabled(on);
    if (!IsEnabled() && selected)
        buttonState = StateSelected;
}

void COptionUI::SetGroup(const wchar_t* name) {
    if (groupName == name)
        return;
    if (!groupName.IsEmpty() && manager)
        manager->RemoveOptionGroup(groupName, this);
    groupName = name;
    if (!groupName.IsEmpty() && manager)
        manager->AddOptionGroup(groupName, this);
}

void COptionUI::Selected(bool on, bool notify) {
    if (selected == on)
        return;
    selected = on;
    buttonState = on ? buttonState | StateSelected : buttonState & ~StateSelected;
    Invalidate();
    if (!manager)
        return;
    if (!groupName.IsEmpty()) {
        if (!on)
            return;
        deselectOthers(notify);
    }
    if (notify)
        manager->SendNotify(this, L"selectchanged");
}

void COptionUI::deselectOthers(bool notify) {
    CUIPtrArray* group = manager->GetOptionGroup(groupName);
    for (int i = 0; group && i < group->GetSize(); ++i) {
        auto* other = static_cast<COptionUI*>(static_cast<CControlUI*>(group->GetAt(i)));
        if (other != this)
            other->Selected(false, notify);
    }
}

SIZE COptionUI::EstimateSize(SIZE available) {
    if (GetFixedHeight() > 0 || !manager)
        return CButtonUI::EstimateSize(available);
    return {GetFixedWidth(), fontHeight() + LineMargin};
}

bool COptionUI::paintSelected(HDC context) {
    if ((buttonState & StateHot) && DrawImage(context, selectedHotImage))
        return true;
    if ((buttonState & StateDisabled) && DrawImage(context, selectedDisabledImage))
        return true;
    if (DrawImage(context, selectedImage))
        return true;
    if (!selectedBkColor)
        return false;
    CRenderEngine::DrawColor(context, paintRect, GetAdjustColor(selectedBkColor));
    return true;
}

void COptionUI::PaintStatusImage(HDC context) {
    refreshState(*this, buttonState);
    if (!selected || !paintSelected(context)) {
        const unsigned state = buttonState;
        buttonState &= ~StatePushed; // an option shows its selection, not the press
        CButtonUI::PaintStatusImage(context);
        buttonState = state;
    }
    DrawImage(context, foreImage);
}

uint32_t COptionUI::stateTextColor() const {
    if (!IsEnabled())
        return disabledTextColor;
    return selected && selectedTextColor ? selectedTextColor : textColor;
}

void* CCheckBoxUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"CheckBox") == 0 ? this : COptionUI::GetInterface(interfaceName);
}

} // namespace UILib
