#include "refused_windows.h"
#include "stage.h"
#include "tests/support/log_watch.h"
#include "uilib/controls/container.h"
#include "uilib/controls/edit.h"

using namespace UILib;

namespace {

std::wstring edit(const wchar_t* attributes) {
    return std::wstring(L"<Edit name=\"e\" width=\"200\" height=\"30\" keyboard=\"true\" ") + attributes +
           L"/>";
}

std::string nativePlace(Stage& stage) {
    RECT place = {};
    GetWindowRect(stage.get<CEditUI>(L"e").GetNativeWindow(), &place);
    MapWindowPoints(HWND_DESKTOP, stage, reinterpret_cast<POINT*>(&place), 2);
    return std::to_string(place.left) + "," + std::to_string(place.right);
}

bool closes(Stage& stage) {
    return pumpUntil([&] { return !stage.get<CEditUI>(L"e").GetNativeWindow(); });
}

void type(const wchar_t* text) {
    for (; *text; ++text)
        PostMessageW(GetFocus(), WM_CHAR, *text, 1);
    pumpMessages();
}

} // namespace

TEST(Edit, TypesThroughItsNativeWindow) {
    Stage stage(edit(L"text=\"abc\" maxchar=\"5\""));
    CEditUI& e = stage.get<CEditUI>(L"e");
    EXPECT_EQ(e.GetNativeWindow(), nullptr);
    stage.click(150, 15);
    ASSERT_NE(e.GetNativeWindow(), nullptr);
    ASSERT_EQ(GetFocus(), e.GetNativeWindow());
    EXPECT_EQ(stage.take(), "");
    SendMessageW(e.GetNativeWindow(), EM_SETSEL, 3, 3);
    type(L"def");
    EXPECT_EQ(e.GetText(), L"abcde");
    EXPECT_EQ(stage.take(), "e!textchanged e!textchanged");
    stage.key(VK_RETURN);
    EXPECT_EQ(stage.take(), "e!return");
    EXPECT_EQ(e.GetText(), L"abcde");
}

TEST(Edit, ClosesItsWindowInEveryWay) {
    Stage stage(edit(L"") + L"<Button name=\"b\" height=\"30\" keyboard=\"true\"/>");
    CEditUI& e = stage.get<CEditUI>(L"e");
    const std::function<void()> ways[] = {
        [&] { stage.click(10, 45); },
        [&] { stage.key(VK_TAB); },
        [&] { stage.get(L"b").SetFocus(); },
        [&] { ::SetFocus(nullptr); },
        [&] { e.SetVisible(false); },
        [&] { e.SetEnabled(false); },
        [&] { stage.get(L"root").SetVisible(false); },
    };
    for (size_t i = 0; i < std::size(ways); ++i) {
        stage.manager.SetFocus(nullptr, FocusWindow::Yes);
        e.SetFocus();
        ASSERT_NE(e.GetNativeWindow(), nullptr) << i;
        ways[i]();
        EXPECT_TRUE(closes(stage)) << i;
        stage.get(L"root").SetVisible(true);
        e.SetVisible(true);
        e.SetEnabled(true);
        pumpMessages();
    }
    e.SetFocus();
    static_cast<IContainerUI*>(stage.get(L"root").GetInterface(L"IContainer"))->RemoveAll();
    pumpMessages();
    EXPECT_EQ(FindWindowExW(stage, nullptr, L"EditWnd", nullptr), nullptr);
}

TEST(Edit, KeepsItsWindowWhenItsEdgeIsClicked) {
    Stage stage(edit(L"text=\"abc\""));
    stage.click(100, 15);
    stage.click(1, 1);
    EXPECT_EQ(GetFocus(), stage.get<CEditUI>(L"e").GetNativeWindow());
    EXPECT_NE(GetFocus(), nullptr);
}

TEST(Edit, StaysUsableWhenItsWindowCannotBeMade) {
    Stage stage(edit(L"text=\"abc\""));
    CEditUI& e = stage.get<CEditUI>(L"e");
    {
        const RefusedWindows refused(L"EditWnd");
        test::allowErrors(L"no edit window, error ");
        stage.click(10, 15);
        EXPECT_EQ(e.GetNativeWindow(), nullptr);
        EXPECT_GE(test::logged(L"no edit window, error "), 1);
    }
    stage.click(10, 15);
    EXPECT_NE(e.GetNativeWindow(), nullptr);
}

