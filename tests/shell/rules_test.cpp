#include "shell/InstallPath.h"
#include "shell/language_choices.h"

#include <gtest/gtest.h>

TEST(InstallPath, OfTheSettingsNamesItsOwnFolder) {
    const struct {
        const wchar_t* choice;
        const wchar_t* path;
    } cases[] = {
        {L"D:\\", L"D:\\VYN\\"},
        {L"D:", L"D:\\VYN\\"},
        {L"D:/", L"D:/VYN\\"},
        {L"D:\\Games", L"D:\\Games\\VYN\\"},
        {L"D:\\VYN", L"D:\\VYN\\"},
        {L"D:\\MyVYNFiles", L"D:\\MyVYNFiles\\"},
        {L"D:\\vyn", L"D:\\vyn\\VYN\\"},
        {L"D:\\게임/", L"D:\\게임/VYN\\"},
        {L"\\\\server\\share", L"\\\\server\\share\\VYN\\"},
    };
    for (const auto& [choice, path] : cases)
        EXPECT_EQ(installPathOf(choice, SettingsFolder), path) << path;
    EXPECT_FALSE(installPathOf(L"", SettingsFolder));
    EXPECT_FALSE(installPathOf(L"D", SettingsFolder));
}

TEST(LanguageChoices, AreTheReleasedOnesWithThePresentOneInFront) {
    const std::vector<std::wstring> table = {L"en_US", L"zh_TW", L"zh_CN", L"ko_KR",
                                             L"vi_VN", L"th_TH", L"de_DE"};
    const struct {
        const wchar_t* present;
        std::vector<std::wstring> codes;
    } cases[] = {
        {L"en_US", {L"en_US", L"zh_CN", L"vi_VN", L"th_TH"}},
        {L"vi_VN", {L"vi_VN", L"en_US", L"zh_CN", L"th_TH"}},
        {L"th_TH", {L"th_TH", L"en_US", L"zh_CN", L"vi_VN"}},
        {L"ko_KR", {L"en_US", L"zh_CN", L"vi_VN", L"th_TH"}}, // offered nowhere
        {L"EN_US", {L"en_US", L"zh_CN", L"vi_VN", L"th_TH"}},
        {L"", {L"en_US", L"zh_CN", L"vi_VN", L"th_TH"}},
    };
    std::vector<LanguageChoice> languages;
    for (const std::wstring& code : table)
        languages.push_back({code, L"name of " + code});
    for (const auto& [present, codes] : cases) {
        std::vector<LanguageChoice> expected;
        for (const std::wstring& code : codes)
            expected.push_back({code, L"name of " + code});
        EXPECT_EQ(releasedLanguages(languages, present), expected) << present;
    }
    EXPECT_TRUE(releasedLanguages({}, L"en_US").empty());
}
