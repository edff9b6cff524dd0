#include "utility/encoding.h"

#include <gtest/gtest.h>

namespace {

using namespace utility;

TEST(Encoding, ConvertsBothWaysAtAnyLength) {
    EXPECT_EQ(utf8ToWide("a\xE4\xB8\xAD\xF0\x9F\x98\x80"), L"a\x4e2d\xD83D\xDE00");
    EXPECT_EQ(utf8ToWide("a\xE4\xB8\xAD", 1), L"a");
    EXPECT_EQ(utf8ToWide(std::string("a\0b", 3)), std::wstring(L"a\0b", 3));
    EXPECT_EQ(ansiToWide("text"), L"text");
    EXPECT_EQ(wideToAnsi(L"text"), "text");
    EXPECT_EQ(wideToAnsi(L"text", 2), "te");
    EXPECT_EQ(ansiToWide(wideToAnsi(std::wstring(70000, L'x'))).size(), 70000u);
}

TEST(Encoding, NothingGivesNothing) {
    for (const int length : {-2, -1, 0, 5}) {
        EXPECT_EQ(ansiToWide(nullptr, length), L"");
        EXPECT_EQ(wideToAnsi(nullptr, length), "");
    }
    EXPECT_EQ(ansiToWide("abc", -2), L"");
    EXPECT_EQ(utf8ToWide("abc", 0), L"");
    EXPECT_EQ(wideToAnsi(L"abc", -2), "");
    EXPECT_EQ(ansiToWide(""), L"");
    EXPECT_EQ(wideToAnsi(std::wstring()), "");
}

TEST(Encoding, SubstitutesWhatIsNoTextAndWhatTheCodePageLacks) {
    EXPECT_EQ(utf8ToWide("a\xFF"
                         "b"),
              L"a\xFFFD"
              L"b");
    const std::string narrow = wideToAnsi(L"[\x0e17\xD800]"); // Thai, and half a pair
    EXPECT_TRUE(narrow.starts_with("[") && narrow.ends_with("]"));
}

} // namespace
