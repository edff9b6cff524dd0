#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"

#include <cwctype>

namespace UILib {

namespace {

struct ShortcutWalk {
    wchar_t wanted; // upper case
    bool pickNext = false;
};

wchar_t upper(wchar_t character) {
    return static_cast<wchar_t>(std::towupper(character));
}

// A label's shortcut means the control behind it.
CControlUI* shortcutTarget(CControlUI* control, void* data) {
    ShortcutWalk& walk = *static_cast<ShortcutWalk*>(data);
    if (!control->IsVisible())
        return nullptr;
    if (upper(control->GetShortcut()) == walk.wanted)
        walk.pickNext = true;
    const bool isLabel = CUIString(control->GetClass()).Find(L"Label") >= 0;
    return walk.pickNext && !isLabel ? control : nullptr;
}

} // namespace

WORD CPaintManagerUI::currentKeyState() {
    const auto down = [](int key, WORD bit) { return GetKeyState(key) < 0 ? bit : WORD(0); };
    return down(VK_LBUTTON, KeyLeftButton) | down(VK_RBUTTON, KeyRightButton) | down(VK_SHIFT, KeyShift) |
           down(VK_CONTROL, KeyControl) | down(VK_MENU, KeyAlt);
}

bool CPaintManagerUI::PreMessageHandler(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    for (size_t i = 0; i < preMessageFilters.size(); ++i) {
        bool handled = false;
        result = preMessageFilters[i]->MessageHandler(message, wParam, lParam, handled);
        if (handled)
            return true;
    }
    if (message == WM_KEYDOWN && wParam == VK_TAB) {
        showFocus(true);
        return SetNextTabControl(GetKeyState(VK_SHIFT) < 0 ? Tab::Backward : Tab::Forward);
    }
    if (message == WM_SYSKEYDOWN && focus)
        sendEvent(focus, EventSystemKey, wParam, lParam, currentKeyState(), static_cast<wchar_t>(wParam));
    return message == WM_SYSCHAR && activateShortcut(static_cast<wchar_t>(wParam));
}

bool CPaintManagerUI::activateShortcut(wchar_t character) {
    if (!root || !character)
        return false;
    ShortcutWalk walk = {upper(character)};
    CControlUI* found = root->FindControl(shortcutTarget, &walk, FindEnabled | FindTopFirst | FindMeFirst);
    if (!found)
        return false;
    found->SetFocus();
    found->Activate();
    return true;
}

void CPaintManagerUI::onKeyDown(WPARAM wParam, LPARAM lParam) {
    if (!root || !focus)
        return;
    keyed = focus;
    sendEvent(focus, EventKeyDown, wParam, lParam, currentKeyState(), static_cast<wchar_t>(wParam));
}

void CPaintManagerUI::onKeyUp(WPARAM wParam, LPARAM lParam) {
    CControlUI* control = keyed;
    if (!control)
        return;
    keyed = nullptr;
    sendEvent(control, EventKeyUp, wParam, lParam, currentKeyState(), static_cast<wchar_t>(wParam));
}

void CPaintManagerUI::onCharacter(WPARAM wParam, LPARAM lParam) {
    if (root && focus)
        sendEvent(focus, EventChar, wParam, lParam, currentKeyState(), static_cast<wchar_t>(wParam));
}

} // namespace UILib
