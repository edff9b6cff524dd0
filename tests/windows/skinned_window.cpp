#include "tests/windows/skinned_window.h"

#include "uilib/controls/control.h"
#include "utility/log.h"

using namespace UILib;

namespace windows_test {

void SkinnedWindows::SetUp() {
    CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
    CPaintManagerUI::SetLanguageCode(L"en_US", L"en_US");
    CPaintManagerUI::SetResourcePath(SKIN_FOLDER);
    CPaintManagerUI::LoadLanguageTable(L"multi_language.tsv");
    owner = CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP | WS_VISIBLE, 300, 200, 600, 400, nullptr,
                            nullptr, nullptr, nullptr);
    ASSERT_NE(owner, nullptr) << "these tests need a display";
}

void SkinnedWindows::TearDown() {
    if (IsWindow(owner))
        DestroyWindow(owner);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) { // a quit message, too
    }
}

HWND SkinnedWindows::windowOf(const wchar_t* className) {
    return FindWindowW(className, nullptr);
}

WindowImplBase* SkinnedWindows::base(HWND window) {
    auto* object = reinterpret_cast<CWindowWnd*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return static_cast<WindowImplBase*>(object);
}

CControlUI* SkinnedWindows::control(HWND window, const wchar_t* name) {
    return window ? base(window)->GetPaintManager().FindControl(name) : nullptr;
}

bool SkinnedWindows::isShown(HWND window, const wchar_t* name) {
    const CControlUI* found = control(window, name);
    return found && found->IsVisible() && IsWindowVisible(window);
}

bool SkinnedWindows::isFocused(HWND window, const wchar_t* name) {
    const CControlUI* found = control(window, name);
    return found && found->IsFocused();
}

std::wstring SkinnedWindows::text(HWND window, const wchar_t* name) {
    const CControlUI* found = control(window, name);
    return found ? std::wstring(found->GetText().GetData()) : std::wstring();
}

void SkinnedWindows::click(HWND window, CControlUI* control) {
    ASSERT_NE(control, nullptr);
    // A first layout has given it its place.
    ASSERT_TRUE(pumpUntil([control] { return control->GetWidth() > 0; }));
    const RECT place = control->GetPos();
    const LPARAM point = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(window, WM_LBUTTONUP, 0, point);
}

void SkinnedWindows::key(HWND window, UINT virtualKey) {
    PostMessageW(window, WM_KEYDOWN, virtualKey, 1);
    PostMessageW(window, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001));
}

} // namespace windows_test
