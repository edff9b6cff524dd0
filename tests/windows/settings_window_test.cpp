#include "kit/process_counts.h"
#include "launcher/qzvy/QzVyModel.h"
#include "shell/QzVySetupFrame.h"
#include "tests/windows/skinned_window.h"
#include "uilib/controls/combo.h"

using namespace UILib;

namespace {

constexpr wchar_t SettingsClass[] = L"QzVySetupFrame";

class SettingsWindow : public windows_test::SkinnedWindows {
protected:
    void TearDown() override {
        SkinnedWindows::TearDown();
        QzVyModel::instance().market = {};
    }

    void open() {
        auto* frame = new QzVySetupFrame;
        ASSERT_TRUE(frame->Create(owner, L"", 0, 0));
        frame->onClosed = [this] { ++closed; };
        frame->onCheckUpdate = [this] { ++checks; };
        frame->ShowWindow();
        ASSERT_TRUE(pumpUntil([] { return isFocused(window(), L"autoRunOnOpt"); })); // painted
    }
    static HWND window() { return windowOf(SettingsClass); }
    static CComboUI& languages() {
        return *static_cast<CComboUI*>(control(window(), L"languageCombo")->GetInterface(L"Combo"));
    }
    // Codes of the languages offered, the selected one in brackets.
    static std::wstring offered() {
        std::wstring codes;
        for (int i = 0; i < languages().GetCount(); ++i) {
            const std::wstring code(languages().GetItemAt(i)->GetUserData().GetData());
            codes += (i ? L" " : L"") + (i == languages().GetCurSel() ? L"[" + code + L"]" : code);
        }
        return codes;
    }
    void close() {
        key(window(), VK_ESCAPE);
        ASSERT_TRUE(pumpUntil([] { return !window(); }));
    }

    int closed = 0;
    int checks = 0;
};

} // namespace

TEST_F(SettingsWindow, OffersTheReleasedLanguages) {
    const struct {
        const wchar_t* present;
        const wchar_t* offered;
    } cases[] = {
        {L"en_US", L"[en_US] zh_CN vi_VN th_TH in_ID"},
        {L"th_TH", L"[th_TH] en_US zh_CN vi_VN in_ID"},
        {L"ko_KR", L"en_US zh_CN vi_VN th_TH in_ID"},
    };
    for (const auto& [present, codes] : cases) {
        QzVyModel::instance().market.localeCode = present;
        open();
        EXPECT_EQ(offered(), codes);
        close();
    }
}

TEST_F(SettingsWindow, ShowsWhereAndWhatIsInstalledAndPassesTheCheckOn) {
    QzVyModel::instance().pathDir = L"D:\\VYN\\";
    open();
    EXPECT_EQ(text(window(), L"pathEdit"), L"D:\\VYN\\");
    EXPECT_EQ(text(window(), L"versionLabel"), L"Current Version:1.0.0");
    click(window(), L"checkUpdateBtn");
    EXPECT_TRUE(pumpUntil([this] { return checks == 1; }));
    DestroyWindow(owner);
    EXPECT_EQ(closed, 1) << "it goes with its owner, and says so";
    EXPECT_EQ(window(), nullptr);
}

TEST_F(SettingsWindow, FiftyOfThemLeaveNothingBehind) {
    const auto openAndClose = [this] {
        open();
        languages().Activate(); // its popup goes with the window
        close();
    };
    openAndClose();
    kit::ProcessCounts before, after;
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), before));
    for (int i = 0; i < 50; ++i)
        openAndClose();
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), after));
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_LE(after.handles, before.handles + 2);
    EXPECT_EQ(after.windows, before.windows);
}
