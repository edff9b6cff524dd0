#include "uilib/core/ui_string.h"
#include "uilib/core/utf8.h"

#include <gtest/gtest.h>

using namespace UILib;

namespace {

CUIString repeated(wchar_t unit, size_t count) {
    return std::wstring(count, unit);
}

} // namespace

// Both sides of the border between the inline buffer and the heap.
TEST(CUIString, HoldsTextOfEveryLengthAroundItsInlineBuffer) {
    for (size_t length : {0, 1, 62, 63, 64, 65, 127, 128, 5000}) {
        const CUIString original = repeated(L'x', length);
        CUIString copy(original), moved(std::move(copy)), assigned;
        assigned = moved;
        EXPECT_EQ(original.GetLength(), static_cast<int>(length));
        EXPECT_TRUE(moved == original && assigned == original) << length;
        EXPECT_EQ(assigned.GetData()[length], L'\0');
        EXPECT_TRUE(copy.IsEmpty()); // a moved-from string is an empty one
        copy += L"again";
        EXPECT_TRUE(copy == L"again");
    }
}

TEST(CUIString, AppendsAndAssignsPartsOfItself) {
    CUIString text(L"abc");
    for (int i = 0; i < 8; ++i)
        text += text;
    EXPECT_EQ(text.GetLength(), 3 * 256);
    EXPECT_EQ(text.Find(L"ac"), -1);
    text.Assign(text.GetData() + 765);
    EXPECT_TRUE(text == L"abc");
    text = text.GetData() + 1;
    EXPECT_TRUE(text == L"bc");
}

TEST(CUIString, FindsReplacesAndCuts) {
    CUIString text(L"one<n>two<n>");
    EXPECT_EQ(text.Replace(L"<n>", L"\r\n"), 2);
    EXPECT_TRUE(text == L"one\r\ntwo\r\n");
    EXPECT_EQ(text.Replace(L"zz", L"y"), 0);
    EXPECT_TRUE(text.Left(3) == L"one");
    EXPECT_TRUE(text.Mid(5, 3) == L"two");
    EXPECT_TRUE(text.Mid(99).IsEmpty() && text.Mid(-5, 3) == L"one");
    EXPECT_EQ(text.Find(L'o', 1), 7);
}

TEST(CUIString, ComparesByUnitsAndBlindToCase) {
    EXPECT_TRUE(CUIString(L"Z") < CUIString(L"a"));
    EXPECT_EQ(CUIString(L"Button").CompareNoCase(L"bUTTON"), 0);
    EXPECT_LT(CUIString(L"abc").CompareNoCase(L"ABD"), 0);
    EXPECT_GT(CUIString(L"abc").CompareNoCase(L"AB"), 0);
    EXPECT_TRUE(equalNoCase(L"GifAnim", L"gifanim"));
    EXPECT_FALSE(equalNoCase(L"Gif", L"GifAnim"));
}

TEST(Utf8, ReplacesEachDamagedByteAndKeepsTheRest) {
    const struct {
        std::string_view bytes;
        std::wstring_view text;
    } cases[] = {
        {"plain ascii longer than a block", L"plain ascii longer than a block"},
        {"\xED\x95\x9C\xEA\xB5\xAD", L"\xD55C\xAD6D"},
        {"\xF0\x9F\x98\x80", L"\U0001F600"},
        {"a\xC3", L"a\xFFFD"},     // cut short
        {"\xE2\x82<", L"\xFFFD<"}, // and something else instead of the rest
        {"\xF0\x9F\x98\xE2\x82\xAC", L"\xFFFD\x20AC"},
        {"\xC0\x80", L"\xFFFD\xFFFD"},           // overlong
        {"\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD"}, // a surrogate
        {"\xF5\x80\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\x80"
         "b",
         L"\xFFFD"
         L"b"},
    };
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(wideFromUtf8(bytes), text);
    const std::wstring mixed = L"h\xE9 \x4E2D \U0001F600";
    EXPECT_EQ(wideFromUtf8(utf8FromWide(mixed)), mixed);
    EXPECT_EQ(utf8FromWide(std::wstring(1, wchar_t(0xDC00))), "\xEF\xBF\xBD");
}
