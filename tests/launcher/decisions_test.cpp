// The launcher's decisions and texts: tables of values.

#include "launcher/qzvy/ClientStart.h"
#include "launcher/qzvy/FlowFailure.h"
#include "launcher/qzvy/GameState.h"
#include "launcher/qzvy/MarketRecord.h"
#include "launcher/qzvy/PackageCheck.h"
#include "launcher/qzvy/PlayerPackage.h"
#include "launcher/qzvy/Progress.h"
#include "launcher/qzvy/WebBrowserHelper.h"
#include "launcher/qzvy/WindowSize.h"
#include "launcher/qzvy/system_language.h"
#include "shell/InstallPath.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr char Download[] = "launcher_download_game";
constexpr char Start[] = "launcher_start_game";
constexpr char Update[] = "update_window_text";

TEST(GameState, FollowsWhatIsInstalledAndTheLimits) {
    const struct {
        InstalledGame installed;
        GameLimits limits;
        const char* text;
        bool game;
        bool player;
    } cases[] = {
        {{false, 0, 0}, {0, 0}, Download, false, false},
        {{false, 5000, 2000}, {6000, 3000}, Download, false, false},
        {{true, 5000, 2000}, {0, 0}, Start, false, false},
        {{true, 5000, 2000}, {5000, 2000}, Start, false, false},
        {{true, 5000, 2000}, {5001, 2000}, Update, true, false},
        {{true, 5000, 2000}, {5000, 2001}, Update, false, true},
        {{true, 5000, 2000}, {5001, 2001}, Update, true, true},
        // Without a game version nothing is judged, not even the player.
        {{true, 999, 0}, {2000, 2000}, Start, false, false},
        {{true, 0, 0}, {1000, 1}, Start, false, false},
        {{true, 1000, 0}, {1000, 1}, Update, false, true},
        {{true, 2147483647, -1}, {0, 0}, Update, false, true},
    };
    for (const auto& c : cases) {
        const GameState state = judgeGame(c.installed, c.limits);
        const std::string trace = std::to_string(c.installed.appVersion) + " of " +
                                  std::to_string(c.limits.appMinVersion) + ", " +
                                  std::to_string(c.installed.playerVersion);
        EXPECT_STREQ(state.startText, c.text) << trace;
        EXPECT_EQ(state.gameUpdate, c.game) << trace;
        EXPECT_EQ(state.playerUpdate, c.player) << trace;
        EXPECT_EQ(state.pages, c.text != std::string(Start)) << trace;
    }
}

TEST(GameState, AClickServesThePlayerBeforeTheGame) {
    EXPECT_EQ(startAction(false, true, true), StartAction::DownloadPlayer);
    EXPECT_EQ(startAction(true, true, true), StartAction::UpdatePlayer);
    EXPECT_EQ(startAction(true, false, true), StartAction::UpdateGame);
    EXPECT_EQ(startAction(true, false, false), StartAction::RunClient);
}

TEST(Progress, Percent) {
    EXPECT_EQ(percentOf(0, 100), 0);
    EXPECT_EQ(percentOf(999, 1000), 99);
    EXPECT_EQ(percentOf(1000, 1000), 100);
    EXPECT_EQ(percentOf(5, 0), 0);
    EXPECT_EQ(percentOf(300, 200), 100); // a guessed total was too small
    EXPECT_EQ(percentOf(0xFFFFFFFE, 0xFFFFFFFF), 99);
}

TEST(Progress, Texts) {
    EXPECT_EQ(amountText(512 * 1024, 3 << 20), L"512KB/3MB");
    EXPECT_EQ(amountText((1 << 20) - 1, 3 << 20), L"1023KB/3MB");
    EXPECT_EQ(amountText(1 << 20, 0xFFFFFFFF), L"1MB/4095MB");
    EXPECT_EQ(speedText(3 << 19), L"1MB/S");
    EXPECT_EQ(speedText(900 * 1024), L"900KB/S");
    EXPECT_EQ(speedText(0), L"0KB/S");
    EXPECT_EQ(timeLeftText(0, 3725, 1), L"01:02:05");
    EXPECT_EQ(timeLeftText(0, 100, 0), L"--:--:--");
    EXPECT_EQ(timeLeftText(200, 100, 10), L"00:00:00");
    EXPECT_EQ(timeLeftText(0, 0xFFFFFFFF, 1), L"1193046:28:15");
}

