#include "stage.h"
#include "tests/uilib/repaint.h"
#include "uilib/controls/container.h"
#include "uilib/controls/edit.h"

// The native window of an edit that has the focus: it is what the attributes say, and becomes
// it when they change.

using namespace UILib;

namespace {

class EditStage : public Stage {
public:
    explicit EditStage(const wchar_t* attributes)
        : Stage(std::wstring(L"<Edit name=\"e\" width=\"200\" height=\"30\" text=\"some text\" ") +
                attributes + L"/><Button name=\"b\" height=\"30\"/>") {}

    CEditUI& edit() { return get<CEditUI>(L"e"); }
    HWND native() { return edit().GetNativeWindow(); }
    HWND focused() {
        edit().SetFocus();
        return native();
    }
    LRESULT ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(native(), message, wParam, lParam);
    }
    LONG style() { return GetWindowLongW(native(), GWL_STYLE); }
    std::pair<int, int> selection() {
        DWORD first = 0, last = 0;
        ask(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
        return {int(first), int(last)};
    }
};

using Selection = std::pair<int, int>;

} // namespace

TEST(EditWindow, IsWhatTheAttributesSay) {
    {
        EditStage plain(L"");
        ASSERT_NE(plain.focused(), nullptr);
        EXPECT_EQ(plain.style() & (ES_CENTER | ES_RIGHT | ES_PASSWORD | ES_NUMBER | ES_READONLY), 0);
        EXPECT_TRUE(plain.style() & ES_AUTOHSCROLL);
        EXPECT_EQ(plain.ask(EM_GETLIMITTEXT), 255);
        EXPECT_EQ(plain.selection(), Selection(9, 9)) << "the caret is at the end";
        EXPECT_EQ(plain.ask(EM_GETMODIFY), 0);
        EXPECT_EQ(plain.ask(EM_GETMARGINS), 0);
        EXPECT_TRUE(IsWindowEnabled(plain.native()));
    }
    EditStage special(L"maxchar=\"12\" readonly=\"true\" password=\"true\" numberonly=\"true\" "
                      L"align=\"center\" autoselall=\"true\"");
    ASSERT_NE(special.focused(), nullptr);
    constexpr LONG all = ES_CENTER | ES_PASSWORD | ES_NUMBER | ES_READONLY;
    EXPECT_EQ(special.style() & (all | ES_RIGHT), all);
    EXPECT_EQ(special.ask(EM_GETLIMITTEXT), 12);
    EXPECT_EQ(special.selection(), Selection(0, 9));
    EXPECT_EQ(special.ask(EM_GETPASSWORDCHAR), '*');
    EditStage right(L"align=\"right\" numberonly=\"true\"");
    right.edit().SetNumberOnly(false);
    right.focused();
    EXPECT_EQ(right.style() & (ES_CENTER | ES_RIGHT | ES_NUMBER), ES_RIGHT);
}

TEST(EditWindow, FollowsWhatChangesWhileItIsOpen) {
    EditStage stage(L"");
    stage.focused();
    stage.edit().SetMaxChar(3);
    EXPECT_EQ(stage.ask(EM_GETLIMITTEXT), 3);
    stage.edit().SetReadOnly(true);
    EXPECT_TRUE(stage.style() & ES_READONLY);
    stage.edit().SetReadOnly(false);
    EXPECT_FALSE(stage.style() & ES_READONLY);
    stage.edit().SetText(L"set");
    wchar_t shown[16] = {};
    GetWindowTextW(stage.native(), shown, 16);
    EXPECT_STREQ(shown, L"set");
    EXPECT_EQ(stage.take(), "e!textchanged");
    stage.edit().SetText(L"set");
    EXPECT_EQ(stage.take(), "");
}

