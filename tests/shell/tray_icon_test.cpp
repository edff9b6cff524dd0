#include "shell/view/TrayiconControl.h"
#include "tests/support/log_watch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

class TrayIcon : public testing::Test {
protected:
    void SetUp() override {
        UILib::CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
        UILib::CPaintManagerUI::SetResourcePath(SKIN_FOLDER);
        test::allowErrors(L"addTrayIcon error"); // a display without a notification area
    }
    void TearDown() override {
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
            DispatchMessageW(&message);
        EXPECT_EQ(window(), nullptr);
    }
    static HWND window() { return FindWindowW(L"QzPlayerTrayiconFrame", nullptr); }
    static LRESULT mouse(UINT message) { return SendMessageW(window(), 39529, 8194, message); }
    // Calls of the shell, each of which is logged with its result behind it.
    static int added() { return test::logged(L"addTrayIcon") / 2; }
};

TEST_F(TrayIcon, TurnsTheMouseIntoTwoActions) {
    view::TrayiconControl icon;
    std::string actions;
    icon.leftAction = [&] { actions += 'l'; };
    icon.rightAction = [&] { actions += 'r'; };
    ASSERT_NE(window(), nullptr) << "these tests need a display";
    EXPECT_FALSE(IsWindowVisible(window()));
    const struct {
        UINT message;
        const char* actions;
        LRESULT handled;
    } cases[] = {{WM_MOUSEMOVE, "", 0},     {WM_LBUTTONDOWN, "l", 1}, {WM_LBUTTONUP, "", 0},
                 {WM_LBUTTONDBLCLK, "", 1}, {WM_RBUTTONDOWN, "", 0},  {WM_RBUTTONUP, "r", 1}};
    for (const auto& [message, expected, handled] : cases) {
        actions.clear();
        EXPECT_EQ(mouse(message), handled) << message;
        EXPECT_EQ(actions, expected) << message;
    }
    icon.removeTrayIcon();
    icon.removeTrayIcon();
}

TEST_F(TrayIcon, TellsTheShellAllThatItAsksFor) {
    const HWND receiver = window();
    const NOTIFYICONDATAW icon = view::describeIcon(receiver);
    EXPECT_EQ(icon.cbSize, 952u) << "the size that the oldest systems take, too";
    EXPECT_EQ(icon.hWnd, receiver);
    EXPECT_EQ(icon.uID, 8194u);
    EXPECT_EQ(icon.uFlags & (NIF_MESSAGE | NIF_ICON | NIF_TIP), 7u);
    EXPECT_EQ(icon.uCallbackMessage, 39529u);
    EXPECT_EQ(icon.szTip, std::wstring(L"VYN Launcher"));
    EXPECT_EQ(icon.szInfo[0], 0) << "no balloon";
}

TEST_F(TrayIcon, ComesBackWhenTheShellStartsAnew) {
    view::TrayiconControl icon;
    icon.addTrayIcon(nullptr);
    ASSERT_EQ(added(), 1);
    const UINT shellStarted = RegisterWindowMessageW(L"TaskbarCreated");
    SendMessageW(window(), shellStarted, 0, 0);
    EXPECT_EQ(added(), 2);
    const HWND old = window();
    icon.removeTrayIcon();
    SendMessageW(old, shellStarted, 0, 0);
    EXPECT_EQ(added(), 2); // not after it was taken away
}

TEST_F(TrayIcon, CanBeAddedAgainAfterItsRemoval) {
    view::TrayiconControl icon;
    icon.removeTrayIcon();
    icon.addTrayIcon(nullptr);
    EXPECT_EQ(added(), 1);
    icon.removeTrayIcon();
}

} // namespace