TEST(Edit, IsAsWideAsItsTextWhereOnlyTheHeightIsFixed) {
    Stage stage(
        L"<Edit name=\"e\" height=\"30\" text=\"some words\"/><Edit name=\"f\" text=\"some words\"/>");
    const SIZE fixed = stage.get(L"e").EstimateSize({300, 200}),
               free = stage.get(L"f").EstimateSize({300, 200});
    EXPECT_EQ(fixed.cy, 30);
    EXPECT_GT(fixed.cx, 20);
    EXPECT_EQ(free.cx, 0);
    EXPECT_GT(free.cy, 8);
}

TEST(Edit, FollowsItsControl) {
    Stage stage(edit(L"textpadding=\"4,3,4,3\""));
    CEditUI& e = stage.get<CEditUI>(L"e");
    e.SetFocus();
    EXPECT_EQ(nativePlace(stage), "4,195");
    e.Move(20, 0, true);
    EXPECT_EQ(nativePlace(stage), "24,215");
    e.SetPos({250, 0, 400, 30}); // cut off by the window's edge
    EXPECT_EQ(nativePlace(stage), "254,299");
    e.SetPos({400, 0, 500, 30});
    EXPECT_FALSE(IsWindowVisible(e.GetNativeWindow()));
    e.SetPos({0, 0, 200, 30});
    EXPECT_TRUE(IsWindowVisible(e.GetNativeWindow()));
    stage.manager.AddFont(3, L"Liberation Sans", 20, false, false, false, false);
    e.SetFont(3);
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(e.GetNativeWindow(), WM_GETFONT, 0, 0)),
              stage.manager.GetFont(3));
}

TEST(Edit, FollowsAParentThatScrolls) {
    Stage stage(L"<VBox name=\"page\" height=\"60\" vscrollbar=\"true\"><Label height=\"20\"/>" + edit(L"") +
                L"<Label height=\"200\"/></VBox>");
    CEditUI& e = stage.get<CEditUI>(L"e");
    auto& page = stage.get<CContainerUI>(L"page");
    e.SetFocus();
    const auto top = [&] {
        RECT place = {};
        GetWindowRect(e.GetNativeWindow(), &place);
        MapWindowPoints(HWND_DESKTOP, stage, reinterpret_cast<POINT*>(&place), 2);
        return place.top;
    };
    const LONG before = top();
    page.SetScrollPos({0, 15});
    EXPECT_EQ(top(), before - 15);
    EXPECT_TRUE(IsWindowVisible(e.GetNativeWindow()));
    page.SetScrollPos({0, 100});
    EXPECT_FALSE(IsWindowVisible(e.GetNativeWindow()));
    page.SetScrollPos({0, 0});
    EXPECT_TRUE(IsWindowVisible(e.GetNativeWindow()));
    EXPECT_EQ(top(), before);
}

TEST(Edit, ReadOnlyTextCanBeCopiedAndNotChanged) {
    Stage stage(edit(L"text=\"abc\" readonly=\"true\" autoselall=\"true\""));
    CEditUI& e = stage.get<CEditUI>(L"e");
    e.SetFocus();
    type(L"x");
    EXPECT_EQ(e.GetText(), L"abc");
    constexpr wchar_t CtrlC = 3;
    PostMessageW(GetFocus(), WM_CHAR, CtrlC, 1);
    pumpMessages();
    ASSERT_TRUE(OpenClipboard(stage));
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const std::wstring copied = data ? static_cast<const wchar_t*>(GlobalLock(data)) : L"";
    CloseClipboard();
    EXPECT_EQ(copied, L"abc");
}

TEST(Edit, NeverShowsAPassword) {
    Stage clear(edit(L"text=\"iiii\" textcolor=\"#FF000000\" password=\"true\""));
    Stage stars(edit(L"text=\"****\" textcolor=\"#FF000000\""));
    for (int x = 0; x < 100; ++x)
        EXPECT_EQ(clear.pixel(clear.get(L"e"), x, 15), stars.pixel(stars.get(L"e"), x, 15)) << x;
    clear.get(L"e").SetFocus();
    EXPECT_TRUE(GetWindowLongW(clear.get<CEditUI>(L"e").GetNativeWindow(), GWL_STYLE) & ES_PASSWORD);
}

TEST(Edit, SettingTheTextFromItsOwnNotificationEnds) {
    Stage stage(edit(L""));
    CEditUI& e = stage.get<CEditUI>(L"e");
    stage.onNotify = [&](TUINotify& notification) {
        if (notification.type == L"textchanged")
            e.SetText(L"fixed");
    };
    e.SetFocus();
    type(L"q");
    EXPECT_EQ(e.GetText(), L"fixed");
    wchar_t shown[16] = {};
    GetWindowTextW(e.GetNativeWindow(), shown, 16);
    EXPECT_STREQ(shown, L"fixed");
}
