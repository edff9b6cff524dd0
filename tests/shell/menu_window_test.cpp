#include "kit/process_counts.h"
#include "shell/XrMenuWnd.h"
#include "tests/uilib/message_loop.h"
#include "uilib/controls/button.h"

#include <gtest/gtest.h>

// The menu as a real window with the program's own skin.

using namespace UILib;

namespace {

constexpr int Width = 170, Height = 80;

class Menu : public testing::Test {
protected:
    static void SetUpTestSuite() {
        CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
        CPaintManagerUI::SetResourcePath(SKIN_FOLDER);
    }
    void SetUp() override {
        useLanguage(L"en_US");
        // Hidden, as the main window often is then. The display gives no focus to it.
        owner = CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP, 300, 300, 200, 100, nullptr, nullptr,
                                nullptr, nullptr);
        ASSERT_NE(owner, nullptr) << "these tests need a display";
    }
    void TearDown() override {
        DestroyWindow(owner);
        EXPECT_TRUE(pumpUntil([] { return !openMenu(); }));
        EXPECT_EQ(XrMenuWnd::current, nullptr);
    }

    static void useLanguage(const wchar_t* code) {
        CPaintManagerUI::SetLanguageCode(code, code);
        CPaintManagerUI::LoadLanguageTable(L"multi_language.tsv");
    }
    static HWND openMenu() { return FindWindowW(L"assistantupdateframe", nullptr); }

    // With two rows, as the icon's menu has them; returns its window.
    HWND open(int x, int y) {
        XrMenuWnd::style = {.rowHeight = 40,
                            .rowWidth = 120,
                            .rowColor = 0xFFFFFFFF,
                            .hotColor = 0xFFE3E5E8,
                            .textColor = 0xFF000000,
                            .hotTextColor = 0xFF000000};
        XrMenuWnd::addMenuItem(owner, L"FIRST", L"one", L"", L"");
        XrMenuWnd::addMenuItem(owner, L"SECOND", L"two", L"", L"");
        XrMenuWnd::popupMenu(x, y, MenuPlacement::AboveRight, [this](const std::wstring& name) {
            calls.push_back(name);
            return true;
        });
        const HWND window = XrMenuWnd::current->GetHWND();
        EXPECT_TRUE(IsWindowVisible(window) && GetFocus() == window);
        UpdateWindow(window); // gives the rows their places
        return window;
    }
    static bool closes(HWND window) {
        return pumpUntil([=] { return !IsWindow(window); });
    }
    static void key(HWND window, WPARAM code) { PostMessageW(window, WM_KEYDOWN, code, 0); }
    static COLORREF pixel(HWND window, int x, int y) {
        const HDC context = GetDC(window);
        const COLORREF color = GetPixel(context, x, y);
        ReleaseDC(window, context);
        return color;
    }

    HWND owner = nullptr;
    std::vector<std::wstring> calls;
    using Calls = std::vector<std::wstring>;
};

TEST_F(Menu, StaysInTheWorkAreaAtItsCorners) {
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const struct {
        int x, y;
        LONG left, top;
    } cases[] = {{work.left, work.top, work.left, work.top},
                 {work.right - 1, work.top, work.right - Width, work.top},
                 {work.left, work.bottom - 1, work.left, work.bottom - 1 - Height},
                 {work.right - 1, work.bottom + 20, work.right - Width, work.bottom - Height},
                 {500, 400, 500, 400 - Height}};
    for (const auto& [x, y, left, top] : cases) {
        const HWND window = open(x, y);
        RECT place = {};
        GetWindowRect(window, &place);
        EXPECT_TRUE(place.left == left && place.top == top && place.right == left + Width &&
                    place.bottom == top + Height)
            << x << "," << y << ": " << place.left << "," << place.top;
        key(window, VK_ESCAPE);
        EXPECT_TRUE(closes(window));
    }
}

TEST_F(Menu, AClickOnARowCallsOnceAndCloses) {
    const HWND window = open(600, 400);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 200)); // below the rows
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 60));
    EXPECT_TRUE(closes(window));
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.front(), L"SECOND");
    for (size_t i = 1; i < calls.size(); ++i)
        EXPECT_EQ(calls[i], L"menu_focus");
}

TEST_F(Menu, LosingTheFocusClosesIt) {
    const HWND window = open(600, 400);
    SetForegroundWindow(owner);
    SetFocus(owner);
    EXPECT_FALSE(IsWindowVisible(window)); // at once
    EXPECT_TRUE(closes(window));
    EXPECT_EQ(calls, Calls{L"menu_focus"});
}