// A click on the control goes on to the window, which puts the caret there.
TEST(EditWindow, TakesTheCaretToTheClick) {
    EditStage stage(L"padding=\"60,0,0,0\"");
    stage.click(250, 15);
    ASSERT_NE(stage.native(), nullptr);
    EXPECT_EQ(stage.selection(), Selection(9, 9));
    EXPECT_FALSE(stage.manager.IsCaptured());
    stage.press(65, 15);
    EXPECT_EQ(stage.selection(), Selection(0, 0));
    SendMessageW(stage.native(), WM_LBUTTONUP, 0, 0);
    stage.edit().SetAutoSelectAll(true);
    SendMessageW(stage.native(), EM_SETSEL, 2, 4);
    stage.press(65, 15);
    EXPECT_EQ(stage.selection(), Selection(2, 4)) << "who wants everything selected keeps it so";
}

TEST(EditWindow, GoesBackToPaintingWithTheFocus) {
    EditStage stage(L"textcolor=\"#FF000000\" focusedimage=\"color='#FF0000FF'\"");
    const Repaints repaints(stage, stage.manager);
    EXPECT_EQ(repaints.by([&] { stage.focused(); }), "0,0,200,30");
    EXPECT_EQ(repaints.at(1, 1), "0000FF");
    EXPECT_NE(repaints.by([&] { stage.get(L"b").SetFocus(); }), "");
    EXPECT_TRUE(pumpUntil([&] { return !stage.native(); }));
    EXPECT_EQ(repaints.at(1, 1), "FFFFFF");
    EXPECT_EQ(repaints.stale(), "");
}

TEST(EditWindow, HasItsOwnGround) {
    EditStage stage(L"nativebkcolor=\"#FF00FF00\" textcolor=\"#FF0000FF\"");
    const HWND native = stage.focused();
    UpdateWindow(native);
    RECT client = {};
    GetClientRect(native, &client);
    const HDC context = GetDC(native);
    EXPECT_EQ(GetPixel(context, client.right - 2, 2), COLORREF(RGB(0, 255, 0)));
    EXPECT_EQ(SendMessageW(stage, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(context),
                           reinterpret_cast<LPARAM>(native)) != 0,
              true);
    EXPECT_EQ(GetTextColor(context), COLORREF(RGB(0, 0, 255)));
    EXPECT_EQ(GetBkMode(context), TRANSPARENT);
    ReleaseDC(native, context);
}

// A translucent ground shows the control below it.
TEST(EditWindow, MayShowWhatLiesBelowIt) {
    EditStage stage(L"nativebkcolor=\"#80000000\" bkcolor=\"#FFFF0000\"");
    const HWND native = stage.focused();
    UpdateWindow(native);
    RECT client = {};
    GetClientRect(native, &client);
    const HDC context = GetDC(native);
    const COLORREF found = GetPixel(context, client.right - 2, 2);
    ReleaseDC(native, context);
    EXPECT_NEAR(GetRValue(found), 127, 2);
    EXPECT_EQ(GetGValue(found), 0);
}

// A window that is resized keeps the edit in use.
TEST(EditWindow, StaysWithTheFocusWhenTheWindowIsResized) {
    EditStage stage(L"keyboard=\"true\"");
    const Repaints repaints(stage, stage.manager);
    stage.focused();
    SetWindowPos(stage, nullptr, 0, 0, 280, 180, SWP_NOMOVE | SWP_NOZORDER);
    repaints.settle();
    pumpMessages();
    repaints.settle();
    EXPECT_EQ(stage.manager.GetFocus(), &stage.edit());
    EXPECT_NE(stage.native(), nullptr);
    EXPECT_EQ(::GetFocus(), stage.native());
}

// The wheel is the page's, but for an edit that is in use.
TEST(EditWindow, KeepsTheWheelWhileItIsOpen) {
    Stage stage(L"<VBox name=\"page\" height=\"60\" vscrollbar=\"true\"><Edit name=\"e\" "
                L"height=\"40\"/><Label height=\"200\"/></VBox>");
    auto& page = stage.get<CContainerUI>(L"page");
    const auto turn = [&] {
        POINT at = {10, 10};
        ClientToScreen(stage, &at);
        stage.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, -120), MAKELPARAM(at.x, at.y));
        return page.GetScrollPos().cy;
    };
    stage.get(L"e").SetFocus();
    EXPECT_EQ(turn(), 0);
    stage.manager.SetFocus(nullptr, FocusWindow::Yes);
    pumpMessages();
    EXPECT_GT(turn(), 0);
}
