#include "uilib/controls/combo_window.h"

#include "uilib/controls/combo.h"
#include "uilib/controls/scroll_bar.h"
#include "uilib/core/render_clip.h"
#include "uilib/core/render_engine.h"
#include "utility/log.h"

#include <cwchar>
#include <windowsx.h>

namespace UILib {

namespace {

constexpr int FrameHeight = 2; // the body's border, above and below together
constexpr int WheelStep = 16;  // pixels
constexpr uint32_t BorderColor = 0xFF9396A4;
constexpr uint32_t ThumbColor = 0xFF6DABFF;
constexpr uint32_t BarColor = 0xFFFFFFFF;

bool isScrollBar(const CControlUI* control) {
    return control && std::wcscmp(control->GetClass(), L"ScrollBar") == 0;
}

} // namespace

bool CComboBodyUI::DoPaint(HDC context, const RECT& rectangle, CControlUI* stop) {
    int drawIndex = 0;
    for (CControlUI* control : items)
        if (auto* item = static_cast<IListItemUI*>(control->GetInterface(L"IListItem")))
            if (control->IsVisible())
                item->SetDrawIndex(drawIndex++);
    if (!CVerticalLayoutUI::DoPaint(context, rectangle, stop))
        return false;
    if (!items.empty() && owner->GetListInfo()->hLineSize > 0) // items gone: so may be the owner
        paintLines(context, rectangle);
    return true;
}

void CComboBodyUI::paintLines(HDC context, const RECT& rectangle) {
    const TListInfoUI& info = *owner->GetListInfo();
    CRenderClip clip;
    CRenderClip::GenerateClip(context, intersect(rectangle, clientArea()), clip);
    for (const CControlUI* item : items) {
        const RECT& place = item->GetPos();
        const RECT line = {place.left, place.bottom - info.hLineSize / 2, place.right,
                           place.bottom + info.hLineSize - info.hLineSize / 2};
        if (item->IsVisible() && meets(line, rectangle))
            CRenderEngine::DrawLine(context, {place.left, place.bottom, place.right, place.bottom},
                                    info.hLineSize, GetAdjustColor(info.hLineColor));
    }
}

bool CComboWnd::Init(CComboUI* combo) {
    owner = combo;
    oldSel = owner->GetCurSel();
    focusAtOpening = owner->GetManager()->GetFocus();
    const RECT place = dropRectangle();
    if (!Create(owner->GetManager()->GetPaintWindow(), L"", WS_POPUP, WS_EX_TOOLWINDOW, place)) {
        common::log("CComboWnd::Init", __LINE__, L"no popup window, error %u", GetLastError());
        giveBack();
        return false;
    }
    layout->SetPos({0, 0, width(place), height(place)}, false);
    showSelection();
    ::ShowWindow(window, SW_SHOW);
    return true;
}

int CComboWnd::neededHeight(int popupWidth) const {
    const SIZE available = {popupWidth, owner->GetDropBoxSize().cy};
    int64_t sum = FrameHeight;
    for (int i = 0; i < owner->GetCount(); ++i)
        if (CControlUI* item = owner->GetItemAt(i); item->IsVisible())
            sum += item->EstimateSize(available).cy;
    return static_cast<int>(std::min<int64_t>(sum, available.cy));
}

RECT CComboWnd::dropRectangle() const {
    const HWND ownerWindow = owner->GetManager()->GetPaintWindow();
    RECT place = owner->GetPos();
    MapWindowPoints(ownerWindow, HWND_DESKTOP, reinterpret_cast<POINT*>(&place), 2);
    const SIZE drop = owner->GetDropBoxSize();
    const int w = drop.cx > 0 ? drop.cx : width(place), h = neededHeight(w);
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(ownerWindow, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const bool below = place.bottom + h <= monitor.rcWork.bottom;
    const LONG top = below ? place.bottom : place.top - h;
    return {place.left, top, place.left + w, top + h};
}

CComboBodyUI* CComboWnd::makeBody() {
    auto* body = new CComboBodyUI(owner);
    body->SetManager(&paintManager, nullptr, true);
    if (const wchar_t* defaults = owner->GetManager()->GetDefaultAttributeList(L"VerticalLayout"))
        body->ApplyAttributeList(defaults);
    body->SetInset({1, 1, 1, 1});
    body->SetBorderColor(BorderColor);
    body->SetBorderSize({1, 1, 1, 1});
    body->SetAutoDestroy(false);
    body->EnableScrollBar(true, false);
    body->ApplyAttributeList(owner->GetDropBoxAttributeList());
    if (CScrollBarUI* bar = body->GetVerticalScrollBar()) {
        bar->SetThumbColor(ThumbColor);
        bar->SetBkColor(BarColor);
    }
    return body;
}

// Items bring the number of a font of the owner's window.
void CComboWnd::takeItemFont() {
    const int font = owner->GetListInfo()->font;
    const FontSpec& spec = owner->GetManager()->GetFontInfo(font).spec;
    paintManager.AddFont(font, spec.faceName, spec.size, spec.bold, spec.underline, spec.italic, false);
}

void CComboWnd::onCreate() {
    paintManager.Init(window);
    takeItemFont();
    paintManager.SetForceShared(true);
    layout = makeBody();
    for (int i = 0; i < owner->GetCount(); ++i)
        layout->Add(owner->GetItemAt(i));
    paintManager.AttachDialog(layout);
}

// The body goes with the window, empty.
void CComboWnd::giveBack() {
    if (!layout)
        return;
    layout->RemoveAll();
    layout = nullptr;
    for (int i = 0; i < owner->GetCount(); ++i)
        paintManager.ReapObjects(owner->GetItemAt(i));
    owner->SetManager(owner->GetManager(), owner->GetParent(), false);
    for (int i = 0; i < owner->GetCount(); ++i)
        owner->GetItemAt(i)->SetPos({}, false);
}

// Not where a click has just put it elsewhere.
void CComboWnd::focusOwner() {
    if (owner && owner->GetManager()->GetFocus() == focusAtOpening)
        owner->SetFocus();
}

void CComboWnd::dismiss() {
    giveBack();
    owner->comboWindow = nullptr;
    owner->buttonState &= ~StatePushed;
    owner->Invalidate();
    owner = nullptr;
    ::ShowWindow(window, SW_HIDE);
    Close();
}

LRESULT CComboWnd::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        onCreate();
        break;
    case WM_CLOSE:
        giveBack();
        focusOwner();
        break;
    case WM_DESTROY: // with the owner's window the popup goes without a close
        giveBack();
        break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        onButtonDown(lParam);
        break;
    case WM_LBUTTONUP:
        onButtonUp(lParam);
        break;
    case WM_KEYDOWN:
        onKey(wParam);
        return 0;
    case WM_MOUSEWHEEL:
        onWheel(wParam);
        return 0;
    case WM_KILLFOCUS:
        onKillFocus(reinterpret_cast<HWND>(wParam));
        break;
    default:
        break;
    }
    LRESULT result = 0;
    if (paintManager.MessageHandler(message, wParam, lParam, result))
        return result;
    return CWindowWnd::HandleMessage(message, wParam, lParam);
}

