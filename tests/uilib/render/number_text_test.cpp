#include "uilib/core/number_text.h"

#include <gtest/gtest.h>

using namespace UILib;

namespace {

struct Case {
    const wchar_t* text;
    int base;
    int32_t value;
    const wchar_t* rest;
};

} // namespace

TEST(NumberText, shouldReadAsTheRuntimeDoesWith32Bits) {
    const Case cases[] = {
        {L"12,13", 10, 12, L",13"},
        {L"  -7x", 10, -7, L"x"},
        {L"+", 10, 0, L"+"},
        {L"", 10, 0, L""},
        {L"0x1F", 16, 0x1F, L""},
        {L"0xg", 16, 0, L"xg"},
        {L"FF17171A", 16, 0x7FFFFFFF, L""},
        {L"ff0000", 16, 0xFF0000, L""},
        {L"99999999999999999999", 10, 0x7FFFFFFF, L""},
        {L"-99999999999", 10, INT32_MIN, L""},
        {L"-2147483648", 10, INT32_MIN, L""},
    };
    for (const Case& test : cases) {
        std::wstring_view text = test.text;
        EXPECT_EQ(test.value, readInteger(text, test.base)) << test.base;
        EXPECT_EQ(std::wstring_view(test.rest), text);
    }
}

TEST(NumberText, shouldKeepAllBitsOfAColour) {
    EXPECT_EQ(0xFFD3215Fu, readColor(L"#FFD3215F"));
    EXPECT_EQ(0x80FFFFFFu, readColor(L"80ffffff"));
    EXPECT_EQ(0xFFFFFFFFu, readColor(L"#123456789"));
    EXPECT_EQ(0u, readColor(L"##"));
}

TEST(NumberText, shouldReadFourNumbersWhateverStandsBetween) {
    EXPECT_EQ((Box{1, 2, 3, 4}), readBox(L"1,2,3,4"));
    EXPECT_EQ((Box{1, -2, 3, 4}), readBox(L"1 -2;3x4,5"));
    EXPECT_EQ((Box{7, 0, 0, 0}), readBox(L"7"));
    EXPECT_EQ((Box{CoordinateLimit, -CoordinateLimit, 0, 0}), readBox(L"2147483647,-2147483648"));
}
