#include "kit/text_table.h"

#include <gtest/gtest.h>

namespace kit {
namespace {

constexpr char Header[] = " \tlanguage_code\ten_US\tko_KR\r\nLanguage\tlanguage_name\tEnglish\tKorean\r\n";

TextTable tableOf(const std::string& lines, Findings& findings) {
    return readTextTable(Header + lines, findings);
}

TEST(TextTable, KeepsEveryLanguageOfALineAndItsPlace) {
    Findings findings;
    const TextTable table = tableOf("Label\tclose\tClose\tShut\r\n", findings);
    EXPECT_TRUE(findings.empty());
    EXPECT_EQ(table.codes, (std::vector<std::string>{"en_US", "ko_KR"}));
    ASSERT_EQ(table.rows.size(), 2u);
    EXPECT_EQ(table.rows[1].line, 3u);
    EXPECT_EQ(table.rows[1].kind, "Label");
    EXPECT_EQ(table.rows[1].key, "close");
    EXPECT_EQ(table.rows[1].texts, (std::vector<std::string>{"Close", "Shut"}));
}

TEST(TextTable, TellsLinesThatTheProgramWouldMisread) {
    const std::pair<const char*, const char*> cases[] = {
        {"Label\tclose\tClose\r\n", "line 3: 3 fields, not 4"},
        {"\tclose\tClose\tShut\r\n", "line 3: an empty first field, so the line loses its key"},
        {"Label\tmin\tA\tB\r\nLabel\tmin\tC\tD\r\n", "line 4: min for the second time"},
        {"Label\tclose\tClose\tShut\n", "line 3: no CR LF at its end"},
    };
    for (const auto& [lines, expected] : cases) {
        Findings findings;
        tableOf(lines, findings);
        EXPECT_EQ(findings, Findings{expected}) << lines;
    }
}

TEST(TextTable, MissesTextsButNotLinksThatAreLeftOut) {
    Findings findings;
    const TextTable table =
        tableOf("Label\ta\tA\t \r\nLabel\tb\t\tB\r\nurl\tc\t\t \r\nurl\td\thttp://d\t\r\n", findings);
    findMissingCells(table, findings);
    EXPECT_EQ(findings,
              (Findings{"line 3, a: no text for ko_KR", "line 4, b: no text for en_US",
                        "line 6, d: its last cell is empty, so the key would show; put a blank there"}));
}

TEST(TextTable, ComparesPlaceholdersInTheirOrder) {
    Findings findings;
    const TextTable table =
        tableOf("Label\tsame\t%d of %s\t%d / %s\r\nLabel\tswapped\t%d of %s\t%s of %d\r\n"
                "Label\tdropped\t%02d\t-\r\nLabel\tplain\t100%%\t100\r\nurl\tcode\ta%20b\tab\r\n",
                findings);
    findDifferentPlaceholders(table, findings);
    EXPECT_EQ(findings, (Findings{"line 4, swapped: ko_KR has other placeholders than en_US",
                                  "line 5, dropped: ko_KR has other placeholders than en_US"}));
}

TEST(TextTable, FindsKeysOnBothSidesThatMeetNothing) {
    Findings findings;
    const TextTable table = tableOf("Label\tused\tA\tB\r\nLabel\tidle\tA\tB\r\n", findings);
    findLackingKeys(table, {{"used", "a.xml"}, {"gone", "b.cpp"}}, findings);
    findUnusedKeys(table, {"used"}, findings);
    EXPECT_EQ(findings, (Findings{"b.cpp: the table lacks gone", "line 4, idle: nobody uses it"}));
}

TEST(TextTable, TakesKeysFromMarkupAndSource) {
    EXPECT_EQ(keysOfMarkup(R"(<Label text="@a_b" tooltip="@c"/><Label text="@"/><Label text="a@d"/>)"),
              (std::set<std::string>{"a_b", "c"}));
    const SourceKeys keys =
        keysOfSource(R"(f(languageText("one")); GetLanguageText(L"two"); x = {"three", "a\"b"};
                                            call("languageText(");)");
    EXPECT_EQ(keys.asked, (std::set<std::string>{"one", "two"}));
    EXPECT_EQ(keys.literals, (std::set<std::string>{"one", "two", "three", "a\"b", "languageText("}));
}

TEST(TextTable, EndsAtTextsThatBreakOff) {
    EXPECT_EQ(keysOfMarkup("<Label text=\"@open").size(), 1u);
    EXPECT_EQ(keysOfSource("languageText(\"open\nnext \"").asked, std::set<std::string>{"open"});
    Findings findings;
    findDifferentPlaceholders(tableOf("Label\tend\t5%\t5% \r\n", findings), findings);
    EXPECT_TRUE(findings.empty());
    EXPECT_TRUE(readTextTable("", findings).rows.empty());
}

} // namespace
} // namespace kit
