#include "uilib/core/paint_manager.h"

#include "tests/support/log_watch.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

// Where skin files, texts and colours come from. This program lies in a folder of its own, so
// that what it lays beside itself is seen by no other.

using namespace UILib;
namespace fs = std::filesystem;

namespace {

class SkinFiles : public testing::Test {
protected:
    SkinFiles() : folder(fs::temp_directory_path() / ("vyn-skin-" + std::to_string(GetCurrentProcessId()))) {
        fs::create_directories(folder / "vyn");
        CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
    }
    ~SkinFiles() override {
        CPaintManagerUI::SetResourcePath(L"");
        fs::remove_all(folder);
        for (const char* name : {"colors.ini", "beside.tsv"})
            fs::remove(beside(name));
    }
    static fs::path beside(const char* name) {
        return fs::path(CPaintManagerUI::GetInstancePath().GetData()) / name;
    }
    static void write(const fs::path& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }
    static void archive(const wchar_t* name, const std::string& text) {
        CPaintManagerUI::AddArchiveEntry(name, text.data(), static_cast<uint32_t>(text.size()));
    }
    static std::string load(const std::wstring& name) {
        uint32_t size = 99;
        const auto bytes = CPaintManagerUI::LoadFileBytes(name.c_str(), size);
        if (!bytes)
            return size == 0 ? "(none)" : "(none, with a size)";
        return {reinterpret_cast<const char*>(bytes.get()), size};
    }
    static std::wstring textOf(const wchar_t* key) {
        const wchar_t* text = CPaintManagerUI::GetLanguageText(key);
        return text ? text : L"(none)";
    }
    static std::string table(const std::string& rows) {
        return " \tlanguage_code\ten_US\tth_TH\r\nL\tlanguage_name\tEnglish\tThai\r\n" + rows;
    }

    fs::path folder;
};

} // namespace

TEST_F(SkinFiles, ALooseFileBeatsTheArchive) {
    archive(L"vyn/a.txt", "archived");
    EXPECT_EQ(load(L"vyn\\a.txt"), "archived");
    EXPECT_EQ(load(L"vyn/a.txt"), "archived");
    EXPECT_EQ(load(L"VYN/a.txt"), "(none)");
    write(folder / "vyn/a.txt", "loose");
    EXPECT_EQ(load(L"vyn/a.txt"), "archived") << "no skin folder yet";
    CPaintManagerUI::SetResourcePath(folder.wstring());
    EXPECT_EQ(load(L"vyn\\a.txt"), "loose");
    write(folder / "vyn/a.txt", "");
    EXPECT_EQ(load(L"vyn\\a.txt"), "archived") << "an empty file is none";
    archive(L"vyn/a.txt", "newer");
    EXPECT_EQ(load(L"vyn/a.txt"), "newer");
    EXPECT_EQ(load(L""), "(none)");
    EXPECT_EQ(load(L"none"), "(none)");
    write(folder / "b.txt", "by its whole path");
    CPaintManagerUI::SetResourcePath(L"");
    EXPECT_EQ(load((folder / "b.txt").wstring()), "by its whole path");
}

TEST_F(SkinFiles, TheSkinFolderEndsInASeparatorAndHasToExist) {
    CPaintManagerUI::SetResourcePath(folder.wstring());
    EXPECT_TRUE(CPaintManagerUI::GetResourcePath() == (folder.wstring() + L"\\").c_str());
    CPaintManagerUI::SetResourcePath((folder / "missing").wstring());
    EXPECT_TRUE(CPaintManagerUI::GetResourcePath().IsEmpty());
    const fs::path own(CPaintManagerUI::GetInstancePath().GetData());
    EXPECT_EQ(own.filename(), "") << "ends in a separator";
    EXPECT_TRUE(fs::exists(own));
    EXPECT_GE(CPaintManagerUI::GetOSMajorVersion(), 6u);
    EXPECT_EQ(CPaintManagerUI::GetResourceDll(), CPaintManagerUI::GetInstance());
}

