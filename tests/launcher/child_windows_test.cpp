// The windows that the main window opens: which of them there are, what they lock, and what
// their end does.

#include "tests/launcher/main_window.h"
#include "tests/support/log_watch.h"

#include "launcher/qzvy/ChildWindows.h"
#include "uilib/controls/control.h"
#include "uilib/core/window_impl_base.h"
#include "update/QzHubUpdateModel.h"
#include "utility/task_dispatcher.h"

namespace {

constexpr wchar_t Settings[] = L"QzVySetupFrame";
constexpr wchar_t Check[] = L"updatecheckframe";
constexpr wchar_t Update[] = L"updateFrame";

class ChildWindowsTest : public launcher_test::MainWindow {
protected:
    static HWND find(const wchar_t* name) { return FindWindowW(name, nullptr); }
    static UILib::CControlUI* controlOf(HWND window, const wchar_t* name) {
        auto* object = reinterpret_cast<UILib::CWindowWnd*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        return static_cast<UILib::WindowImplBase*>(object)->GetPaintManager().FindControl(name);
    }
    static bool pumpUntilGone(const wchar_t* name) {
        return pumpUntil([=] { return !find(name); });
    }
    bool isCentred(HWND child) const {
        RECT inner, outer;
        GetWindowRect(child, &inner);
        GetWindowRect(window(), &outer);
        return std::abs(inner.left + inner.right - outer.left - outer.right) < 4;
    }
    // As the check's worker posts it.
    static void tellResult(const wchar_t* version, bool force) {
        QzHubUpdateModel::instance().onCheckResult(version, L"notes", force);
    }
};

TEST_F(ChildWindowsTest, SettingsAreThereOnceAndComeBackAfterTheyWereClosed) {
    showWindow();
    click(L"setupBtn");
    const HWND first = find(Settings);
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(IsWindowVisible(first) && isCentred(first));
    EXPECT_EQ(GetWindow(first, GW_OWNER), window());
    EXPECT_TRUE(IsWindowEnabled(window())) << "the launcher stays usable";
    ShowWindow(first, SW_HIDE);
    click(L"setupBtn");
    EXPECT_TRUE(IsWindowVisible(first));
    EXPECT_EQ(FindWindowExW(nullptr, first, Settings, nullptr), nullptr);
    PostMessageW(first, WM_CLOSE, 0, 0);
    ASSERT_TRUE(pumpUntilGone(Settings));
    click(L"setupBtn");
    EXPECT_NE(find(Settings), nullptr);
    DestroyWindow(window());
    EXPECT_EQ(find(Settings), nullptr) << "they go with the main window";
}

TEST_F(ChildWindowsTest, TheCheckForUpdatesOpensFromTheSettingsAndTellsThatNothingIsNewer) {
    click(L"setupBtn");
    controlOf(find(Settings), L"checkUpdateBtn")->Activate();
    const HWND check = find(Check);
    ASSERT_NE(check, nullptr);
    EXPECT_TRUE(IsWindowVisible(check));
    controlOf(find(Settings), L"checkUpdateBtn")->Activate();
    EXPECT_EQ(FindWindowExW(nullptr, check, Check, nullptr), nullptr);
    tellResult(L"", false);
    EXPECT_EQ(find(Check), check);
    EXPECT_EQ(find(Update), nullptr);
    tellResult(L"1.2.0", false);
    EXPECT_TRUE(pumpUntilGone(Check)) << "the offer takes its place";
    EXPECT_NE(find(Update), nullptr);
}

TEST_F(ChildWindowsTest, NothingNewerIsNoNewsWithoutACheckWindow) {
    tellResult(L"", false);
    EXPECT_EQ(find(Check), nullptr);
    EXPECT_EQ(find(Update), nullptr);
}

TEST_F(ChildWindowsTest, AnOfferLeavesTheLauncherUsable) {
    showWindow();
    tellResult(L"1.2.0", false);
    const HWND offer = find(Update);
    ASSERT_NE(offer, nullptr);
    EXPECT_TRUE(IsWindowVisible(offer) && isCentred(offer));
    EXPECT_TRUE(IsWindowEnabled(window()));
    tellResult(L"1.3.0", false); // of a later check
    EXPECT_EQ(FindWindowExW(nullptr, offer, Update, nullptr), nullptr);
    EXPECT_STREQ(controlOf(offer, L"updateVersionLabel")->GetText(), L"Latest Version:1.3.0");
    PostMessageW(offer, WM_CLOSE, 0, 0);
    EXPECT_TRUE(pumpUntilGone(Update));
    EXPECT_NE(frame, nullptr);
    tellResult(L"1.3.0", false);
    EXPECT_NE(find(Update), nullptr);
}

TEST_F(ChildWindowsTest, AForcedUpdateLocksTheLauncherAndItsRefusalEndsIt) {
    test::allowErrors(L"update: download error"); // there is nothing to fetch
    bool locked = false;
    common::postToWindowThread([&] { // runs inside of the modal loop
        locked = find(Update) && !IsWindowEnabled(window());
        tellResult(L"1.4.0", true); // a second result begins no second loop
        PostMessageW(find(Update), WM_SYSCOMMAND, SC_CLOSE, 0);
    });
    tellResult(L"1.2.0", true);
    EXPECT_TRUE(locked);
    EXPECT_EQ(find(Update), nullptr);
    EXPECT_EQ(frame, nullptr) << "the launcher ends";
}

} // namespace
