#include "archive/entry_name.h"

#include <gtest/gtest.h>

using archive::EntryKind;
using archive::judgeName;
using archive::NameRule;

namespace {

NameRule ruleOf(std::wstring_view name, EntryKind kind = EntryKind::File) {
    std::wstring path;
    return judgeName(name, kind, path);
}

std::wstring pathOf(std::wstring_view name, EntryKind kind = EntryKind::File) {
    std::wstring path = L"?";
    EXPECT_EQ(judgeName(name, kind, path), NameRule::Accepted);
    return path;
}

} // namespace

TEST(EntryName, acceptedNamesBecomeCleanRelativePaths) {
    EXPECT_EQ(pathOf(L"a/b\\c.txt"), L"a/b/c.txt");
    EXPECT_EQ(pathOf(L"./a//b/./c"), L"a/b/c");
    EXPECT_EQ(pathOf(L"folder/", EntryKind::Folder), L"folder");
    EXPECT_EQ(pathOf(L".", EntryKind::Folder), L"");
    EXPECT_EQ(pathOf(L" leading blank/.hidden"), L" leading blank/.hidden");
}

TEST(EntryName, namesThatOnlyLookLikeDevicesPass) {
    for (const wchar_t* name : {L"console", L"nul1", L"com", L"com10", L"lpt", L"aux_file", L"a.con",
                                L"conin", L"COM\u2074", L"\uFF23\uFF2F\uFF2E"})
        EXPECT_EQ(ruleOf(name), NameRule::Accepted) << name;
}

TEST(EntryName, devicesAreRefusedInEveryForm) {
    for (const wchar_t* name :
         {L"CON", L"con", L"Prn.txt", L"aux.tar.gz", L"nul .x", L"a/COM1", L"lpt9.log", L"com0", L"COM\u00B9",
          L"lpt\u00B3.txt", L"conin$", L"CONOUT$.x", L"con/file"})
        EXPECT_EQ(ruleOf(name), NameRule::DeviceName) << name;
}

TEST(EntryName, theRuleIsNamed) {
    const std::pair<const wchar_t*, NameRule> cases[] = {
        {L"", NameRule::NoName},
        {L"./", NameRule::NoName},
        {L"file/.", NameRule::NoName},
        {L"file/", NameRule::NoName},
        {L"/a", NameRule::Absolute},
        {L"\\a", NameRule::Absolute},
        {L"\\\\server\\share", NameRule::Unc},
        {L"/\\?/C:", NameRule::Unc},
        {L"c:/a", NameRule::DriveLetter},
        {L"Z:", NameRule::DriveLetter},
        {L"..", NameRule::ClimbsOut},
        {L"a\\../b", NameRule::ClimbsOut},
        {L"a:b", NameRule::DriveLetter},
        {L"ab:c", NameRule::AlternateStream},
        {L"x/file::$DATA", NameRule::AlternateStream},
        {L"a*", NameRule::ForbiddenCharacter},
        {L"a\x1f", NameRule::ForbiddenCharacter},
        {L"a/b. /c", NameRule::TrailingDotOrBlank},
        {L"...", NameRule::TrailingDotOrBlank},
        {L".. ", NameRule::TrailingDotOrBlank},
    };
    for (const auto& [name, rule] : cases)
        EXPECT_EQ(ruleOf(name), rule) << name;
}

TEST(EntryName, theLongestNameFillsTheFieldWithItsTerminator) {
    EXPECT_EQ(ruleOf(std::wstring(259, L'x')), NameRule::Accepted);
    EXPECT_EQ(ruleOf(std::wstring(260, L'x')), NameRule::TooLong);
}
