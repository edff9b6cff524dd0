#include "uilib/controls/button.h"

#include "uilib/controls/image_rows.h"
#include "uilib/core/paint_manager.h"

#include <cwchar>

namespace UILib {

namespace {

constexpr UINT FadeTimer = 11;
constexpr UINT FadeInterval = 30; // ms

} // namespace

const Attribute CButtonUI::Rows[] = {
    imageRow<&CButtonUI::normalImage>(L"normalimage", "picture at rest"),
    imageRow<&CButtonUI::hotImage>(L"hotimage", "picture under the mouse"),
    imageRow<&CButtonUI::pushedImage>(L"pushedimage", "picture while pushed"),
    imageRow<&CButtonUI::focusedImage>(L"focusedimage", "picture with the focus"),
    imageRow<&CButtonUI::disabledImage>(L"disabledimage", "picture while disabled"),
    imageRow<&CButtonUI::secondImage>(L"foreimage", "picture on top of the state's"),
    imageRow<&CButtonUI::hotForeImage>(L"hotforeimage", "picture on top, under the mouse"),
    imageRow<&CButtonUI::standardImage>(L"standardimage", "strip: at rest, hot, pushed, disabled"),
    enlargeRow<&CButtonUI::normalImage>(L"normalEnlargeImage"),
    enlargeRow<&CButtonUI::hotImage>(L"hotEnlargeImage"),
    enlargeRow<&CButtonUI::pushedImage>(L"pushedEnlargeImage"),
    enlargeRow<&CButtonUI::focusedImage>(L"focusedEnlargeImage"),
    enlargeRow<&CButtonUI::disabledImage>(L"disabledEnlargeImage"),
    enlargeRow<&CButtonUI::secondImage>(L"foreEnlargeImage"),
    enlargeRow<&CButtonUI::hotForeImage>(L"hotforeEnlargeImage"),
    enlargeRow<&CButtonUI::standardImage>(L"standardEnlargeImage"),
    imageRow<&CButtonUI::redImage>(L"redFilePath", "mark above everything else"),
    enlargeRow<&CButtonUI::redImage>(L"redFilePathEnlarge"),
    attribute<&CButtonUI::SetFadeDelta>(L"fadedelta", "step of the fade, of 255"),
    attribute<&CButtonUI::SetHotBkColor>(L"hotbkcolor", "background under the mouse"),
    attribute<&CButtonUI::SetPushedBkColor>(L"pushbkcolor", "background while pushed"),
    attribute<&CButtonUI::SetDisabledBkColor>(L"disabledbkcolor", "background while disabled"),
    attribute<&CButtonUI::SetHotTextColor>(L"hottextcolor", "text colour under the mouse"),
    attribute<&CButtonUI::SetPushedTextColor>(L"pushedtextcolor", "text colour while pushed"),
    attribute<&CButtonUI::SetFocusedTextColor>(L"focusedtextcolor", "text colour with the focus"),
    attribute<&CButtonUI::SetShowCursor>(L"showcursor", "shows the hand"),
    attribute<&CButtonUI::SetShowRed>(L"showred", "shows the mark"),
    attribute<&CButtonUI::SetDrawMultiLine>(L"drawmulline", "breaks a text with tags at <n>"),
    attribute<&CButtonUI::SetHotBorderColor>(L"hotbordercolor", "border colour under the mouse"),
};

void* CButtonUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"Button") == 0 ? this : CLabelUI::GetInterface(interfaceName);
}

const AttributeTable& CButtonUI::GetAttributeTable() const {
    static const AttributeTable table = {&CLabelUI::GetAttributeTable(), Rows};
    return table;
}

unsigned CButtonUI::GetControlFlags() const {
    return (IsKeyboardEnabled() ? FlagTabStop : 0u) | (IsEnabled() && showCursor ? FlagSetCursor : 0u);
}

bool CButtonUI::Activate() {
    if (!CLabelUI::Activate())
        return false;
    if (manager)
        manager->SendNotify(this, L"click");
    return true;
}

void CButtonUI::SetNormalImage(const wchar_t* imageString) {
    setImage(*this, normalImage, imageString);
}

void CButtonUI::SetEnabled(bool on) {
    CLabelUI::SetEnabled(on);
    if (IsEnabled())
        return;
    buttonState = 0;
    fadeAlpha = 255; // a fade that stood at hover would stay there
}

void CButtonUI::DoEvent(TUIEvent& event) {
    if (passMouseToParent(*this, event))
        return;
    switch (event.kind) {
    case EventSetFocus:
    case EventKillFocus:
        Invalidate();
        break;
    case EventKeyDown:
        if (IsKeyboardEnabled() && IsEnabled() && (event.key == VK_SPACE || event.key == VK_RETURN)) {
            Activate();
            return;
        }
        break;
    case EventSetCursor:
        SetCursor(LoadCursorW(nullptr, IDC_HAND));
        return;
    case EventTimer:
        if (event.wParam == FadeTimer) {
            fade();
            return;
        }
        break;
    default:
        if (onMouse(event))
            return;
        break;
    }
    CLabelUI::DoEvent(event);
}

// True when the event ends here.
bool CButtonUI::onMouse(const TUIEvent& event) {
    switch (event.kind) {
    case EventButtonDown:
    case EventDoubleClick:
        onPress(event);
        return true;
    case EventMouseMove:
    case EventButtonUp:
        if (!(buttonState & StateCaptured))
            return false;
        onRelease(event);
        return true;
    case EventContextMenu:
        if (IsContextMenuUsed() && IsEnabled() && manager)
            manager->SendNotify(this, L"menu", event.wParam, event.lParam);
        return true;
    case EventMouseEnter:
    case EventMouseLeave:
        if (followMouse(*this, buttonState, event) == Hover::Unchanged)
            return true;
        startFade();
        return false;
    case EventRightButtonDown:
        if (manager)
            manager->SendNotify(this, L"rightbuttondown");
        return false;
    default:
        return false;
    }
}

void CButtonUI::onPress(const TUIEvent& event) {
    if (!contains(position, event.mouse) || !IsEnabled())
        return;
    buttonState |= StatePushed | StateCaptured;
    Invalidate();
}

// A captured button follows the mouse, and ends with the button.
void CButtonUI::onRelease(const TUIEvent& event) {
    const bool inside = contains(position, event.mouse);
    if (event.kind == EventMouseMove) {
        buttonState = inside ? buttonState | StatePushed : buttonState & ~StatePushed;
    } else {
        if (inside && IsEnabled())
            Activate();
        buttonState &= ~(StatePushed | StateCaptured);
    }
    Invalidate();
}

void CButtonUI::startFade() {
    if (fadeDelta && manager)
        manager->SetTimer(this, FadeTimer, FadeInterval);
}

void CButtonUI::fade() {
    Invalidate();
    if (buttonState & StateHot) {
        if (fadeAlpha > fadeDelta) {
            fadeAlpha = static_cast<uint8_t>(fadeAlpha - fadeDelta);
            return;
        }
        fadeAlpha = 0;
    } else {
        if (fadeAlpha < 255 - fadeDelta) {
            fadeAlpha = static_cast<uint8_t>(fadeAlpha + fadeDelta);
            return;
        }
        fadeAlpha = 255;
    }
    if (manager)
        manager->KillTimer(this, FadeTimer);
}

} // namespace UILib
