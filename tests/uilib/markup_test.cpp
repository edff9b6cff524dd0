#include "uilib/core/markup.h"
#include "uilib/core/utf8.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

using namespace UILib;

namespace {

// Attributes and children of a whole document on one line: a[b=1 c=2](d e).
std::wstring describe(CMarkupNode node) {
    std::wstring text;
    for (; node.IsValid(); node = node.GetSibling()) {
        text += text.empty() ? L"" : L" ";
        text += node.GetName();
        for (int i = 0; i < node.GetAttributeCount(); ++i)
            text +=
                (i ? L" " : L"[") + std::wstring(node.GetAttributeName(i)) + L"=" + node.GetAttributeValue(i);
        text += node.HasAttributes() ? L"]" : L"";
        if (node.HasChildren())
            text += L"(" + describe(node.GetChild()) + L")";
    }
    return text;
}

std::wstring parse(std::wstring_view document) {
    CMarkup markup, fromBytes;
    const bool loaded = markup.Load(document);
    EXPECT_EQ(fromBytes.LoadUtf8(utf8FromWide(document)), loaded);
    if (loaded) {
        EXPECT_EQ(describe(fromBytes.GetRoot()), describe(markup.GetRoot()));
        return describe(markup.GetRoot());
    }
    EXPECT_STREQ(fromBytes.GetLastErrorLocation(), markup.GetLastErrorLocation());
    return std::wstring(L"! ") + markup.GetLastErrorMessage() + L" at " + markup.GetLastErrorLocation();
}

} // namespace

TEST(CMarkup, ReadsElementsAttributesAndEntities) {
    const struct {
        std::wstring_view document;
        std::wstring_view result;
    } cases[] = {
        {L"", L""},
        {L"  \r\n ", L""},
        {L"<a b=\"1\"/>", L"a[b=1]"},
        {L"<a/>", L"a"},
        {L"<a ></a>", L"a"},
        {L"<a><b/><c x=\"1\"></c></a>", L"a(b c[x=1])"},
        {L"<a>text<b/>\n</a>", L"a(b)"},
        {L"<a x = \"1\"y=\"2\" />", L"a[x=1 y=2]"},
        {L"<a x=\"\" y=\" \"/>", L"a[x= y= ]"},
        {L"<a x=\"1&amp;2\"/>", L"a[x=1&2]"},
        {L"<a x=\"R&D\" y=\"&lt;&gt;&quot;&apos;&amp;&\" z=\"&&amp;lt;\"/>", L"a[x=R&D y=<>\"'&& z=&&lt;]"},
        {L"<a x=\"&#65;\" y=\"3\"></a>", L"a[x=&#65; y=3]"},
        {L"<a x=\"it's <b>\"/>", L"a[x=it's <b>]"},
        {L"<?xml version=\"1.0\" ?><!-- note --><a><!-- <x> --><b/></a>", L"a(b)"},
        {L"<a:b_1/>", L"a:b_1"},
        {L"<a/><b/>", L"a b"},
        {L"<a/></b> whatever", L"a"},
    };
    for (const auto& [document, result] : cases)
        EXPECT_EQ(parse(document), result) << std::string(document.begin(), document.end());
}

TEST(CMarkup, TakesLettersOfEveryScriptInNames) {
    std::setlocale(LC_CTYPE, "C.UTF-8"); // elsewhere than on Windows the locale knows the letters
    const std::wstring wide = L"<\x540D\xE9 \x540D=\"\x4E2D\"/>";
    EXPECT_EQ(parse(wide), L"\x540D\xE9[\x540D=\x4E2D]");
    CMarkup markup;
    ASSERT_TRUE(markup.LoadUtf8(utf8FromWide(wide)));
    EXPECT_EQ(describe(markup.GetRoot()), L"\x540D\xE9[\x540D=\x4E2D]");
    EXPECT_EQ(parse(L"<a\x2014/>"), L"a"); // a dash is no letter, and ends the name as a blank does
    // What takes two wide characters ends it with the first, and the second is too much.
    EXPECT_FALSE(markup.LoadUtf8("<a\xF0\x9F\x98\x80 x=\"1\"/>"));
    EXPECT_STREQ(markup.GetLastErrorMessage(), L"Error while parsing attributes");
}

TEST(CMarkup, ForgivesAMissingEndOfTheRootAndNothingDeeper) {
    EXPECT_EQ(parse(L"<a><b/>"), L"a(b)");
    EXPECT_EQ(parse(L"<a><b></b> "), L"a(b)");
    // A bare name whose element breaks off in its text is never terminated.
    EXPECT_EQ(parse(L"<a x=\"1\"><b>"), L"a[x=1](b>)");
    EXPECT_EQ(parse(L"<a><b >"), L"a(b)");
    EXPECT_EQ(parse(L"<a>t &lt; e"), L"a>t < e;  ");
    EXPECT_EQ(parse(L"<a x=\"1\">&amp;"), L"a[x=1]");
    EXPECT_EQ(parse(L"<a><b><c/>"), L"! Expected start tag at ");
    EXPECT_EQ(parse(L"<a><b><c>"), L"! Expected end-tag start at ");
}