TEST(Progress, InstallBarWaitsAtItsEnd) {
    int percent = 0;
    for (int tick = 0; tick < 200; ++tick)
        percent = nextInstallPercent(percent);
    EXPECT_EQ(percent, 99);
    EXPECT_EQ(iconOffset(1), 17);
    EXPECT_EQ(iconOffset(100), 986);
}

TEST(InstallPath, GetsAFolderOfItsOwn) {
    const struct {
        const wchar_t* choice;
        const wchar_t* path;
    } cases[] = {
        {L"D:\\", L"D:\\Game\\"},
        {L"D:", L"D:\\Game\\"},
        {L"E:\\Games\\Play", L"E:\\Games\\Play\\"},
        {L"E:\\game", L"E:\\game\\Game\\"},
        {L"E:/VYN/", L"E:/VYN/Game\\"},
        {L"E:\\한국 게임", L"E:\\한국 게임\\Game\\"},
    };
    for (const auto& [choice, path] : cases)
        EXPECT_EQ(installPathOf(choice, MainWindowFolder), path) << path;
    EXPECT_FALSE(installPathOf(L"", MainWindowFolder));
    EXPECT_FALSE(installPathOf(L"D", MainWindowFolder));
}

TEST(WindowSize, FitsTheWorkArea) {
    EXPECT_EQ(fitWindow(1920, 1040), DesignSize);
    EXPECT_EQ(fitWindow(1642, 977), DesignSize);
    EXPECT_EQ(fitWindow(1366, 728), (WindowSize{1189, 708}));
    EXPECT_EQ(fitWindow(1600, 900), (WindowSize{1478, 880}));
    EXPECT_EQ(fitWindow(1400, 2000), (WindowSize{1360, 809}));
    EXPECT_TRUE(needsSmallLayout({1344, 800}));
    EXPECT_FALSE(needsSmallLayout({1346, 801}));
}

TEST(Markets, ByShortCode) {
    const struct {
        const wchar_t* key;
        const wchar_t* shortCode;
        const wchar_t* localeCode;
        const wchar_t* dauPath;
        const wchar_t* fontFile;
    } cases[] = {
        {L"tw", L"tw", L"zh_TW", L"tw/log/dau", L"FZLANTYK_ZHONGCU.ttf"},
        {L"cn", L"cn", L"zh_CN", L"tw/log/dau", L"FZY4JW.TTF"},
        {L"kr", L"kr", L"ko_KR", L"kr/log/dau", L"kr.otf"},
        {L"jp", L"jp", L"ja_JP", L"jp/log/dau", L""},
        {L"br", L"pt", L"pt_PT", L"br/log/dau", L"Prompt-Medium.ttf"},
        {L"id", L"id", L"in_ID", L"vn/log/dau", L"FZY4JW.TTF"},
        {L"EN", L"en", L"en_US", L"en/log/dau", L"FZY4JW.TTF"},
        {L"", L"en", L"en_US", L"en/log/dau", L"FZY4JW.TTF"},
    };
    for (const auto& c : cases) {
        MarketRecord record;
        fillMarketByShortCode(c.key, record);
        EXPECT_EQ(record.shortCode, c.shortCode);
        EXPECT_EQ(record.localeCode, c.localeCode);
        EXPECT_EQ(record.dauPath, c.dauPath);
        EXPECT_EQ(record.fontFile, c.fontFile);
    }
}

TEST(Markets, TheTwoKeysLeadToTheSameMarket) {
    for (const wchar_t* locale : {L"zh_CN", L"zh_TW", L"ko_KR", L"ja_JP", L"vi_VN", L"th_TH", L"pt_PT",
                                  L"in_ID", L"en_US", L"ru_RU"}) {
        MarketRecord byLocale;
        MarketRecord byCode;
        fillMarketByLocale(locale, byLocale);
        fillMarketByShortCode(byLocale.shortCode, byCode);
        EXPECT_EQ(byLocale.shortCode, byCode.shortCode);
        EXPECT_EQ(byLocale.localeCode, byCode.localeCode);
        EXPECT_EQ(byLocale.localeCode, locale == std::wstring(L"ru_RU") ? L"en_US" : locale);
    }
}

