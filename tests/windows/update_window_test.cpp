#include "launcher/qzvy/QzVyModel.h"
#include "tests/support/log_watch.h"
#include "tests/windows/skinned_window.h"
#include "uilib/controls/progress.h"
#include "update/QzHubUpdateCheckFrame.h"
#include "update/QzHubUpdateModel.h"
#include "update/QzNimUpdateFrame.h"
#include "utility/files.h"

using namespace UILib;

namespace {

constexpr wchar_t UpdateClass[] = L"updateFrame";
constexpr wchar_t CheckClass[] = L"updatecheckframe";

const bool reachesNobody = SetEnvironmentVariableW(L"VYN_PUBLISHER", L"http://127.0.0.1:1");

// The model's results are played by the test; its clients reach nobody. The owner stands
// for the launcher's main window.
class UpdateWindow : public windows_test::SkinnedWindows {
protected:
    void SetUp() override {
        SkinnedWindows::SetUp();
        ASSERT_TRUE(reachesNobody);
        test::allowErrors(L"update: download error");
        QzVyModel::instance().mainWindow = owner;
    }
    void TearDown() override {
        model.cancel();
        SkinnedWindows::TearDown();
        QzVyModel::instance().mainWindow = nullptr;
        const std::wstring folder = utility::ufile::getModuleDir() + L"update";
        if (utility::ufile::isExist(folder))
            utility::ufile::removeDir(folder);
    }

    void open(bool force) {
        auto* frame = new QzNimUpdateFrame;
        ASSERT_TRUE(frame->Create(owner, L"", 0, 0));
        frame->onClosed = [this] { closed = true; };
        frame->setUpdateInfo(L"1.1.0", force);
        frame->ShowWindow();
    }
    static HWND window() { return windowOf(UpdateClass); }
    static bool gone() {
        return pumpUntil([] { return !window(); });
    }
    // What a user sees, as one word a control.
    static std::string look() {
        std::string words;
        for (const wchar_t* name :
             {L"updateBtn", L"updateprogress", L"progressLabel", L"failedLabel", L"closebtn"})
            if (isShown(window(), name))
                words += std::string(words.empty() ? "" : " ") + std::string(name, name + wcslen(name));
        return words;
    }
    static int progress() {
        return static_cast<CProgressUI*>(control(window(), L"updateprogress")->GetInterface(L"Progress"))
            ->GetValue();
    }

    QzHubUpdateModel& model = QzHubUpdateModel::instance();
    bool closed = false;
};

constexpr char Offered[] = "updateBtn closebtn";
constexpr char Downloading[] = "updateprogress progressLabel closebtn";
constexpr char DownloadingForced[] = "updateprogress progressLabel";
constexpr char Failed[] = "updateBtn failedLabel closebtn";

} // namespace

TEST_F(UpdateWindow, OfferedUpdateGoesThroughItsStates) {
    open(false);
    EXPECT_EQ(look(), Offered);
    EXPECT_EQ(text(window(), L"updateVersionLabel"), L"Latest Version:1.1.0");
    EXPECT_EQ(text(window(), L"oldVersionLabel"), L"Current Version:1.0.0");
    ASSERT_TRUE(pumpUntil([] { return isFocused(window(), L"updateBtn"); }));
    key(window(), VK_RETURN);
    ASSERT_TRUE(pumpUntil([] { return look() == Downloading; }));
    model.onDownloadPercent(42);
    EXPECT_EQ(progress(), 42);
    key(window(), VK_ESCAPE);
    pumpMessages();
    EXPECT_NE(window(), nullptr) << "no slip throws a download away";

    model.onDownloadFailed();
    EXPECT_EQ(look(), Failed);
    EXPECT_EQ(text(window(), L"updateBtn"), L"Try again");
    click(window(), L"updateBtn");
    ASSERT_TRUE(pumpUntil([] { return look() == Downloading; }));
    EXPECT_EQ(progress(), 0);

    model.onDownloadPercent(99);
    EXPECT_NE(window(), nullptr);
    const auto report = model.onDownloadPercent;
    report(100);
    EXPECT_FALSE(IsWindow(owner)) << "the launcher ends for the new program";
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(closed);
}

TEST_F(UpdateWindow, ForcedUpdateStartsByItselfAndHasAWayOutOnceItFailed) {
    open(true);
    EXPECT_EQ(look(), DownloadingForced);
    model.onDownloadFailed();
    EXPECT_EQ(look(), Failed);
    key(window(), VK_ESCAPE);
    click(window(), L"updateBtn");
    ASSERT_TRUE(pumpUntil([] { return look() == DownloadingForced; }));
    model.onDownloadFailed();
    click(window(), L"closebtn");
    EXPECT_TRUE(gone());
    EXPECT_FALSE(IsWindow(owner)) << "refusing a forced update ends the launcher";
}

TEST_F(UpdateWindow, ClosingAnOfferEndsTheDownloadAndLeavesTheLauncher) {
    open(false);
    click(window(), L"updateBtn");
    ASSERT_TRUE(pumpUntil([] { return look() == Downloading; }));
    click(window(), L"closebtn");
    EXPECT_TRUE(gone());
    EXPECT_TRUE(closed);
    EXPECT_TRUE(IsWindow(owner));
    EXPECT_FALSE(model.onDownloadPercent);
    EXPECT_FALSE(model.onDownloadFailed);
}

TEST_F(UpdateWindow, TheSystemsCloseOfAForcedUpdateEndsTheLauncher) {
    open(true);
    SendMessageW(window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(IsWindow(owner));
    EXPECT_FALSE(model.onDownloadPercent);
}

TEST_F(UpdateWindow, GoesWithItsOwnerWithoutATrace) {
    open(true);
    DestroyWindow(owner);
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(closed);
    EXPECT_FALSE(model.onDownloadPercent);
    EXPECT_FALSE(model.onDownloadFailed);
}

TEST_F(UpdateWindow, ALaterResultFindsTheDownloadRunning) {
    open(false);
    auto* shown = frame<QzNimUpdateFrame>(UpdateClass);
    click(window(), L"updateBtn");
    ASSERT_TRUE(pumpUntil([] { return look() == Downloading; }));
    model.onDownloadPercent(60);
    shown->setUpdateInfo(L"1.1.0", true);
    EXPECT_EQ(look(), DownloadingForced);
    EXPECT_EQ(progress(), 60) << "the same version is not fetched anew";
    shown->setUpdateInfo(L"1.2.0", true);
    EXPECT_EQ(progress(), 0);
}

TEST_F(UpdateWindow, TheCheckTurnsToItsAnswer) {
    auto* check = new QzHubUpdateCheckFrame;
    ASSERT_TRUE(check->Create(owner, L"", 0, 0));
    check->onClosed = [this] { closed = true; };
    check->ShowWindow();
    ASSERT_TRUE(pumpUntil([] { return isShown(windowOf(CheckClass), L"titleLabel"); }));
    check->showUpToDate();
    // The button on the page bears the name that closes.
    ASSERT_TRUE(pumpUntil([] {
        const CControlUI* focus = frame<QzHubUpdateCheckFrame>(CheckClass)->GetPaintManager().GetFocus();
        return focus && focus->GetText() == L"@confirm";
    }));
    key(windowOf(CheckClass), VK_SPACE);
    EXPECT_TRUE(pumpUntil([] { return !windowOf(CheckClass); }));
    EXPECT_TRUE(closed);
}
