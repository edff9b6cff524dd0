#include "uilib/controls/edit.h"

#include "uilib/controls/edit_window.h"
#include "uilib/controls/image_rows.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

#include <cwchar>
#include <memory>
#include <string>

namespace UILib {

namespace {

enum StripFrame { FrameNormal, FrameHot, FrameFocused, FrameDisabled };

constexpr int LineMargin = 8; // of the text, above and below together
constexpr RECT DefaultPadding = {4, 3, 4, 3};
constexpr uint32_t White = 0xFFFFFFFF;

} // namespace

const Attribute CEditUI::Rows[] = {
    attribute<&CEditUI::SetReadOnly>(L"readonly", "can be selected and copied, not changed"),
    attribute<&CEditUI::SetNumberOnly>(L"numberonly", "takes digits only"),
    attribute<&CEditUI::SetPasswordMode>(L"password", "shows an asterisk for each character"),
    attribute<&CEditUI::SetAutoSelectAll>(L"autoselall", "selects the text on focus"),
    attribute<&CEditUI::SetMaxChar>(L"maxchar", "limit of the length"),
    imageRow<&CEditUI::normalImage>(L"normalimage", "picture at rest"),
    imageRow<&CEditUI::hotImage>(L"hotimage", "picture under the mouse"),
    imageRow<&CEditUI::focusedImage>(L"focusedimage", "picture with the focus"),
    imageRow<&CEditUI::disabledImage>(L"disabledimage", "picture while disabled"),
    imageRow<&CEditUI::standardImage>(L"standardimage", "strip: at rest, hot, focused, disabled"),
    enlargeRow<&CEditUI::normalImage>(L"normalEnlargeImage"),
    enlargeRow<&CEditUI::hotImage>(L"hotEnlargeImage"),
    enlargeRow<&CEditUI::focusedImage>(L"focusedEnlargeImage"),
    enlargeRow<&CEditUI::disabledImage>(L"disabledEnlargeImage"),
    enlargeRow<&CEditUI::standardImage>(L"standardEnlargeImage"),
    attribute<&CEditUI::SetNativeBkColor>(L"nativebkcolor", "background while typing"),
    attribute<&CEditUI::SetCaretColor>(L"caretcolor", "caret of a layered window"),
    attribute<&CEditUI::SetHotBorderColor>(L"hotbordercolor", "border colour under the mouse"),
};

CEditUI::CEditUI() {
    SetTextPadding(DefaultPadding);
    SetBkColor(White);
}

CEditUI::~CEditUI() {
    if (editWindow && manager)
        manager->RemoveNativeWindow(*editWindow);
    if (editWindow)
        editWindow->detach();
}

void* CEditUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"Edit") == 0 ? this : CLabelUI::GetInterface(interfaceName);
}

const AttributeTable& CEditUI::GetAttributeTable() const {
    static const AttributeTable table = {&CLabelUI::GetAttributeTable(), Rows};
    return table;
}

unsigned CEditUI::GetControlFlags() const {
    if (!IsEnabled())
        return 0;
    return FlagSetCursor | (IsKeyboardEnabled() ? FlagTabStop : 0u);
}

HWND CEditUI::GetNativeWindow() const {
    return editWindow ? editWindow->GetHWND() : nullptr;
}

void CEditUI::SetText(const wchar_t* newText) {
    if (text == newText) // or a listener to "textchanged" that sets the text would not end
        return;
    if (editWindow) {
        CUIString shown = newText;
        CPaintManagerUI::ResolveLanguageKey(shown);
        SetWindowTextW(*editWindow, shown); // comes back as a change, and is told as one
    }
    CLabelUI::SetText(newText);
}

void CEditUI::onNativeText(const wchar_t* newText) {
    if (text == newText) // typing beyond the limit is announced, too
        return;
    text = newText;
    manager->SendNotify(this, L"textchanged");
    if (manager->IsLayered())
        Invalidate();
}

void CEditUI::SetFont(int id) {
    CLabelUI::SetFont(id);
    if (!editWindow)
        return;
    editWindow->SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(manager->GetFont(font)), TRUE);
    placeWindow();
}

void CEditUI::SetReadOnly(bool on) {
    if (readOnly == on)
        return;
    readOnly = on;
    if (editWindow)
        editWindow->SendMessage(EM_SETREADONLY, on);
    Invalidate();
}

void CEditUI::SetNumberOnly(bool on) {
    windowStyle = on ? windowStyle | ES_NUMBER : windowStyle & ~ES_NUMBER;
}

void CEditUI::SetMaxChar(int characters) {
    maxChar = static_cast<unsigned>(characters);
    if (editWindow)
        editWindow->SendMessage(EM_LIMITTEXT, maxChar);
}

void CEditUI::SetEnabled(bool on) {
    CLabelUI::SetEnabled(on);
    if (IsEnabled())
        return;
    buttonState = 0;
    if (editWindow && manager)
        manager->SetFocus(nullptr, FocusWindow::Yes);
}

void CEditUI::SetVisible(bool on) {
    CLabelUI::SetVisible(on);
    closeWhenHidden();
}

void CEditUI::SetInternVisible(bool on) {
    CLabelUI::SetInternVisible(on);
    closeWhenHidden();
}

void CEditUI::closeWhenHidden() {
    if (!IsVisible() && editWindow && manager)
        manager->SetFocus(nullptr, FocusWindow::Yes);
}

