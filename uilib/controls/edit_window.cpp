#include "uilib/controls/edit_window.h"

#include "uilib/controls/edit.h"
#include "uilib/core/gdi_values.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"
#include "utility/log.h"

#include <string>

namespace UILib {

namespace {

constexpr UINT_PTR CaretTimer = 20;
constexpr UINT Reflected = 0x2000; // how the manager sends a message of ours back to us
constexpr uint32_t SystemBackground = 0xFFFFFFFF;

DWORD styleOf(const CEditUI& control) {
    DWORD style = control.GetWindowStyle() | WS_CHILD | ES_AUTOHSCROLL;
    if (control.GetTextStyle() & DT_CENTER)
        style |= ES_CENTER;
    if (control.GetTextStyle() & DT_RIGHT)
        style |= ES_RIGHT;
    if (control.IsPasswordMode())
        style |= ES_PASSWORD;
    return style;
}

} // namespace

bool CEditWnd::Init(CEditUI* control) {
    owner = control;
    if (!Create(owner->GetManager()->GetPaintWindow(), L"", styleOf(*owner), 0, owner->nativeRectangle())) {
        common::log("CEditWnd::Init", __LINE__, L"no edit window, error %u", GetLastError());
        return false;
    }
    setUp();
    ::ShowWindow(window, SW_SHOWNOACTIVATE);
    ::SetFocus(window);
    const int length = GetWindowTextLengthW(window);
    if (owner->IsAutoSelectAll())
        SendMessage(EM_SETSEL, 0, std::max(length, 1));
    else
        SendMessage(EM_SETSEL, static_cast<WPARAM>(length), length);
    initialized = true;
    return true;
}

void CEditWnd::setUp() {
    owner->GetManager()->AddNativeWindow(owner, window);
    const UINT blink = GetCaretBlinkTime();
    if (blink != INFINITE)
        ::SetTimer(window, CaretTimer, blink, nullptr);
    const HFONT font = owner->GetManager()->GetFont(owner->GetFont());
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    SendMessage(EM_LIMITTEXT, owner->GetMaxChar());
    if (owner->IsPasswordMode())
        SendMessage(EM_SETPASSWORDCHAR, owner->GetPasswordChar());
    CUIString text = owner->GetText();
    CPaintManagerUI::ResolveLanguageKey(text);
    SetWindowTextW(window, text);
    SendMessage(EM_SETMODIFY, FALSE);
    SendMessage(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    EnableWindow(window, owner->IsEnabled());
    SendMessage(EM_SETREADONLY, owner->IsReadOnly());
}

void CEditWnd::detach() {
    owner = nullptr;
    DestroyWindow(window);
}

bool CEditWnd::isLayered() const {
    return owner && owner->GetManager()->IsLayered();
}

LRESULT CEditWnd::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KILLFOCUS:
        return onKillFocus(wParam, lParam);
    case WM_CLOSE:
        if (keepsFocus())
            return 0;
        DestroyWindow(window); // an edit window takes the message for itself
        return 0;
    case WM_KEYDOWN:
        if (wParam != VK_RETURN || !owner)
            break;
        owner->GetManager()->SendNotify(owner, L"return");
        return 0;
    case WM_CHAR:
        if (wParam == VK_RETURN) // it would beep
            return 0;
        break;
    case WM_COMMAND + Reflected:
        onReflectedCommand(HIWORD(wParam));
        return 0;
    case WM_CTLCOLOREDIT + Reflected:
    case WM_CTLCOLORSTATIC + Reflected:
        return onColor(reinterpret_cast<HDC>(wParam));
    case WM_PAINT:
        if (isLayered())
            owner->GetManager()->AddNativeWindow(owner, window);
        break;
    case WM_PRINT:
        return onPrint(reinterpret_cast<HDC>(wParam), lParam);
    case WM_TIMER:
        if (wParam != CaretTimer)
            break;
        caretShown = !caretShown;
        InvalidateRect(window, nullptr, FALSE);
        if (isLayered())
            owner->Invalidate();
        return 0;
    default:
        break;
    }
    return CWindowWnd::HandleMessage(message, wParam, lParam);
}

LRESULT CEditWnd::onKillFocus(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CWindowWnd::HandleMessage(WM_KILLFOCUS, wParam, lParam);
    const HWND next = reinterpret_cast<HWND>(wParam);
    if (owner && next != owner->GetManager()->GetPaintWindow())
        SendMessageW(owner->GetManager()->GetPaintWindow(), WM_KILLFOCUS, wParam, lParam);
    Close();
    return result;
}

// A click on the control's edge takes the focus away and gives it back: the close that was
// posted in between is out of date then.
bool CEditWnd::keepsFocus() const {
    return owner && owner->IsFocused() && ::GetFocus() == window;
}

void CEditWnd::onReflectedCommand(WORD code) {
    if (code == EN_CHANGE)
        readText();
    else if (code == EN_UPDATE)
        InvalidateRect(window, nullptr, FALSE);
}

void CEditWnd::readText() {
    if (!initialized || !owner)
        return;
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    owner->onNativeText(text.c_str());
}

LRESULT CEditWnd::onColor(HDC context) {
    const uint32_t background = owner ? owner->GetNativeBkColor().argb : SystemBackground;
    if (background == SystemBackground)
        return 0;
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, toColorRef(owner->GetTextColor()));
    makeBrush(background);
    return reinterpret_cast<LRESULT>(bkBrush.get());
}

// A translucent background shows what the window has below the edit window.
void CEditWnd::makeBrush(uint32_t color) {
    if (color >> 24 == 255) {
        if (!bkBrush)
            bkBrush.reset(CreateSolidBrush(toColorRef(color)));
        return;
    }
    CPaintManagerUI& manager = *owner->GetManager();
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(HWND_DESKTOP, manager.GetPaintWindow(), reinterpret_cast<POINT*>(&place), 2);
    const utility::Bitmap below = CRenderEngine::GenerateBitmap(&manager, place, owner, color);
    bkBrush.reset(below ? CreatePatternBrush(below.get()) : nullptr);
}

// The system does not print a caret.
LRESULT CEditWnd::onPrint(HDC context, LPARAM flags) {
    const LRESULT result = CWindowWnd::HandleMessage(WM_PRINT, reinterpret_cast<WPARAM>(context), flags);
    POINT caret = {};
    if (!isLayered() || !owner->IsEnabled() || !caretShown || !GetCaretPos(&caret))
        return result;
    RECT client = {};
    GetClientRect(window, &client);
    CRenderEngine::DrawLine(context, {caret.x, caret.y, caret.x, caret.y + client.bottom}, 1,
                            owner->GetCaretColor());
    return result;
}

void CEditWnd::OnFinalMessage(HWND handle) {
    if (owner) {
        owner->editWindow = nullptr;
        owner->Invalidate();
        owner->GetManager()->RemoveNativeWindow(handle);
    }
    delete this;
}

} // namespace UILib