TEST(CMarkup, NamesWhatIsWrongAndWhere) {
    const struct {
        std::wstring_view document;
        std::wstring_view error;
    } cases[] = {
        {L"text", L"! Expected start tag at text"},
        {L"<a><b/>text</a>", L"! Expected start tag at text</a>"},
        {L"<a", L"! Error parsing element name at "},
        {L"<a b=\"1\" / >", L"! Expected start-tag closing at / >"},
        {L"<a x='1'/>", L"! Expected attribute value at '1'/>"},
        {L"<a x=1/>", L"! Expected attribute value at 1/>"},
        {L"<a x/>", L"! Error while parsing attributes at />"},
        {L"<a x=\"1/>", L"! Error while parsing attribute string at "},
        {L"<a></b>", L"! Unmatched closing tag at b>"},
        {L"<a></ab>", L"! Unmatched closing tag at b>"},
        {L"<a><b></a></b>", L"! Unmatched closing tag at a></b>"},
    };
    for (const auto& [document, error] : cases)
        EXPECT_EQ(parse(document), error) << std::string(document.begin(), document.end());
    EXPECT_EQ(parse(std::wstring(200, L'x')).size(),
              std::wstring_view(L"! Expected start tag at ").size() + 49);
}

TEST(CMarkup, FailedLoadLeavesNothingButItsError) {
    CMarkup markup;
    ASSERT_TRUE(markup.Load(L"<a/>"));
    EXPECT_FALSE(markup.Load(L"<a x/>"));
    EXPECT_FALSE(markup.GetRoot().IsValid());
    wchar_t text[9];
    markup.GetLastErrorMessage(text, 9);
    EXPECT_STREQ(text, L"Error wh");
    EXPECT_TRUE(markup.Load(L"<a/>"));
    EXPECT_STREQ(markup.GetLastErrorMessage(), L"");
}

TEST(CMarkup, ShowsSixtyFourAttributesOfAnElement) {
    std::wstring document = L"<a";
    for (int i = 0; i < 70; ++i)
        document += L" n" + std::to_wstring(i) + L"=\"" + std::to_wstring(i) + L"\"";
    CMarkup markup;
    ASSERT_TRUE(markup.Load(document + L"><b/></a>"));
    CMarkupNode node = markup.GetRoot();
    EXPECT_EQ(node.GetAttributeCount(), 64);
    EXPECT_STREQ(node.FindAttribute(L"n63"), L"63");
    EXPECT_EQ(node.FindAttribute(L"n64"), nullptr);
    EXPECT_EQ(node.FindAttribute(L"N1"), nullptr);
    EXPECT_STREQ(node.GetAttributeName(64), L"");
    wchar_t buffer[4] = L"zzz";
    EXPECT_TRUE(node.GetAttributeValue(L"n12", buffer, 1));
    EXPECT_EQ(buffer[0], L'1');
    EXPECT_EQ(buffer[1], L'z');
    EXPECT_TRUE(node.HasChildren());
}

TEST(CMarkup, ReadsTheEncodingsOfItsNumbers) {
    CMarkup markup;
    ASSERT_TRUE(markup.LoadUtf8("\xEF\xBB\xBF<a x=\"\xE4\xB8\xAD\"/>"));
    EXPECT_EQ(describe(markup.GetRoot()), L"a[x=\x4E2D]");
    const std::string little("\xFF\xFE<\0a\0/\0>\0", 10), big("\xFE\xFF\0<\0a\0/\0>", 10);
    for (const std::string& bytes : {little, big, little + "x"}) {
        ASSERT_TRUE(markup.LoadUtf16(bytes));
        EXPECT_EQ(describe(markup.GetRoot()), L"a");
    }
    EXPECT_FALSE(markup.LoadUtf16(little.substr(2)));
    EXPECT_FALSE(markup.LoadUtf16("\xFF"));
    EXPECT_FALSE(markup.LoadUtf8("\xFF\xFE<"));
    ASSERT_TRUE(markup.LoadUtf8(std::string_view("<a/>\0<b", 7))); // ends at its zero
}

TEST(CMarkup, TakesAnyDepthAndAnyLength) {
    std::wstring document;
    for (int i = 0; i < 100000; ++i)
        document += L"<x>";
    EXPECT_EQ(parse(document), L"! Expected end-tag start at ");
    for (int i = 0; i < 100000; ++i)
        document += L"</x>";
    CMarkup markup;
    ASSERT_TRUE(markup.Load(document));
    int depth = 0;
    for (CMarkupNode node = markup.GetRoot(); node.IsValid(); node = node.GetChild())
        ++depth;
    EXPECT_EQ(depth, 100000);
    ASSERT_TRUE(markup.Load(L"<a x=\"" + std::wstring(1 << 20, L'&') + L"\"/>"));
    EXPECT_EQ(std::wstring_view(markup.GetRoot().FindAttribute(L"x")).size(), size_t(1) << 20);
}

TEST(CMarkupNode, IsHarmlessWhenInvalid) {
    CMarkupNode node;
    EXPECT_EQ(node.GetName(), nullptr);
    EXPECT_EQ(node.GetAttributeName(0), nullptr);
    EXPECT_FALSE(node.HasAttributes() || node.HasChildren() || node.GetChild().IsValid());
}
