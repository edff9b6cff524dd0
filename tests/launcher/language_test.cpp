// The language table that the program carries, as its translators left it.

#include "tests/launcher/support.h"
#include "utility/text.h"

namespace {

using Row = std::vector<std::string>;
constexpr size_t Columns = 21;

class LanguageFile : public launcher_test::Stage {
protected:
    static std::vector<Row> rows() {
        std::vector<Row> rows;
        for (const std::string& line : utility::split(read(L"multi_language.tsv"), "\r\n"))
            if (!line.empty())
                rows.push_back(utility::split(line, "\t"));
        return rows;
    }
};

TEST_F(LanguageFile, EveryRowHasEveryColumn) {
    for (const Row& row : rows())
        EXPECT_EQ(row.size(), Columns) << row[1];
}

TEST_F(LanguageFile, EveryTextIsTranslated) {
    for (const Row& row : rows())
        for (size_t column = 1; column < row.size(); ++column)
            EXPECT_TRUE(row[0] == "url" || !row[column].empty()) << row[1] << ", column " << column;
}

TEST_F(LanguageFile, HoldsWhatTheCodeAsksFor) {
    const auto table = rows();
    const auto english = [&](const std::string& key) {
        for (const Row& row : table)
            if (row[1] == key)
                return row[2];
        return std::string();
    };
    EXPECT_EQ(english("language_code"), "en_US");
    EXPECT_EQ(english("launcher_download_game"), "Download Game");
    EXPECT_EQ(english("launcher_start_game"), "Launch");
    EXPECT_EQ(english("update_window_text"), "Update");
    EXPECT_EQ(english("launcher_btn_installing"), "Installing");
    EXPECT_EQ(english("launcher_downloading"), "Downloading Essential Files:");
    EXPECT_EQ(english("launcher_lefttime"), "Time Remaining:");
    EXPECT_EQ(english("launcher_speed"), "Download Speed:");
    EXPECT_EQ(english("install_changepath"), "Choose an installation path");
    EXPECT_EQ(english("launcher_installing_player"), "Installing...");
}

} // namespace
