#include "uilib/core/language_table.h"

#include <gtest/gtest.h>

using namespace UILib;

namespace {

const std::string Head =
    " \tlanguage_code\ten_US\tko_KR\tfr_FR\r\n"
    "Language\tlanguage_name\tEnglish\t\xED\x95\x9C\xEA\xB5\xAD\xEC\x96\xB4\tFran\xC3\xA7"
    "ais\r\n";

LanguageTable parse(const std::string& bytes, const wchar_t* code) {
    LanguageTable table;
    parseLanguageTable(bytes, code, table);
    return table;
}

std::wstring textOf(const LanguageTable& table, const wchar_t* key) {
    const auto hit = table.texts.find(key);
    return hit == table.texts.end() ? L"(none)" : hit->second.GetData();
}

} // namespace

TEST(LanguageTable, ReadsTheColumnOfTheCodeOrElseTheFirst) {
    const std::string bytes = Head + "Button\tok\tOK\tYes!\tD'accord\r\n";
    EXPECT_EQ(textOf(parse(bytes, L"ko_KR"), L"ok"), L"Yes!");
    EXPECT_EQ(textOf(parse(bytes, L"fr_FR"), L"ok"), L"D'accord");
    EXPECT_EQ(textOf(parse(bytes, L"EN_us"), L"ok"), L"OK");
    const LanguageTable table = parse(bytes, L"ko_KR");
    EXPECT_EQ(table.languageCount(), 3);
    EXPECT_TRUE(table.names[3] == L"\xD55C\xAD6D\xC5B4");
}

TEST(LanguageTable, TreatsRowsByTheFieldsTheyHave) {
    const struct {
        const char* row;
        const wchar_t* key;
        const wchar_t* text; // in the last language
    } cases[] = {
        {"Label\tk\ta\tb\tc\n", L"k", L"c"},
        {"Label\tk\ta\tb\t\n", L"k", L"(none)"},        // an empty last cell is no field
        {"Label\tk\ta\tb\t\t\n", L"k", L""},            // but a further tab makes it one
        {"\t\t\t\nLabel\tk\ta\tb\tc", L"k", L"c"},      // a line of tabs is no line
        {"\tk\ta\tb\tc\td\n", L"a", L"d"},              // a lost first field shifts the row
        {"L\tk\t1\t2\t3\nL\tk\t4\t5\t6\n", L"k", L"6"}, // the later line wins
        {"L\tk\t1\t2\t3\n\0", L"k", L"3"},
        {"L\tk\t1\t2\t<n>\\t%d\n", L"k", L"<n>\\t%d"}, // no escapes
    };
    for (const auto& [row, key, text] : cases)
        EXPECT_EQ(textOf(parse(Head + row, L"fr_FR"), key), text) << row;
}

TEST(LanguageTable, StopsAtALineThatBeginsWithNul) {
    const std::string bytes = Head + "L\ta\t1\t2\t3\n" + std::string(1, '\0') + "L\tb\t1\t2\t3\n";
    const LanguageTable table = parse(bytes, L"en_US");
    EXPECT_EQ(textOf(table, L"a"), L"1");
    EXPECT_EQ(textOf(table, L"b"), L"(none)");
}

TEST(LanguageTable, KeepsRowsButNoTextsWhenTheHeadIsWrong) {
    for (const char* bytes : {"", "\t\t", "x\ty\tz\nx\ty\tz\nL\tk\ta\n", " \tlanguage_code\ten_US\n",
                              " \tlanguage_code\ten_US\n \tnames\tE\nL\tk\ta\n"})
        EXPECT_TRUE(parse(bytes, L"en_US").texts.empty()) << bytes;
    EXPECT_EQ(parse(" \tlanguage_code\ten_US\n", L"en_US").languageCount(), 1);
}

TEST(LanguageTable, LeavesAFieldThatIsTooLongEmpty) {
    const std::string fits(511, 'x'), tooLong(512, 'x'), wide = [] {
        std::string bytes;
        for (int i = 0; i < 511; ++i)
            bytes += "\xE4\xB8\xAD";
        return bytes;
    }();
    const LanguageTable table =
        parse(Head + "L\ta\t" + fits + "\nL\tb\t" + tooLong + "\nL\tc\t" + wide + "\n", L"en_US");
    EXPECT_EQ(textOf(table, L"a").size(), 511u);
    EXPECT_EQ(textOf(table, L"b"), L"");
    EXPECT_EQ(textOf(table, L"c").size(), 511u);
}
