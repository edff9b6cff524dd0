#include "uilib/controls/control.h"

#include "uilib/core/paint_manager.h"

#include <cwchar>

namespace UILib {

CControlUI::~CControlUI() {
    if (cover)
        cover->Delete();
    OnDestroy.Fire(*this);
    if (manager)
        manager->ReapObjects(this);
}

void CControlUI::Delete() {
    if (manager)
        manager->RemoveMouseLeaveNeeded(this);
    delete this;
}

void CControlUI::SetName(const CUIString& newName) {
    if (name == newName)
        return;
    const CUIString old = name;
    name = newName;
    if (manager)
        manager->RenameControl(this, old);
}

void* CControlUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"Control") == 0 ? this : nullptr;
}

void CControlUI::SetManager(CPaintManagerUI* newManager, CControlUI* newParent, bool initialise) {
    if (cover)
        cover->SetManager(newManager, this, initialise);
    manager = newManager;
    parent = newParent;
    if (updateNeeded || updateBelow)
        markAncestors();
    if (initialise && newParent)
        Init();
}

void CControlUI::Init() {
    DoInit();
    OnInit.Fire(*this);
}

void CControlUI::SetCover(CControlUI* newCover) {
    if (cover == newCover)
        return;
    if (cover)
        cover->Delete();
    cover = newCover;
    if (!cover)
        return;
    if (manager)
        manager->InitControls(cover, this);
    if (IsVisible())
        NeedUpdate();
    else
        cover->SetInternVisible(false);
}

void CControlUI::SetVirtualWnd(const CUIString& windowName) {
    virtualWindow = windowName;
    if (manager)
        manager->SetUseVirtualWindow(true);
}

CUIString CControlUI::GetVirtualWnd() const {
    const CControlUI* control = this;
    while (control->virtualWindow.IsEmpty() && control->parent)
        control = control->parent;
    return control->virtualWindow;
}

void CControlUI::SetText(const wchar_t* newText) {
    setAndLayout(text, CUIString(newText));
}

void CControlUI::SetToolTip(const wchar_t* newText) {
    toolTip = newText;
    toolTip.Replace(L"<n>", L"\r\n");
}

void CControlUI::SetVisible(bool on) {
    if (visible == on)
        return;
    const bool wasVisible = IsVisible();
    visible = on;
    focused = false;
    if (!on)
        hideFocus();
    if (IsVisible() != wasVisible)
        NeedParentUpdate();
    if (cover)
        cover->SetInternVisible(IsVisible());
}

void CControlUI::SetVisibleKeepFocus(bool on) {
    if (visible == on)
        return;
    const bool wasVisible = IsVisible();
    visible = on;
    if (IsVisible() != wasVisible)
        NeedParentUpdate();
    if (cover)
        cover->SetInternVisible(IsVisible());
}

void CControlUI::SetInternVisible(bool on) {
    internVisible = on;
    if (!on)
        hideFocus();
    if (cover)
        cover->SetInternVisible(on);
}

void CControlUI::hideFocus() {
    if (manager && manager->GetFocus() == this)
        manager->SetFocus(nullptr, FocusWindow::Yes);
}

void CControlUI::SetEnabled(bool on) {
    setAndInvalidate(enabled, on);
}

bool CControlUI::ShowsFocus() const {
    return IsFocused() && (!manager || manager->IsFocusShown());
}

void CControlUI::SetFocus() {
    if (manager)
        manager->SetFocus(this, FocusWindow::No);
}

// The part of what has changed that no ancestor cuts off.
void CControlUI::Invalidate() {
    if (!IsVisible())
        return;
    RECT area = position;
    for (const CControlUI* ancestor = parent; ancestor; ancestor = ancestor->parent) {
        area = intersect(area, ancestor->position);
        if (isEmpty(area))
            return;
    }
    if (manager)
        manager->Invalidate(area);
}

void CControlUI::NeedUpdate() {
    if (!IsVisible())
        return;
    updateNeeded = true;
    markAncestors();
    Invalidate();
    if (manager)
        manager->NeedUpdate();
}

// Above one that has the mark all have it.
void CControlUI::markAncestors() {
    for (CControlUI* above = walkParent(); above && !above->updateBelow; above = above->walkParent())
        above->updateBelow = true;
}

void CControlUI::NeedParentUpdate() {
    if (parent) {
        parent->NeedUpdate();
        parent->Invalidate();
    } else {
        NeedUpdate();
    }
    if (manager)
        manager->NeedUpdate();
}

// The tests that every class starts its FindControl with.
bool CControlUI::passesFilter(FindControlFunction function, void* data, unsigned flags) {
    const bool updateTest = flags & FindUpdateTest;
    if (updateTest && !updateNeeded && !updateBelow)
        return false;
    const bool wanted = (!(flags & FindVisible) || IsVisible()) && (!(flags & FindEnabled) || IsEnabled()) &&
                        (!(flags & FindHitTest) || contains(position, *static_cast<POINT*>(data)));
    if (!updateTest)
        return wanted;
    // The walk takes the marks on its way; below what it does not enter they stay for the
    // next one.
    if (wanted && !function(this, data)) {
        updateBelow = false;
        return true;
    }
    if (!wanted || updateBelow)
        markAncestors();
    return false;
}

CControlUI* CControlUI::FindControl(FindControlFunction function, void* data, unsigned flags) {
    if (!passesFilter(function, data, flags))
        return nullptr;
    const bool mayBeMe = !(flags & FindHitTest) || IsMouseEnabled();
    if ((flags & FindMeFirst) && mayBeMe)
        if (CControlUI* found = function(this, data))
            return found;
    if (cover)
        if (CControlUI* found = cover->FindControl(function, data, flags))
            return found;
    return !(flags & FindMeFirst) && mayBeMe ? function(this, data) : nullptr;
}

void CControlUI::Event(TUIEvent& event) {
    if (OnEvent.Fire(event))
        DoEvent(event);
}

void CControlUI::DoEvent(TUIEvent& event) {
    switch (event.kind) {
    case EventSetCursor:
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
        return;
    case EventSetFocus:
    case EventKillFocus:
        focused = event.kind == EventSetFocus;
        Invalidate();
        return;
    case EventTimer:
        if (manager)
            manager->SendNotify(this, L"timer", event.wParam, event.lParam);
        return;
    case EventContextMenu:
        if (menuUsed && manager) {
            manager->SendNotify(this, L"menu", event.wParam, event.lParam);
            return;
        }
        break;
    default:
        break;
    }
    if (parent)
        parent->DoEvent(event);
}

} // namespace UILib
