#include "uilib/controls/tab_layout.h"

#include "uilib/core/paint_manager.h"

#include <cwchar>

namespace UILib {

namespace {

void setSelected(CControlUI& control, const wchar_t* value) {
    static_cast<CTabLayoutUI&>(control).SelectItem(readNumber(value));
    control.AddCustomAttribute(L"selectedid", value);
}

constexpr Attribute Rows[] = {
    {L"selectedid", AttributeKind::Number, setSelected, "page that is shown at first"},
};

} // namespace

void* CTabLayoutUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"TabLayout") == 0 ? this : CContainerUI::GetInterface(interfaceName);
}

const AttributeTable& CTabLayoutUI::GetAttributeTable() const {
    static const AttributeTable table = {&CContainerUI::GetAttributeTable(), Rows};
    return table;
}

bool CTabLayoutUI::Add(CControlUI* control) {
    if (!CContainerUI::Add(control))
        return false;
    if (current == -1 && control->IsVisible())
        current = GetItemIndex(control);
    else
        control->SetVisible(false);
    return true;
}

bool CTabLayoutUI::AddAt(CControlUI* control, int index) {
    if (!CContainerUI::AddAt(control, index))
        return false;
    if (current == -1 && control->IsVisible())
        current = GetItemIndex(control);
    else if (current != -1 && index <= current)
        ++current;
    else
        control->SetVisible(false);
    return true;
}

bool CTabLayoutUI::Remove(CControlUI* control, Destroy destroy) {
    const int index = control ? GetItemIndex(control) : -1;
    if (index < 0 || !CContainerUI::Remove(control, destroy))
        return false;
    if (index < current) {
        --current;
    } else if (index == current) {
        current = GetCount() > 0 ? 0 : -1;
        if (CControlUI* first = GetItemAt(0))
            first->SetVisible(true);
        NeedParentUpdate();
    }
    return true;
}

void CTabLayoutUI::RemoveAll() {
    current = -1;
    CContainerUI::RemoveAll();
    NeedParentUpdate();
}

bool CTabLayoutUI::SelectItem(int index, Notification notification) {
    if (index < 0 || index >= GetCount())
        return false;
    if (index == current)
        return true;
    const int old = current;
    current = index;
    for (int i = 0; i < GetCount(); ++i) {
        CControlUI* item = GetItemAt(i);
        item->SetVisible(i == index);
        if (i == index)
            item->SetFocus();
    }
    NeedParentUpdate();
    if (manager) {
        manager->SetNextTabControl(Tab::Forward);
        if (notification == Notification::Send)
            manager->SendNotify(this, L"tabselect", static_cast<WPARAM>(index), old);
    }
    return true;
}

bool CTabLayoutUI::SelectItem(CControlUI* page, Notification notification) {
    return SelectItem(GetItemIndex(page), notification);
}

void CTabLayoutUI::SetPos(RECT rectangle, bool invalidate) {
    CControlUI::SetPos(rectangle, invalidate);
    for (int i = 0; i < GetCount(); ++i) {
        CControlUI* item = GetItemAt(i);
        if (!item->IsVisible())
            continue;
        if (item->IsFloat()) {
            SetFloatPos(i);
            continue;
        }
        if (i != current)
            continue;
        const RECT area = shrunk(shrunk(position, GetInset()), item->GetPadding());
        SIZE size = item->EstimateSize({width(area), height(area)});
        if (size.cx == 0)
            size.cx = std::max(width(area), 0);
        if (size.cy == 0)
            size.cy = std::max(height(area), 0);
        const int w = limited(size.cx, item->GetMinWidth(), item->GetMaxWidth());
        const int h = limited(size.cy, item->GetMinHeight(), item->GetMaxHeight());
        item->SetPos({area.left, area.top, area.left + w, area.top + h}, false);
    }
}

} // namespace UILib