TEST_F(Menu, TheKeyboardAloneIsEnough) {
    const struct {
        std::vector<WPARAM> keys;
        const wchar_t* chosen; // null: none, and the menu stays
    } cases[] = {{{VK_DOWN, VK_RETURN}, L"FIRST"},
                 {{VK_DOWN, VK_DOWN, VK_RETURN}, L"SECOND"},
                 {{VK_DOWN, VK_DOWN, VK_DOWN, VK_SPACE}, L"FIRST"},
                 {{VK_UP, VK_RETURN}, L"SECOND"},
                 {{VK_DOWN, VK_UP, VK_RETURN}, L"SECOND"},
                 {{VK_END, VK_HOME, VK_RETURN}, L"FIRST"},
                 {{VK_RETURN, VK_SPACE, VK_LEFT, 'A'}, nullptr}};
    for (const auto& [keys, chosen] : cases) {
        calls.clear();
        const HWND window = open(600, 400);
        for (const WPARAM code : keys)
            key(window, code);
        if (!chosen) {
            pumpUntil([] { return !GetInputState(); });
            EXPECT_TRUE(IsWindow(window));
            EXPECT_EQ(calls, Calls{});
            key(window, VK_ESCAPE);
        }
        EXPECT_TRUE(closes(window));
        EXPECT_EQ(calls.empty() ? L"" : calls.front(), std::wstring(chosen ? chosen : L"menu_focus"));
    }
}

TEST_F(Menu, OneRowAloneLooksChosen) {
    constexpr COLORREF rest = RGB(255, 255, 255), hot = RGB(0xE3, 0xE5, 0xE8);
    SetCursorPos(600, 400);
    const HWND window = open(580, 420); // the pointer rests on the second row
    const auto looks = [window](COLORREF first, COLORREF second) {
        return pumpUntil([=] { return pixel(window, 10, 20) == first && pixel(window, 10, 60) == second; });
    };
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(20, 60));
    EXPECT_TRUE(looks(rest, hot));
    key(window, VK_DOWN);
    EXPECT_TRUE(looks(hot, rest));
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(20, 60)); // the mouse has not moved
    EXPECT_TRUE(looks(hot, rest));
    // The display tells of the pointer's places late: an old one may undo the new one.
    EXPECT_TRUE(pumpUntil([&] {
        SetCursorPos(601, 400);
        SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(21, 60));
        return pixel(window, 10, 20) == rest && pixel(window, 10, 60) == hot;
    }));
}

TEST_F(Menu, AnotherMenuTakesItsPlace) {
    const HWND first = open(600, 400);
    XrMenuWnd::closeCurrent();
    const HWND second = open(700, 500);
    EXPECT_NE(first, second);
    EXPECT_TRUE(closes(first));
    ASSERT_NE(XrMenuWnd::current, nullptr);
    EXPECT_EQ(XrMenuWnd::current->GetHWND(), second); // the first one's end leaves it alone
    RECT place = {};
    GetWindowRect(second, &place);
    EXPECT_EQ(place.right - place.left, Width);
}

TEST_F(Menu, GoesWithItsOwner) {
    const HWND window = open(600, 400);
    DestroyWindow(owner);
    EXPECT_TRUE(closes(window));
}

TEST_F(Menu, EveryLanguageFitsItsRows) {
    for (const wchar_t* code :
         {L"en_US", L"zh_TW", L"zh_CN", L"ko_KR", L"vi_VN", L"th_TH", L"in_ID", L"ja_JP", L"ru_RU", L"pt_PT",
          L"es_ES", L"ar_IL", L"tr_TR", L"fr_FR", L"de_DE", L"it_IT", L"fa_IR", L"ms_MY", L"uk_UA"}) {
        useLanguage(code);
        const HWND window = open(600, 400);
        CPaintManagerUI& manager = XrMenuWnd::current->GetPaintManager();
        for (const char* key : {"menu_showmain", "menu_exit"}) {
            CButtonUI label;
            label.SetManager(&manager, nullptr, false);
            label.SetFont(1);
            label.SetText(languageText(key));
            EXPECT_LE(label.EstimateSize({9999, 9999}).cx, Width - 16)
                << testing::PrintToString(std::wstring(code)) << " " << key;
        }
        key(window, VK_ESCAPE);
        EXPECT_TRUE(closes(window));
    }
}

TEST_F(Menu, LeavesNothingBehind) {
    const auto cycle = [this](int times) {
        for (int i = 0; i < times; ++i) {
            const HWND window = open(600, 400);
            key(window, VK_ESCAPE);
            EXPECT_TRUE(closes(window));
        }
        kit::ProcessCounts counts;
        EXPECT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), counts));
        return counts;
    };
    const auto before = cycle(5), after = cycle(40);
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_LE(after.gdi, before.gdi + 5);
    EXPECT_LE(after.handles, before.handles + 5);
}

} // namespace
