#include "uilib/controls/container.h"

#include "uilib/controls/scroll_bar.h"
#include "uilib/core/paint_manager.h"

#include <algorithm>
#include <cwchar>

namespace UILib {

namespace {

CContainerUI& container(CControlUI& control) {
    return static_cast<CContainerUI&>(control);
}

void setChildAlign(CControlUI& control, const wchar_t* value) {
    if (std::wcscmp(value, L"left") == 0)
        container(control).SetChildAlign(CContainerUI::AlignLeft);
    else if (std::wcscmp(value, L"center") == 0)
        container(control).SetChildAlign(CContainerUI::AlignCenter);
    else if (std::wcscmp(value, L"right") == 0)
        container(control).SetChildAlign(CContainerUI::AlignRight);
}

void setChildVAlign(CControlUI& control, const wchar_t* value) {
    if (std::wcscmp(value, L"top") == 0)
        container(control).SetChildVAlign(CContainerUI::AlignTop);
    else if (std::wcscmp(value, L"vcenter") == 0)
        container(control).SetChildVAlign(CContainerUI::AlignMiddle);
    else if (std::wcscmp(value, L"bottom") == 0)
        container(control).SetChildVAlign(CContainerUI::AlignBottom);
}

void setVerticalBar(CControlUI& control, const wchar_t* value) {
    container(control).EnableScrollBar(readFlag(value), container(control).GetHorizontalScrollBar());
}

void setHorizontalBar(CControlUI& control, const wchar_t* value) {
    container(control).EnableScrollBar(container(control).GetVerticalScrollBar(), readFlag(value));
}

void styleVerticalBar(CControlUI& control, const wchar_t* value) {
    setVerticalBar(control, L"true");
    container(control).GetVerticalScrollBar()->ApplyAttributeList(value);
}

void styleHorizontalBar(CControlUI& control, const wchar_t* value) {
    setHorizontalBar(control, L"true");
    container(control).GetHorizontalScrollBar()->ApplyAttributeList(value);
}

constexpr Attribute Rows[] = {
    attribute<&CContainerUI::SetInset>(L"inset", "inner margins"),
    attribute<&CContainerUI::SetMouseChildEnabled>(L"mousechild", "the mouse finds the children"),
    {L"vscrollbar", AttributeKind::Flag, setVerticalBar, "has a vertical scroll bar"},
    {L"vscrollbarstyle", AttributeKind::List, styleVerticalBar, "attributes of the vertical scroll bar"},
    {L"hscrollbar", AttributeKind::Flag, setHorizontalBar, "has a horizontal scroll bar"},
    {L"hscrollbarstyle", AttributeKind::List, styleHorizontalBar, "attributes of the horizontal scroll bar"},
    attribute<&CContainerUI::SetChildPadding>(L"childpadding", "gap between two children"),
    {L"childalign", AttributeKind::Text, setChildAlign, "left, center or right, across a vertical layout"},
    {L"childvalign", AttributeKind::Text, setChildVAlign,
     "top, vcenter or bottom, across a horizontal layout"},
};

} // namespace

CContainerUI::CContainerUI() = default;

CContainerUI::~CContainerUI() {
    delayedDestroy = false;
    CContainerUI::RemoveAll();
}

void* CContainerUI::GetInterface(const wchar_t* interfaceName) {
    if (std::wcscmp(interfaceName, L"IContainer") == 0)
        return static_cast<IContainerUI*>(this);
    if (std::wcscmp(interfaceName, L"Container") == 0)
        return this;
    return CControlUI::GetInterface(interfaceName);
}

const AttributeTable& CContainerUI::GetAttributeTable() const {
    static const AttributeTable table = {&CControlUI::GetAttributeTable(), Rows};
    return table;
}

CControlUI* CContainerUI::GetItemAt(int index) const {
    return index >= 0 && index < GetCount() ? items[static_cast<size_t>(index)] : nullptr;
}

int CContainerUI::GetItemIndex(const CControlUI* control) const {
    const auto hit = std::find(items.begin(), items.end(), control);
    return hit == items.end() ? -1 : static_cast<int>(hit - items.begin());
}

bool CContainerUI::SetItemIndex(CControlUI* control, int index) {
    const int old = GetItemIndex(control);
    if (old < 0 || index < 0 || index >= GetCount())
        return false;
    NeedUpdate();
    items.erase(items.begin() + old);
    items.insert(items.begin() + index, control);
    return true;
}

bool CContainerUI::SetMultiItemIndex(CControlUI* first, int count, int index) {
    const int old = first ? GetItemIndex(first) : -1;
    if (old < 0 || count < 0 || index < 0)
        return false;
    if (old == index)
        return true;
    if (count > GetCount() - old || count > GetCount() - index)
        return false;
    const auto begin = items.begin();
    if (index < old)
        std::rotate(begin + index, begin + old, begin + old + count);
    else
        std::rotate(begin + old, begin + old + count, begin + index + count);
    NeedUpdate();
    return true;
}

bool CContainerUI::prepareItem(CControlUI* control) {
    if (!control)
        return false;
    if (manager)
        manager->InitControls(control, this);
    else
        control->SetManager(nullptr, this, false);
    if (IsVisible())
        NeedUpdate();
    else
        control->SetInternVisible(false);
    return true;
}

bool CContainerUI::Add(CControlUI* control) {
    if (!prepareItem(control))
        return false;
    items.push_back(control);
    return true;
}

bool CContainerUI::AddAt(CControlUI* control, int index) {
    if (index < 0 || index > GetCount() || !prepareItem(control))
        return false;
    items.insert(items.begin() + index, control);
    return true;
}

void CContainerUI::destroyItem(CControlUI* control) {
    if (delayedDestroy && manager)
        manager->AddDelayedCleanup(control);
    else
        control->Delete();
}

bool CContainerUI::Remove(CControlUI* control, Destroy destroy) {
    const int index = control ? GetItemIndex(control) : -1;
    if (index < 0)
        return false;
    NeedUpdate();
    items.erase(items.begin() + index);
    if (autoDestroy && destroy == Destroy::Yes)
        destroyItem(control);
    return true;
}

bool CContainerUI::RemoveAt(int index, Destroy destroy) {
    CControlUI* control = GetItemAt(index);
    return control && Remove(control, destroy);
}

void CContainerUI::RemoveAll() {
    // From a list of its own: a child that goes may remove its siblings.
    while (!items.empty()) {
        CControlUI* control = items.front();
        items.erase(items.begin());
        if (autoDestroy)
            destroyItem(control);
    }
    NeedUpdate();
}

int CContainerUI::FindSelectable(int index, bool forward) const {
    if (items.empty())
        return -1;
    const auto selectable = [this](int at) {
        CControlUI* item = GetItemAt(at);
        return item->GetInterface(L"IListItem") && item->IsVisible() && item->IsEnabled();
    };
    index = limited(index, 0, GetCount() - 1);
    if (forward) {
        for (int at = index; at < GetCount(); ++at)
            if (selectable(at))
                return at;
        return -1;
    }
    for (int at = index; at >= 0; --at)
        if (selectable(at))
            return at;
    return FindSelectable(0, true);
}

void CContainerUI::SetInset(const RECT& margins) {
    if (inset == margins)
        return;
    inset = margins;
    NeedUpdate();
}

void CContainerUI::SetChildPadding(int pixels) {
    pixels = std::max(pixels, 0);
    if (childPadding == pixels)
        return;
    childPadding = pixels;
    NeedUpdate();
}

void CContainerUI::SetChildAlign(ChildAlign align) {
    if (childAlign == align)
        return;
    childAlign = align;
    NeedUpdate();
}

void CContainerUI::SetChildVAlign(ChildVAlign align) {
    if (childVAlign == align)
        return;
    childVAlign = align;
    NeedUpdate();
}

void CContainerUI::SetManager(CPaintManagerUI* newManager, CControlUI* newParent, bool initialise) {
    for (size_t i = 0; i < items.size(); ++i)
        items[i]->SetManager(newManager, this, initialise);
    for (CScrollBarUI* bar : {verticalBar.get(), horizontalBar.get()})
        if (bar)
            bar->SetManager(newManager, this, initialise);
    CControlUI::SetManager(newManager, newParent, initialise);
}

void CContainerUI::SetVisible(bool on) {
    const bool wasVisible = IsVisible();
    CControlUI::SetVisible(on);
    if (IsVisible() != wasVisible)
        showChildren();
}

void CContainerUI::SetInternVisible(bool on) {
    CControlUI::SetInternVisible(on);
    showChildren();
}

void CContainerUI::showChildren() {
    for (size_t i = 0; i < items.size(); ++i) // a listener to the lost focus may change them
        items[i]->SetInternVisible(IsVisible());
}

void CContainerUI::SetMouseEnabled(bool on) {
    for (CScrollBarUI* bar : {verticalBar.get(), horizontalBar.get()})
        if (bar)
            bar->SetMouseEnabled(on);
    CControlUI::SetMouseEnabled(on);
}

CControlUI* CContainerUI::FindControl(FindControlFunction function, void* data, unsigned flags) {
    if (!passesFilter(function, data, flags))
        return nullptr;
    const bool hitTest = flags & FindHitTest;
    const bool byMouse = !hitTest || IsMouseEnabled();
    if ((flags & FindMeFirst) && byMouse)
        if (CControlUI* found = function(this, data))
            return found;
    if (CControlUI* over = GetCover(); over && (!hitTest || mouseChildEnabled))
        if (CControlUI* found = over->FindControl(function, data, flags))
            return found;
    if (byMouse)
        for (CScrollBarUI* bar : {verticalBar.get(), horizontalBar.get()})
            if (bar)
                if (CControlUI* found = bar->FindControl(function, data, flags))
                    return found;
    if (!hitTest || mouseChildEnabled)
        if (CControlUI* found = findInItems(function, data, flags))
            return found;
    return !(flags & FindMeFirst) && byMouse ? function(this, data) : nullptr;
}

CControlUI* CContainerUI::findInItems(FindControlFunction function, void* data, unsigned flags) {
    const RECT client = clientArea();
    const bool hitTest = flags & FindHitTest;
    for (size_t i = 0; i < items.size(); ++i) {
        CControlUI* item = flags & FindTopFirst ? items[items.size() - 1 - i] : items[i];
        CControlUI* found = item->FindControl(function, data, flags);
        if (found && (!hitTest || found->IsFloat() || contains(client, *static_cast<POINT*>(data))))
            return found;
    }
    return nullptr;
}

void CContainerUI::DoEvent(TUIEvent& event) {
    if (!IsMouseEnabled() && isMouseEvent(event.kind)) {
        if (parent)
            parent->DoEvent(event);
        else
            CControlUI::DoEvent(event);
        return;
    }
    if (event.kind == EventSetFocus || event.kind == EventKillFocus) {
        storeFocused(event.kind == EventSetFocus);
        return;
    }
    if (event.kind == EventKeyDown && IsKeyboardEnabled() && IsEnabled() && onKey(event.key))
        return;
    if (event.kind == EventScrollWheel && onWheel(event))
        return;
    CControlUI::DoEvent(event);
}

} // namespace UILib