void CComboWnd::OnFinalMessage(HWND) {
    if (owner) {
        owner->comboWindow = nullptr;
        owner->buttonState &= ~StatePushed;
        owner->Invalidate();
    }
    delete this;
}

CControlUI* CComboWnd::controlAt(LPARAM lParam) const {
    return paintManager.FindControl(POINT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
}

void CComboWnd::onButtonDown(LPARAM lParam) {
    if (isScrollBar(controlAt(lParam)))
        scrolling = true;
}

void CComboWnd::onButtonUp(LPARAM lParam) {
    const CControlUI* control = controlAt(lParam);
    if (scrolling)
        scrolling = false;
    else if (control && !isScrollBar(control))
        PostMessage(WM_KILLFOCUS);
}

void CComboWnd::onKey(WPARAM key) {
    if (!owner)
        return;
    if (key == VK_RETURN) {
        PostMessage(WM_KILLFOCUS);
        return;
    }
    if (key == VK_ESCAPE) {
        owner->SelectItem(oldSel, true, true);
        PostMessage(WM_KILLFOCUS);
    } else {
        TUIEvent event = {EventKeyDown, owner, GetTickCount()};
        event.key = static_cast<wchar_t>(key);
        owner->DoEvent(event);
    }
    showSelection();
}

void CComboWnd::onWheel(WPARAM wParam) {
    if (!layout)
        return;
    SIZE target = layout->GetScrollPos();
    target.cy += GET_WHEEL_DELTA_WPARAM(wParam) < 0 ? WheelStep : -WheelStep;
    layout->SetScrollPos(target);
}

void CComboWnd::onKillFocus(HWND next) {
    if (next != window && !IsChild(window, next))
        PostMessage(WM_CLOSE);
}

// Scrolls no further than it needs to.
void CComboWnd::showSelection() {
    const CControlUI* item = owner && layout ? owner->GetItemAt(owner->GetCurSel()) : nullptr;
    if (!item)
        return;
    RECT area = shrunk(layout->GetPos(), layout->GetInset());
    if (const CScrollBarUI* bar = layout->GetHorizontalScrollBar(); bar && bar->IsVisible())
        area.bottom -= bar->GetFixedHeight();
    const RECT& place = item->GetPos();
    SIZE target = layout->GetScrollPos();
    if (place.top < area.top)
        target.cy += place.top - area.top;
    else if (place.bottom > area.bottom)
        target.cy += place.bottom - area.bottom;
    else
        return;
    layout->SetScrollPos(target);
}

} // namespace UILib
