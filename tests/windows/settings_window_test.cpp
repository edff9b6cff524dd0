#include "kit/process_counts.h"
#include "launcher/qzvy/QzVyModel.h"
#include "shell/QzVySetupFrame.h"
#include "shell/QzVySetupImpl.h"
#include "tests/windows/skinned_window.h"
#include "uilib/controls/combo.h"
#include "uilib/controls/container.h"
#include "uilib/controls/option.h"
#include "utility/files.h"
#include "utility/handles.h"

using namespace UILib;

namespace {

constexpr wchar_t SettingsClass[] = L"QzVySetupFrame";
constexpr wchar_t RegistryKey[] = L"Software\\vyn settings test";

class SettingsWindow : public windows_test::SkinnedWindows {
protected:
    void SetUp() override {
        SkinnedWindows::SetUp();
        // What the choices store lies below a key of the test's own.
        RegDeleteTreeW(HKEY_CURRENT_USER, RegistryKey);
        ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, RegistryKey, registry.out()), ERROR_SUCCESS);
        ASSERT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, registry.get()), ERROR_SUCCESS);
    }
    void TearDown() override {
        SkinnedWindows::TearDown();
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, RegistryKey);
        DeleteFileW((utility::ufile::getModuleDir() + L"config.data").c_str());
        QzVySetupImpl::instance() = {};
        QzVyModel::instance().market = {};
        QzVyModel::instance().needRestart = false;
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

    // The selected options, by the first letters of what they mean.
    static std::string selected() {
        std::string letters;
        for (const wchar_t* name : {L"autoRunOnOpt", L"autoRunOffOpt", L"exstgameTopOpt",
                                    L"exstgameNotTopOpt", L"closeMinOpt", L"closeExistOpt"}) {
            const auto* option = static_cast<COptionUI*>(control(window(), name)->GetInterface(L"Option"));
            letters += option->IsSelected() ? '1' : '0';
        }
        return letters;
    }
    static std::string saved() {
        utility::ufile::MappedFile file;
        if (!file.open(utility::ufile::getModuleDir() + L"config.data"))
            return {};
        return {static_cast<const char*>(file.data()), file.getSize()};
    }
    static HWND box() { return windowOf(L"MessageBoxWindow"); }

    utility::Key registry;
    int closed = 0;
    int checks = 0;
};

constexpr wchar_t RunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";

bool runsWithTheSystem() {
    return RegGetValueW(HKEY_CURRENT_USER, RunKey, L"VYN", RRF_RT_REG_SZ, nullptr, nullptr, nullptr) ==
           ERROR_SUCCESS;
}

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

TEST_F(SettingsWindow, ShowsTheSwitchesAndStoresEachAtOnce) {
    utility::Key run;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, RunKey, run.out()), ERROR_SUCCESS);
    open();
    EXPECT_EQ(selected(), "101010");
    EXPECT_EQ(saved(), "") << "showing stores nothing";
    const struct {
        const wchar_t* option;
        const char* selected;
        const char* saved;
    } cases[] = {
        {L"autoRunOffOpt", "011010", "autorun=0|existgame=1|minbyclose=1|configversion=1000"},
        {L"exstgameNotTopOpt", "010110", "autorun=0|existgame=0|minbyclose=1|configversion=1000"},
        {L"closeExistOpt", "010101", "autorun=0|existgame=0|minbyclose=0|configversion=1000"},
        {L"autoRunOnOpt", "100101", "autorun=1|existgame=0|minbyclose=0|configversion=1000"},
        {L"exstgameTopOpt", "101001", "autorun=1|existgame=1|minbyclose=0|configversion=1000"},
        {L"closeMinOpt", "101010", "autorun=1|existgame=1|minbyclose=1|configversion=1000"},
    };
    for (const auto& c : cases) {
        click(window(), c.option);
        EXPECT_TRUE(pumpUntil([&] { return saved() == c.saved; })) << saved();
        EXPECT_EQ(selected(), c.selected);
        EXPECT_EQ(runsWithTheSystem(), &c >= &cases[3]) << "since the switch was turned on";
        close();
        open(); // another window shows what has been chosen
        EXPECT_EQ(selected(), c.selected);
    }
}

TEST_F(SettingsWindow, AChosenLanguageIsStoredAndTheRestartAskedFor) {
    for (const int answer : {1, 0}) { // later, then now
        QzVyModel::instance().market.localeCode = L"en_US";
        open();
        languages().SelectItem(2); // vi_VN
        ASSERT_TRUE(pumpUntil([] { return box() != nullptr; }));
        EXPECT_EQ(QzVyModel::instance().getLanguage(), L"vn");
        EXPECT_EQ(text(box(), L"titlelabel"), L"Notice");
        EXPECT_FALSE(IsWindowEnabled(window()));
        auto* bar = static_cast<IContainerUI*>(control(box(), L"bottombar")->GetInterface(L"IContainer"));
        EXPECT_FALSE(QzVyModel::instance().needRestart);
        click(box(), bar->GetItemAt(1 + answer));
        bool quits = false;
        ASSERT_TRUE(pumpUntil([&] {
            MSG message;
            quits = quits || PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
            return !box() || quits;
        }));
        EXPECT_EQ(QzVyModel::instance().needRestart, answer == 0);
        if (answer == 1) {
            EXPECT_TRUE(IsWindowEnabled(window()));
            close();
        }
    }
}

TEST_F(SettingsWindow, ManyOfThemLeaveNothingBehind) {
    const auto openAndClose = [this] {
        open();
        languages().Activate(); // its popup goes with the window
        close();
    };
    openAndClose();
    kit::ProcessCounts before, after;
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), before));
    for (int i = 0; i < 12; ++i)
        openAndClose();
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), after));
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_LE(after.handles, before.handles + 2);
    EXPECT_EQ(after.windows, before.windows);
}
