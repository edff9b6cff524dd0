#include "launcher/qzvy/ChannelMessages.h"
#include "launcher/qzvy/QzVyModel.h"
#include "tests/launcher/support.h"
#include "tests/support/log_watch.h"
#include "utility/registry.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr wchar_t LauncherKey[] = L"Software\\wexlane\\VYN";
constexpr wchar_t RunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";

class Model : public launcher_test::Stage {
protected:
    static std::wstring value(const wchar_t* keyName, const wchar_t* name) {
        wchar_t text[1024] = {};
        DWORD size = sizeof(text);
        RegGetValueW(HKEY_CURRENT_USER, keyName, name, RRF_RT_REG_SZ, nullptr, text, &size);
        return text;
    }
    static void store(const wchar_t* name, DWORD type, const void* data, DWORD size) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, LauncherKey, name, type, data, size), ERROR_SUCCESS);
    }

    QzVyModel model;
};

TEST_F(Model, DefaultFolderIsMadeAndNotStored) {
    test::allowErrors(L"open reg"); // the key is made with the first choice
    model.loadPathDir();
    EXPECT_EQ(model.getPathDir(), at(L"game\\"));
    EXPECT_TRUE(exists(L"game"));
    EXPECT_EQ(value(LauncherKey, L"pathDir"), L"");
}

TEST_F(Model, FolderComesBackFromTheRegistry) {
    const std::wstring folder = at(L"my 게임\\");
    model.setPathDir(folder);
    QzVyModel next;
    next.loadPathDir();
    EXPECT_EQ(next.getPathDir(), folder);
    EXPECT_FALSE(exists(L"my 게임")); // a stored folder is not made
}

TEST_F(Model, RegistryValuesOfAnotherTypeAreNoValues) {
    const DWORD number = 0x00410041;
    store(L"pathDir", REG_DWORD, &number, sizeof(number));
    store(L"Language", REG_BINARY, &number, sizeof(number));
    model.loadPathDir();
    model.loadLanguage();
    EXPECT_EQ(model.getPathDir(), at(L"game\\"));
    EXPECT_EQ(model.getLanguage(), L"en");
}

TEST_F(Model, LanguageIsStoredByItsMarket) {
    model.setLanguage(L"ko_KR");
    EXPECT_EQ(model.market.shortCode, L"kr");
    EXPECT_EQ(value(LauncherKey, L"Language"), L"kr");
    EXPECT_EQ(value(LauncherKey, L"LanguageLong"), L"ko_KR");
    QzVyModel next;
    next.loadLanguage();
    EXPECT_EQ(next.getLanguage(), L"kr");

    model.setLanguage(L"ru_RU");
    EXPECT_EQ(value(LauncherKey, L"Language"), L"en");
    EXPECT_EQ(value(LauncherKey, L"LanguageLong"), L"ru_RU");
}

TEST_F(Model, AutorunEntryNamesTheProgram) {
    model.setAutoRun(true); // no Run key: nothing happens
    utility::Key run;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, RunKey, run.out()), ERROR_SUCCESS);
    model.setAutoRun(true);
    EXPECT_EQ(value(RunKey, L"VYN"), L"\"" + at(L"tkvyn.exe") + L"\" autorun");
    model.setAutoRun(false);
    EXPECT_EQ(RegQueryValueExW(run.get(), L"VYN", nullptr, nullptr, nullptr, nullptr), ERROR_FILE_NOT_FOUND);
}

// As for a user without rights: here the key that everything lies in has been deleted.
TEST_F(Model, ChoicesThatCannotBeStoredHoldForTheRun) {
    utility::Key deleted;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, L"deleted", deleted.out()), ERROR_SUCCESS);
    ASSERT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"deleted"), ERROR_SUCCESS);
    ASSERT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, deleted.get()), ERROR_SUCCESS);
    test::allowErrors(L"create reg");
    model.setLanguage(L"th_TH");
    model.setPathDir(L"D:\\VYN\\");
    model.setAutoRun(true);
    EXPECT_EQ(value(LauncherKey, L"Language"), L"") << "the key must not be writable here";
    EXPECT_EQ(model.getLanguage(), L"th");
    EXPECT_EQ(model.market.localeCode, L"th_TH");
    EXPECT_EQ(model.getPathDir(), L"D:\\VYN\\");
}

// What a sender with fewer rights may not send never arrives, so what is handled is admitted.
TEST(ChannelMessages, TheOnesThatAreHandledAreAdmitted) {
    const auto isAdmitted = [](UINT message) {
        return std::ranges::find(AdmittedMessages, message) != std::end(AdmittedMessages);
    };
    for (const UINT message : {74, 1024, 9111, 9222, 9333, 9334})
        EXPECT_TRUE(isAdmitted(message)) << message;
    EXPECT_EQ(std::size(AdmittedMessages), 6u) << "and nothing else";
    EXPECT_TRUE(isAdmitted(RaiseWindow) && isAdmitted(GameEnded) && isAdmitted(GameInstalled));
}

} // namespace