TEST(SystemLanguage, TakesFiveLanguagesAndNoOther) {
    const struct {
        uint16_t identifier;
        const wchar_t* code;
        const wchar_t* locale;
    } cases[] = {
        {1028, L"cn", L"zh_CN"}, {2052, L"cn", L"zh_CN"}, {31748, L"cn", L"zh_CN"}, {1033, L"en", L"en_US"},
        {1066, L"vn", L"vi_VN"}, {1054, L"th", L"th_TH"}, {1057, L"id", L"in_ID"},  {1042, L"en", L"en_US"},
        {1041, L"en", L"en_US"}, {0, L"en", L"en_US"},
    };
    for (const auto& [identifier, code, locale] : cases) {
        EXPECT_STREQ(languageOfIdentifier(identifier).code, code) << identifier;
        EXPECT_STREQ(languageOfIdentifier(identifier).locale, locale) << identifier;
    }
}

TEST(Packages, Names) {
    EXPECT_EQ(playerPackageName(L"9.1.0"), L"vynen_9.1.0.7z");
    EXPECT_EQ(gamePackageName(5210), L"vyn_app_sea_5210.apk");
    EXPECT_EQ(installCommand(L"D:\\My Games\\a.apk"),
              L"show=0|package=com.play.vysea|apk=D:\\My Games\\a.apk");
}

TEST(Packages, OnlyDamageToThePackageItselfCondemnsIt) {
    for (const int result : {archive::CrcError, archive::NoArchive, archive::BadArchive, archive::InputEnd})
        EXPECT_TRUE(isBrokenPackage(result)) << archive::resultName(result);
    for (const int result : {archive::Ok, archive::OutOfMemory, archive::ReadError, archive::WriteError,
                             archive::OpenFailed, archive::Cancelled})
        EXPECT_FALSE(isBrokenPackage(result)) << archive::resultName(result);
}

TEST(FlowFailure, TellsTheUserWhatHeCanChange) {
    constexpr uint64_t Megabyte = 1 << 20;
    EXPECT_EQ(judgeDownload(UINT64_MAX, 0), FlowFailure::NoDownload);
    EXPECT_EQ(judgeDownload(100 * Megabyte, 100 * Megabyte), FlowFailure::NoDownload);
    EXPECT_EQ(judgeDownload(100 * Megabyte - 1, 100 * Megabyte), FlowFailure::NoSpace);
    EXPECT_EQ(judgeDownload(Megabyte - 1, 0), FlowFailure::NoSpace);

    EXPECT_EQ(judgeInstallation(archive::Ok, true, 0), FlowFailure::None);
    EXPECT_EQ(judgeInstallation(archive::Ok, false, 0), FlowFailure::NoClient);
    // An old client that is there does not make up for a package that did not unpack.
    EXPECT_EQ(judgeInstallation(archive::CrcError, true, 0), FlowFailure::BrokenPackage);
    EXPECT_EQ(judgeInstallation(archive::WriteFailed, true, 1000 * Megabyte), FlowFailure::NotUnpacked);
    EXPECT_EQ(judgeInstallation(archive::WriteFailed, true, Megabyte), FlowFailure::NoSpace);
}

TEST(ClientStart, LongCommandLinesTakeTheOtherRoad) {
    EXPECT_TRUE(fitsUserStart(std::wstring(200, L'x'), std::wstring(56, L'y')));
    EXPECT_FALSE(fitsUserStart(std::wstring(200, L'x'), std::wstring(57, L'y')));
}

TEST(WebBrowserHelper, EmulatesTheInstalledVersion) {
    using webbrowserhelper::emulationFor;
    EXPECT_EQ(emulationFor(7, 0).value, 7000u);
    EXPECT_EQ(emulationFor(8, 5).value, 8888u);
    EXPECT_EQ(emulationFor(9, 9).value, 9999u);
    EXPECT_EQ(emulationFor(9, 10).value, 10001u);
    EXPECT_EQ(emulationFor(9, 11).value, 11001u);
    EXPECT_EQ(emulationFor(11, 0).value, 0u);
    EXPECT_STREQ(emulationFor(6, 0).name, L"6.0");
}

} // namespace
