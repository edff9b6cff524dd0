#include "utility/text.h"

#include <gtest/gtest.h>

namespace {

using namespace utility;
using Texts = std::vector<std::string>;

TEST(Text, TrimTakesOnlyBlanksFromTheEnds) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta\n "), "\ta\n");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(L" \x4e2d "), L"\x4e2d");
}

TEST(Text, SplitKeepsEmptyPiecesAndTrimsAll) {
    EXPECT_EQ(split("a.b.", "."), (Texts{"a", "b", ""}));
    EXPECT_EQ(split("..", "."), (Texts{"", "", ""}));
    EXPECT_EQ(split(" a || b|c ", "||"), (Texts{"a", "b|c"}));
    EXPECT_EQ(split("a", "."), (Texts{"a"}));
    EXPECT_EQ(split("", "."), (Texts{}));
    EXPECT_EQ(split("a", ""), (Texts{}));
    EXPECT_EQ(split(L"1, 2", L","), (std::vector<std::wstring>{L"1", L"2"}));
}

TEST(Text, ToLowerLeavesBytesBeyondAsciiAlone) {
    std::string text = "AbC\xC4\xB8Z9";
    toLower(text);
    EXPECT_EQ(text, "abc\xC4\xB8z9");
}

} // namespace