TEST_F(SkinFiles, ATableBesideTheProgramIsTheOnlyCandidate) {
    archive(L"beside.tsv", table("L\twho\tarchive\tA\n"));
    CPaintManagerUI::SetLanguageCode(L"", L"th_TH");
    EXPECT_TRUE(CPaintManagerUI::GetLanguageCode() == L"th_TH");
    CPaintManagerUI::SetLanguageCode(L"en_US", L"th_TH");
    EXPECT_TRUE(CPaintManagerUI::GetLanguageCode() == L"en_US");
    CPaintManagerUI::LoadLanguageTable(L"beside.tsv");
    EXPECT_EQ(textOf(L"who"), L"archive");
    write(beside("beside.tsv"), table("L\twho\tbeside\tB\n"));
    CPaintManagerUI::LoadLanguageTable(L"beside.tsv");
    EXPECT_EQ(textOf(L"who"), L"beside");
    archive(L"beside.tsv", table("L\twho\tagain\tA\n"));
    write(beside("beside.tsv"), "");
    CPaintManagerUI::LoadLanguageTable(L"beside.tsv");
    EXPECT_NE(textOf(L"who"), L"again");
    EXPECT_EQ(test::logged(L"unusable language file beside.tsv"), 1);
    archive(L"short.tsv", "0123456789"); // too short to be one: left unread
    CPaintManagerUI::LoadLanguageTable(L"short.tsv");
    EXPECT_EQ(CPaintManagerUI::GetLanguageCount(), 2);
    archive(L"short.tsv", "0123456789\t");
    CPaintManagerUI::LoadLanguageTable(L"short.tsv");
    EXPECT_NE(CPaintManagerUI::GetLanguageCount(), 2);
}

TEST_F(SkinFiles, TellsOfTheLanguagesInTheTable) {
    const std::string bytes = table("L\tempty\t\tx\n");
    CPaintManagerUI::SetLanguageCode(L"en_US", L"");
    CPaintManagerUI::ParseLanguageTable(bytes.data(), static_cast<uint32_t>(bytes.size()));
    EXPECT_EQ(CPaintManagerUI::GetLanguageCount(), 2);
    CUIString code, name;
    CPaintManagerUI::GetLanguageInfo(1, code, name);
    EXPECT_TRUE(code == L"th_TH" && name == L"Thai");
    CPaintManagerUI::GetLanguageInfo(0, code, name);
    EXPECT_TRUE(code == L"en_US" && name == L"English");
    for (const int wrong : {-1, -2, 2, 100})
        CPaintManagerUI::GetLanguageInfo(wrong, code, name);
    EXPECT_TRUE(code == L"en_US" && name == L"English") << "left as they were";
}

TEST_F(SkinFiles, ResolvesKeysAndLeavesTheRest) {
    CPaintManagerUI::AddLanguageText(L"k", L"text");
    CPaintManagerUI::AddLanguageText(L"", L"of nothing");
    const struct {
        const wchar_t *text, *shown;
    } cases[] = {{L"@k", L"text"}, {L"@", L"@"}, {L"", L""}, {L"k", L"k"}, {L"@unknown key", L"@unknown key"},
                 {L"@@k", L"@@k"}};
    for (const auto& [text, shown] : cases) {
        CUIString resolved(text);
        CPaintManagerUI::ResolveLanguageKey(resolved);
        EXPECT_TRUE(resolved == shown) << fs::path(text);
    }
    EXPECT_STREQ(languageText("k"), L"text");
    EXPECT_EQ(textOf(L"not yet"), L"(none)");
    EXPECT_STREQ(languageText("not yet"), L"not yet");
    EXPECT_EQ(textOf(L"not yet"), L"not yet");
}

TEST_F(SkinFiles, AnInstallationMayOverrideColours) {
    EXPECT_EQ(CPaintManagerUI::GetCustomColor(4), 0xFFF5F5F5u);
    EXPECT_EQ(CPaintManagerUI::GetCustomColor(0), 0xFF16171Fu);
    EXPECT_EQ(CPaintManagerUI::GetCustomColor(6), 0xFFEAEAEBu);
    EXPECT_EQ(CPaintManagerUI::GetCustomColor(7), 0u);
    EXPECT_EQ(CPaintManagerUI::GetCustomColor(-1), 0u);
    write(beside("colors.ini"), "[setting]\r\nmainToolbar=80112233\r\nsetupBottomBar=FF445566\r\n");
    CPaintManagerUI::LoadCustomColors();
    const uint32_t wanted[] = {0x80112233, 0xFF20203A, 0xFF1F1F39, 0xFF06061F,
                               0xFF20203A, 0xFF20203A, 0xFF445566, 0};
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(CPaintManagerUI::GetCustomColor(i), wanted[i]) << i;
}
