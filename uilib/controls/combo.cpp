#include "uilib/controls/combo.h"

#include "uilib/controls/combo_window.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

#include <cwchar>
#include <memory>
#include <utility>

namespace UILib {

namespace {

constexpr int LineMargin = 8; // of the text, above and below together

IListItemUI* asListItem(CControlUI* control) {
    return control ? static_cast<IListItemUI*>(control->GetInterface(L"IListItem")) : nullptr;
}

} // namespace

CComboUI::CComboUI() = default;

CComboUI::~CComboUI() {
    closePopup();
}

void* CComboUI::GetInterface(const wchar_t* interfaceName) {
    if (std::wcscmp(interfaceName, L"Combo") == 0)
        return this;
    if (std::wcscmp(interfaceName, L"IListOwner") == 0)
        return static_cast<IListOwnerUI*>(this);
    return CContainerUI::GetInterface(interfaceName);
}

unsigned CComboUI::GetControlFlags() const {
    return IsKeyboardEnabled() ? FlagTabStop : 0u;
}

IListItemUI* CComboUI::listItem(int index) const {
    return asListItem(GetItemAt(index));
}

CUIString CComboUI::GetText() const {
    const CControlUI* selected = GetItemAt(curSel);
    return selected ? selected->GetText() : CUIString();
}

bool CComboUI::Add(CControlUI* control) {
    return AddAt(control, GetCount());
}

bool CComboUI::AddAt(CControlUI* control, int index) {
    closePopup();
    const CControlUI* selected = GetItemAt(curSel);
    if (!control || !CContainerUI::AddAt(control, index))
        return false;
    if (IListItemUI* item = asListItem(control))
        item->SetOwner(this);
    control->SetPos({}, false);
    renumber();
    followSelection(selected);
    return true;
}

bool CComboUI::Remove(CControlUI* control, Destroy destroy) {
    closePopup();
    const CControlUI* selected = GetItemAt(curSel);
    if (GetItemIndex(control) < 0)
        return false;
    if (IListItemUI* item = asListItem(control))
        item->SetOwner(nullptr);
    CContainerUI::Remove(control, destroy);
    renumber();
    followSelection(selected);
    return true;
}

void CComboUI::RemoveAll() {
    closePopup();
    curSel = -1;
    for (int i = 0; i < GetCount(); ++i)
        if (IListItemUI* item = listItem(i))
            item->SetOwner(nullptr);
    CContainerUI::RemoveAll();
}

bool CComboUI::SetItemIndex(CControlUI* control, int index) {
    return SetMultiItemIndex(control, 1, index);
}

bool CComboUI::SetMultiItemIndex(CControlUI* first, int count, int index) {
    closePopup();
    const CControlUI* selected = GetItemAt(curSel);
    if (!CContainerUI::SetMultiItemIndex(first, count, index))
        return false;
    renumber();
    followSelection(selected);
    return true;
}

void CComboUI::renumber() {
    for (int i = 0; i < GetCount(); ++i)
        if (IListItemUI* item = listItem(i))
            item->SetIndex(i);
}

// The selection stays with its item wherever that has gone.
void CComboUI::followSelection(const CControlUI* selected) {
    curSel = selected ? GetItemIndex(selected) : -1;
    Invalidate();
}

bool CComboUI::Activate() {
    if (!CContainerUI::Activate())
        return false;
    if (comboWindow)
        return true;
    if (!manager)
        return false;
    auto opened = std::make_unique<CComboWnd>();
    comboWindow = opened.get();
    if (!opened->Init(this)) {
        comboWindow = nullptr;
        return false;
    }
    opened.release(); // its window deletes it
    manager->SendNotify(this, L"dropdown");
    Invalidate();
    return true;
}

void CComboUI::closePopup() {
    if (comboWindow)
        comboWindow->dismiss();
}

bool CComboUI::dropSelection(bool notify) {
    CControlUI* selected = GetItemAt(curSel);
    if (!selected)
        return false;
    if (IListItemUI* item = asListItem(selected))
        item->Select(false, notify);
    curSel = -1;
    Invalidate();
    return true;
}

bool CComboUI::SelectItem(int index, bool takeFocus, bool notify) {
    if (selectCloseFlag && comboWindow)
        comboWindow->Close();
    if (index == curSel)
        return true;
    const int old = curSel;
    if (old >= 0 && !dropSelection(notify))
        return false;
    if (index < 0 || GetCount() == 0)
        return false;
    index = std::min(index, GetCount() - 1);
    CControlUI* control = GetItemAt(index);
    IListItemUI* item = asListItem(control);
    if (!item || !control->IsEnabled())
        return false;
    curSel = index;
    if (!control->IsVisible())
        return false;
    if (comboWindow || takeFocus)
        control->SetFocus();
    item->Select(true, notify);
    if (manager && notify)
        manager->SendNotify(this, L"itemselect", static_cast<WPARAM>(curSel), old);
    Invalidate();
    return true;
}

void CComboUI::SetItemFont(int id) {
    if (listInfo.font == id)
        return;
    listInfo.font = id;
    Invalidate();
}

void CComboUI::SetEnabled(bool on) {
    CContainerUI::SetEnabled(on);
    if (IsEnabled())
        return;
    closePopup();
    buttonState = 0;
}

void CComboUI::SetVisible(bool on) {
    CContainerUI::SetVisible(on);
    closeWhenHidden();
}

void CComboUI::SetInternVisible(bool on) {
    CContainerUI::SetInternVisible(on);
    closeWhenHidden();
}

void CComboUI::closeWhenHidden() {
    if (!IsVisible())
        closePopup();
}

void CComboUI::SetPos(RECT rectangle, bool invalidate) {
    if (!comboWindow)                             // an open popup gives the items their places
        for (size_t i = 0; i < items.size(); ++i) // each tells its listeners
            items[i]->SetPos({}, false);
    CControlUI::SetPos(rectangle, invalidate);
}

void CComboUI::Move(int dx, int dy, bool invalidate) {
    CControlUI::Move(dx, dy, invalidate);
}

SIZE CComboUI::EstimateSize(SIZE available) {
    if (GetFixedHeight() > 0 || !manager)
        return CContainerUI::EstimateSize(available);
    return {GetFixedWidth(), manager->GetDefaultFontInfo().metrics.tmHeight + LineMargin};
}

// The items of an open popup lie in the coordinates of another window.
CControlUI* CComboUI::FindControl(FindControlFunction function, void* data, unsigned flags) {
    return flags & FindHitTest ? CControlUI::FindControl(function, data, flags)
                               : CContainerUI::FindControl(function, data, flags);
}

void CComboUI::DoEvent(TUIEvent& event) {
    if (passMouseToParent(*this, event))
        return;
    switch (event.kind) {
    case EventSetFocus:
    case EventKillFocus:
        Invalidate();
        break;
    case EventKeyDown:
        if (IsKeyboardEnabled() && IsEnabled() && onKey(event.key))
            return;
        break;
    default:
        if (onMouse(event))
            return;
        break;
    }
    CControlUI::DoEvent(event);
}

// True when the event ends here.
bool CComboUI::onMouse(const TUIEvent& event) {
    switch (event.kind) {
    case EventButtonDown:
    case EventDoubleClick:
        if (IsEnabled()) {
            Activate();
            buttonState |= StatePushed | StateCaptured;
            Invalidate();
        }
        return true;
    case EventButtonUp:
        buttonState &= ~StateCaptured; // pushed it stays until the popup closes
        Invalidate();
        return true;
    case EventMouseMove:
    case EventContextMenu:
        return true;
    case EventMouseEnter:
    case EventMouseLeave:
        return followMouse(*this, buttonState, event) == Hover::Unchanged;
    default:
        return false;
    }
}

bool CComboUI::onKey(wchar_t key) {
    switch (key) {
    case VK_F4:
        Activate();
        return true;
    case VK_UP:
    case VK_PRIOR:
        return selectByKey(FindSelectable(curSel - 1, false));
    case VK_DOWN:
    case VK_NEXT:
        return selectByKey(FindSelectable(curSel + 1, true));
    case VK_HOME:
        return selectByKey(FindSelectable(0, false));
    case VK_END:
        return selectByKey(FindSelectable(GetCount() - 1, true));
    default:
        return false;
    }
}

bool CComboUI::selectByKey(int target) {
    const bool closes = std::exchange(selectCloseFlag, false);
    SelectItem(target);
    selectCloseFlag = closes;
    return true;
}

bool CComboUI::Paint(HDC context, const RECT& rectangle, CControlUI* stop) {
    return CControlUI::Paint(context, rectangle, stop);
}

void CComboUI::PaintStatusImage(HDC context) {
    refreshState(*this, buttonState);
    if (!paintState(context))
        DrawImage(context, normalImage);
}

bool CComboUI::paintState(HDC context) {
    const auto fill = [&](Color color) {
        if (color)
            CRenderEngine::DrawColor(context, paintRect, GetAdjustColor(color));
    };
    if (buttonState & StateDisabled)
        return DrawImage(context, disabledImage);
    if (buttonState & StatePushed) {
        fill(pushedBkColor);
        return DrawImage(context, pushedImage);
    }
    if (buttonState & StateHot) {
        fill(hotBkColor);
        return DrawImage(context, hotImage);
    }
    return (buttonState & StateFocused) && DrawImage(context, focusedImage);
}

void CComboUI::PaintText(HDC context) {
    CControlUI* selected = GetItemAt(curSel);
    if (!showText || showTextColor || !selected)
        return;
    const RECT place = shrunk(position, textPadding);
    IListItemUI* item = asListItem(selected);
    if (!item)
        paintForeignItem(context, *selected, place);
    else if (selectionTextColor)
        item->DrawItemText(context, place, selectionTextColor);
    else
        item->DrawItemText(context, place);
}

void CComboUI::paintForeignItem(HDC context, CControlUI& item, const RECT& place) {
    const RECT before = item.GetPos();
    item.SetPos(place, false);
    item.DoPaint(context, paintRect, nullptr);
    item.SetPos(before, false);
}

} // namespace UILib