RECT CEditUI::nativeRectangle() const {
    RECT place = textRectangle();
    const int textHeight = fontHeight();
    if (textHeight < height(place)) {
        place.top += (height(place) - textHeight) / 2;
        place.bottom = place.top + textHeight;
    }
    for (const CControlUI* ancestor = parent; ancestor; ancestor = ancestor->GetParent()) {
        if (!ancestor->IsVisible())
            return {};
        place = intersect(place, ancestor->GetClientPos());
    }
    if (isEmpty(place))
        return {};
    --place.right;
    return place;
}

void CEditUI::placeWindow() {
    if (!editWindow)
        return;
    const RECT place = nativeRectangle();
    if (isEmpty(place))
        ::ShowWindow(*editWindow, SW_HIDE);
    else
        SetWindowPos(*editWindow, nullptr, place.left, place.top, width(place), height(place),
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void CEditUI::SetPos(RECT rectangle, bool invalidate) {
    CLabelUI::SetPos(rectangle, invalidate);
    placeWindow();
}

void CEditUI::Move(int dx, int dy, bool invalidate) {
    CLabelUI::Move(dx, dy, invalidate);
    placeWindow();
}

SIZE CEditUI::EstimateSize(SIZE available) {
    if (GetFixedHeight() > 0 || !manager)
        return CLabelUI::EstimateSize(available);
    return {GetFixedWidth(), fontHeight() + LineMargin};
}

void CEditUI::openWindow() {
    auto opened = std::make_unique<CEditWnd>();
    editWindow = opened.get();
    if (opened->Init(this))
        opened.release(); // its window deletes it
    else
        editWindow = nullptr;
    Invalidate();
}

void CEditUI::DoEvent(TUIEvent& event) {
    if (passMouseToParent(*this, event))
        return;
    switch (event.kind) {
    case EventSetCursor:
        if (!IsEnabled())
            break;
        SetCursor(LoadCursorW(nullptr, IDC_IBEAM));
        return;
    case EventWindowSize:
        if (editWindow && manager)
            manager->SetFocusNeeded(this);
        break;
    case EventSetFocus:
        if (!IsEnabled())
            break;
        storeFocused(true);
        if (editWindow)
            ::SetFocus(*editWindow);
        else if (manager)
            openWindow();
        return;
    case EventKillFocus:
        storeFocused(false);
        Invalidate();
        if (editWindow)
            editWindow->Close();
        return;
    default:
        if (onMouse(event))
            return;
        break;
    }
    CLabelUI::DoEvent(event);
}

// True when the event ends here.
bool CEditUI::onMouse(const TUIEvent& event) {
    switch (event.kind) {
    case EventScrollWheel:
        return editWindow != nullptr;
    case EventButtonDown:
    case EventRightButtonDown:
    case EventDoubleClick:
        if (IsEnabled() && manager)
            onPress(event);
        return true;
    case EventMouseMove:
    case EventButtonUp:
    case EventContextMenu:
        return true;
    case EventMouseEnter:
    case EventMouseLeave:
        return followMouse(*this, buttonState, event) == Hover::Unchanged;
    default:
        return false;
    }
}

// The click goes on to the native window, which puts the caret where it was.
void CEditUI::onPress(const TUIEvent& event) {
    manager->ReleaseCapture();
    if (!editWindow) {
        if (IsFocused())
            openWindow();
        return;
    }
    if (autoSelectAll)
        return;
    const int x = event.mouse.x - position.left - GetTextPadding().left;
    const int y = event.mouse.y - position.top - GetTextPadding().top;
    editWindow->SendMessage(EM_SETSEL, 0, 0);
    editWindow->SendMessage(WM_LBUTTONDOWN, event.keyState, MAKELPARAM(x, y));
}

bool CEditUI::drawState(HDC context, DrawRecord& image, int frame) {
    return DrawImage(context, image) ||
           CRenderEngine::DrawStateImage(context, manager, position, paintRect, standardImage, frame);
}

void CEditUI::PaintStatusImage(HDC context) {
    refreshState(*this, buttonState);
    if ((buttonState & StateDisabled) && drawState(context, disabledImage, FrameDisabled))
        return;
    if ((buttonState & StateFocused) && drawState(context, focusedImage, FrameFocused))
        return;
    if ((buttonState & StateHot) && drawState(context, hotImage, FrameHot))
        return;
    drawState(context, normalImage, FrameNormal);
}

void CEditUI::PaintText(HDC context) {
    takeDefaultColors();
    if (text.IsEmpty() || !manager)
        return;
    CUIString shown = text;
    CPaintManagerUI::ResolveLanguageKey(shown);
    if (passwordMode) {
        size_t characters = 0;
        for (const wchar_t* at = shown; *at; at = CharNextW(at))
            ++characters;
        shown = std::wstring(characters, passwordChar);
    }
    RECT rectangle = textRectangle();
    CRenderEngine::DrawText(context, manager, rectangle, shown,
                            GetAdjustColor(IsEnabled() ? textColor : disabledTextColor), font,
                            textStyle | DT_SINGLELINE);
}

void CEditUI::PaintBorder(HDC context) {
    CLabelUI::PaintBorder(context);
    if (buttonState & StateHot)
        CLabelUI::PaintBorder(context, hotBorderColor);
}

} // namespace UILib
