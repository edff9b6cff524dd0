#include "shell/QzVySetupImpl.h"
#include "shell/settings_text.h"
#include "tests/support/log_watch.h"
#include "utility/files.h"
#include "utility/handles.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

using namespace utility;

namespace {

QzVySetupImpl parsed(const std::string& text) {
    QzVySetupImpl settings;
    parseSettings(text, settings);
    return settings;
}

TEST(SettingsText, ReadsEveryRecordAsItsRuleSays) {
    const struct {
        const char* text;
        const char* result;
    } cases[] = {
        {"", "autorun=1|existgame=1|minbyclose=1|configversion=1000"},
        {"autorun=0|existgame=0|minbyclose=0|configversion=7",
         "autorun=0|existgame=0|minbyclose=0|configversion=7"},
        {" AUTORUN = 0 | ExistGame=0 ", "autorun=0|existgame=0|minbyclose=1|configversion=1000"},
        {"autorun=0|autorun=1", "autorun=1|existgame=1|minbyclose=1|configversion=1000"},
        {"autorun=00|existgame=false|minbyclose=", "autorun=1|existgame=1|minbyclose=1|configversion=1000"},
        {"autorun|=0||existgame|configversion=", "autorun=1|existgame=1|minbyclose=1|configversion=1000"},
        {"configversion=abc", "autorun=1|existgame=1|minbyclose=1|configversion=0"},
        {"configversion=-5x", "autorun=1|existgame=1|minbyclose=1|configversion=-5"},
        {"configversion=99999999999999", "autorun=1|existgame=1|minbyclose=1|configversion=2147483647"},
        {"autorun=0=0|minbyclose\t=0", "autorun=1|existgame=1|minbyclose=1|configversion=1000"},
    };
    for (const auto& [text, result] : cases)
        EXPECT_EQ(formatSettings(parsed(text)), result) << text;
}

TEST(SettingsText, LeavesASwitchOffThatTheTextTurnsOn) {
    QzVySetupImpl settings = parsed("autorun=0");
    parseSettings("autorun=1", settings);
    EXPECT_FALSE(settings.autorun);
}

TEST(SettingsText, PassesOverJunk) {
    std::string junk;
    for (int i = 0; i < 4096; ++i)
        junk += static_cast<char>(i * 37);
    EXPECT_EQ(formatSettings(parsed(junk)), formatSettings(QzVySetupImpl{}));
    EXPECT_FALSE(parsed(junk + "|existgame=0").existgame);
}

class SettingsFile : public testing::Test {
protected:
    void SetUp() override { clear(); }
    void TearDown() override { clear(); }

    static void clear() {
        if (ufile::isExist(path()))
            ufile::removeFile(path());
    }
    static std::wstring path() { return ufile::getModuleDir() + L"config.data"; }

    static std::string content() {
        ufile::MappedFile file;
        if (!file.open(path()) || !file.data())
            return {};
        return {static_cast<const char*>(file.data()), file.getSize()};
    }
    static void write(const std::string& text) {
        ufile::FileHandle file;
        ASSERT_TRUE(file.create(path()));
        ASSERT_TRUE(file.write(text.data(), static_cast<uint32_t>(text.size())));
        file.close();
    }
    static size_t filesOfTheStore() {
        WIN32_FIND_DATAW found;
        const FindHandle search(FindFirstFileW((path() + L"*").c_str(), &found));
        size_t count = search ? 1 : 0;
        while (search && FindNextFileW(search.get(), &found))
            ++count;
        return count;
    }
};

TEST_F(SettingsFile, IsLoggedOnlyWhenItCannotBeOpened) {
    QzVySetupImpl settings;
    settings.loadConfig();
    EXPECT_EQ(test::logged(L"open config file error"), 1);
    test::allowErrors(L"open config file error");
    write("");
    settings.loadConfig();
    EXPECT_EQ(test::logged(L"open config file error"), 1);
    EXPECT_EQ(formatSettings(settings), formatSettings(QzVySetupImpl{}));
}

TEST_F(SettingsFile, ComesBackAsItWasSaved) {
    write(std::string(100000, 'x'));
    QzVySetupImpl settings;
    settings.existgame = false;
    settings.configversion = 1007;
    settings.saveConfig();
    EXPECT_EQ(content(), "autorun=1|existgame=0|minbyclose=1|configversion=1007");
    QzVySetupImpl loaded;
    loaded.loadConfig();
    EXPECT_EQ(formatSettings(loaded), formatSettings(settings));
    EXPECT_EQ(filesOfTheStore(), 1u);
}

TEST_F(SettingsFile, SurvivesASaveThatCannotReplaceIt) {
    write("autorun=0");
    {
        // Shares nothing, so that it can be neither replaced nor removed.
        const FileOwner lock(
            CreateFileW(path().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(lock);
        QzVySetupImpl{}.saveConfig();
    }
    EXPECT_EQ(test::logged(L"move file"), 1);
    test::allowErrors(L" file from"); // moved and removed
    EXPECT_EQ(content(), "autorun=0");
    EXPECT_EQ(filesOfTheStore(), 1u);
}

// Two threads save while a third reads: no reader ever finds a file that is missing,
// empty or mixed.
TEST_F(SettingsFile, IsWholeAtEveryMomentOfConcurrentSaves) {
    test::allowErrors(L"move file"); // while the reader has it open
    QzVySetupImpl{}.saveConfig();
    std::atomic<int> running = 2;
    std::vector<std::thread> writers;
    for (const bool on : {false, true})
        writers.emplace_back([on, &running] {
            QzVySetupImpl settings;
            settings.autorun = on;
            settings.configversion = on ? 1000 : 1234567;
            for (int i = 0; i < 100; ++i)
                settings.saveConfig();
            --running;
        });
    int wrong = 0;
    while (running != 0) {
        const std::string text = content();
        if (!text.empty() && text != "autorun=1|existgame=1|minbyclose=1|configversion=1000" &&
            text != "autorun=0|existgame=1|minbyclose=1|configversion=1234567")
            ++wrong;
        if (!ufile::isExist(path()))
            ++wrong;
    }
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_FALSE(content().empty());
    EXPECT_EQ(filesOfTheStore(), 1u);
}

// Starts the program that saves for ever and gives it time for some saves.
HANDLE startSaver(DWORD milliseconds) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION child = {};
    std::wstring command = L"\"" + ufile::getModuleDir() + L"settings_saver.exe\"";
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &child))
        return nullptr;
    CloseHandle(child.hThread);
    const DWORD start = GetTickCount();
    while (!ufile::isExist(ufile::getModuleDir() + L"config.data") && GetTickCount() - start < 10000)
        Sleep(1);
    Sleep(milliseconds);
    return child.hProcess;
}

TEST_F(SettingsFile, IsTheOldOrTheNewOneWhenTheProgramIsKilled) {
    int first = 0, second = 0;
    for (int round = 0; round < 16; ++round) {
        const FileOwner saver(startSaver(round % 8));
        ASSERT_TRUE(saver);
        TerminateProcess(saver.get(), 1);
        WaitForSingleObject(saver.get(), 10000);
        const std::string left = content();
        first += left == "autorun=1|existgame=0|minbyclose=1|configversion=1001";
        second += left == "autorun=0|existgame=1|minbyclose=0|configversion=1234567";
        QzVySetupImpl{}.loadConfig();
        EXPECT_EQ(filesOfTheStore(), 1u) << "what the killed save left is cleared away";
    }
    EXPECT_EQ(first + second, 16);
}

} // namespace
