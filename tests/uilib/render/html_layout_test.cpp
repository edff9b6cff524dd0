#include "fixed_width_device.h"

#include "uilib/core/html_tokens.h"

#include <gtest/gtest.h>

using namespace UILib;

namespace {

using Device = FixedWidthDevice;

constexpr uint32_t Black = 0xFF000000, LinkColor = 0xFF0000FF;

class HtmlLayouting : public testing::Test {
protected:
    HtmlLayout lay(std::wstring_view text) {
        return layoutHtml(device, text, box, style, {0, Black, LinkColor, linkLimit});
    }

    // "x,y:text" of each run.
    std::wstring runs(std::wstring_view text) {
        std::wstring all;
        for (const HtmlRun& run : lay(text).runs)
            all.append(all.empty() ? L"" : L" ")
                .append(std::to_wstring(run.x) + L"," + std::to_wstring(run.y) + L":")
                .append(run.text);
        return all;
    }

    Device device;
    Box box = {0, 0, 100, 1000}; // ten characters
    HtmlStyle style;
    int linkLimit = 8;
};

} // namespace

TEST(HtmlTokens, shouldTellTagsFromText) {
    struct {
        const wchar_t* text;
        const wchar_t* kinds; // t text, n line feed, the letter of a tag, upper case for its end
    } cases[] = {
        {L"a<b>c</b>", L"tbtB"},
        {L"{b}{/b}", L"bB"},
        {L"<b}x{/b>", L"btB"},
        {L"<c #fff>", L"c"},
        {L"1 < 2 {3}", L"t"},
        {L"<B>", L"t"},
        {L"<b", L"t"},
        {L"<bb>", L"t"},
        {L"<b never closed", L"b"},
        {L"<{>{>}", L"tt"},
        {L"a\r\nb", L"tnt"},
        {L"<r><b></r>", L"rtR"},
        {L"<r>a\nb", L"rtnt"},
        {L"{r}</b>{/r}x", L"rtRt"},
        {L"</bb></", L"t"},
        {L"", L""},
    };
    for (const auto& test : cases) {
        HtmlTokens tokens(test.text);
        std::wstring kinds;
        for (HtmlToken token; tokens.next(token);)
            kinds += token.kind == HtmlToken::Text       ? L't'
                     : token.kind == HtmlToken::LineFeed ? L'n'
                     : token.kind == HtmlToken::Open     ? token.tag
                                                         : static_cast<wchar_t>(token.tag - 32);
        EXPECT_EQ(std::wstring(test.kinds), kinds) << std::string(test.text, test.text + wcslen(test.text));
    }
    HtmlToken token;
    for (auto [text, literal] : {std::pair(L"<{>", L"{"), {L"<}>", L"}"}, {L"{<}", L"<"}, {L"{>}", L">"}}) {
        HtmlTokens(text).next(token);
        EXPECT_EQ(std::wstring_view(literal), token.text);
    }
}

TEST_F(HtmlLayouting, shouldBreakLines) {
    EXPECT_EQ(L"0,4:ab 0,24:cd 0,64:e", runs(L"ab\ncd<n><n>e"));
    EXPECT_EQ(L"0,4:abcdefghij 0,24:kl", runs(L"abcdefghijkl"));
    EXPECT_EQ(L"0,4:ab 0,24:cd", runs(L"<p>ab<p>cd"));
    style.singleLine = true;
    EXPECT_EQ(L"0,4:abcdefghij", runs(L"abcdefghijkl\nm"));
    EXPECT_EQ(L"0,4:ab", runs(L"ab\nc"));
}

TEST_F(HtmlLayouting, shouldBreakBetweenWordsWhenAsked) {
    style.wordBreak = true;
    EXPECT_EQ(L"0,4:hello 0,24:worlds", runs(L"hello worlds"));
    EXPECT_EQ(L"0,4: abcdefghi 0,24:jkl", runs(L" abcdefghijkl")); // no empty line above it
    EXPECT_EQ(L"0,4:abcdefghij 0,24:kl", runs(L"abcdefghij kl"));
    EXPECT_EQ(L"0,4:ab-cd- 0,24:efghij", runs(L"ab-cd-efghij"));
    EXPECT_EQ(L"0,4:abcdefghij 0,24:klm", runs(L"abcdefghijklm"));      // one long word
    EXPECT_EQ(L"0,4:hello  0,24:worlds", runs(L"hello <b>worlds</b>")); // a word behind a tag
    EXPECT_EQ(L"0,4:\xAC00\xAC00\xAC00\xAC00\xAC00\xAC00\xAC00\xAC00\xAC00\xAC00 0,24:\xAC00",
              runs(std::wstring(11, L'\xAC00')));
}

TEST_F(HtmlLayouting, shouldNotTearASurrogatePair) {
    const std::wstring text = L"abcdefghi\xD83D\xDE00z";
    EXPECT_EQ(L"0,4:abcdefghi 0,24:\xD83D\xDE00z", runs(text));
    box.right = 10;
    EXPECT_EQ(L"0,4:\xD83D\xDE00", runs(L"\xD83D\xDE00"));
    EXPECT_EQ(L"0,4:\xDE00 0,24:\xD83D", runs(L"\xDE00\xD83D"));
}

TEST_F(HtmlLayouting, shouldEndInDots) {
    style.endEllipsis = style.singleLine = true;
    EXPECT_EQ(L"0,4:abcdefgh 80,4:...", runs(L"abcdefghijkl"));
    EXPECT_EQ(L"0,4:abcdefghij", runs(L"abcdefghij"));
    box.right = 15;
    EXPECT_EQ(L"0,4:...", runs(L"abc"));
}

TEST_F(HtmlLayouting, shouldAlign) {
    box = {100, 0, 200, 200};
    style.singleLine = style.right = style.middle = true;
    EXPECT_EQ(L"160,94:abcd", runs(L"abcd")); // the line is 20 high, the text at its bottom
    style.right = style.singleLine = false;
    style.center = true;
    EXPECT_EQ(L"130,84:abcd 140,104:ef", runs(L"abcd\nef"));
    style = {};
    style.bottom = true;
    EXPECT_EQ(L"100,184:ab", runs(L"ab"));
    style.center = style.singleLine = true;
    EXPECT_EQ(L"75,184:abcdefghijklmno", runs(L"abcdefghijklmno")); // too wide: cut at both ends
    style.endEllipsis = true;
    EXPECT_EQ(L"100,184:abcdefgh 180,184:...", runs(L"abcdefghijklmno"));
}

TEST_F(HtmlLayouting, shouldMeasure) {
    style.center = style.middle = true;
    HtmlLayout size = measureHtml(device, L"abc<n>de", {50, 60, 150, 1000}, style, {});
    EXPECT_EQ(30, size.width);
    EXPECT_EQ(40, size.height);
    size = measureHtml(device, L"<x 500>a", {50, 60, 150, 1000}, style, {});
    EXPECT_EQ(100, size.width); // no wider than the room
    EXPECT_EQ(0, measureHtml(device, L"<b></b>", box, style, {}).height);
}

TEST_F(HtmlLayouting, shouldKeepStacksOfFontsColoursAndSpacings) {
    const HtmlLayout layout =
        lay(L"a<c #FF0000>b<b>c<c 00FF00>d</c>e</b>f</c></c>g<f 7>h<f Face 30 ITALIC underline>i</f></f>j");
    ASSERT_EQ(10u, layout.runs.size());
    const uint32_t colors[] = {Black,      0xFFFF0000, 0xFFFF0000, 0xFF00FF00, 0xFFFF0000,
                               0xFFFF0000, Black,      Black,      Black,      Black};
    const int fonts[] = {
        0, 0, Device::Bold, Device::Bold, Device::Bold, 0, 0, 7, 30 | Device::Italic | Device::Underline, 0};
    for (size_t i = 0; i < 10; ++i) {
        EXPECT_EQ(colors[i], layout.runs[i].color) << i;
        EXPECT_EQ(fonts[i], layout.runs[i].font) << i;
    }
    EXPECT_EQ(0xFFFFFFFFu, lay(L"<c #FFD3215F>x").runs[0].color); // beyond 31 bits
    EXPECT_EQ(L"0,4:a 0,34:b 0,54:c", runs(L"a<p 10>b</p><p>c"));
    EXPECT_EQ(13, lay(L"<i>a</i>b").runs[1].x); // room behind slanted text
}

TEST_F(HtmlLayouting, shouldPlaceBySizeAndVerticalAlignment) {
    EXPECT_EQ(L"0,24:a 10,0:b 20,12:c 30,0:d", runs(L"a<f F 40>b</f><v center>c<v top>d"));
    EXPECT_EQ(L"0,34:a 0,54:b", runs(L"<y 50>a<n>b"));
    EXPECT_EQ(L"5,4:a 40,4:b", runs(L"<x 5>a<h 40>b"));
    style.singleLine = true;
    const HtmlLayout layout =
        layoutHtml(device, L"<h 1>a<z 2>b", {0, 0, 500, 20}, style, {0, 0xFF17171A, 0, 0});
    EXPECT_EQ(322, layout.runs[0].x);
    EXPECT_EQ(354, layout.runs[1].x);
}

TEST_F(HtmlLayouting, shouldPlacePictures) {
    HtmlLayout layout = lay(L"ab<i pic 3 1>c");
    ASSERT_EQ(1u, layout.pictures.size());
    EXPECT_EQ((Box{20, 0, 40, 30}), layout.pictures[0].box);
    EXPECT_EQ(1, layout.pictures[0].image.frame);
    EXPECT_EQ(40, layout.runs[1].x);
    EXPECT_EQ(14, layout.runs[1].y);
    EXPECT_EQ((Box{0, 20, 60, 50}), lay(L"abcde<i pic>").pictures[0].box); // no room: the next line
    EXPECT_EQ((Box{0, 0, 60, 30}), lay(L"<i file='pic' fade='3'>").pictures[0].box);
    EXPECT_EQ(0, lay(L"<i pic 2 9>").pictures[0].image.frame);
    EXPECT_TRUE(lay(L"<i nothing>").pictures.empty());
    EXPECT_TRUE(lay(L"<i pic 1000>").pictures.empty()); // frames of no width
    style.singleLine = true;
    EXPECT_EQ((Box{50, 0, 110, 30}), lay(L"abcde<i pic>").pictures[0].box);
}

TEST_F(HtmlLayouting, shouldGiveTheRectanglesOfLinks) {
    HtmlLayout layout = lay(L"ab<a one>cd</a><a>e</a>");
    ASSERT_EQ(2u, layout.links.size());
    EXPECT_EQ((Box{20, 0, 40, 20}), layout.links[0].box);
    EXPECT_EQ(L"one", layout.links[0].name);
    EXPECT_EQ(L"", layout.links[1].name);
    EXPECT_EQ(LinkColor, layout.runs[1].color);
    EXPECT_EQ(int{Device::Underline}, layout.runs[1].font);

    layout = lay(L"abcdef<a x>ghijklm</a>n"); // over the end of a line
    ASSERT_EQ(2u, layout.links.size());
    EXPECT_EQ((Box{60, 0, 100, 20}), layout.links[0].box);
    EXPECT_EQ((Box{0, 20, 30, 40}), layout.links[1].box);
    EXPECT_EQ(layout.links[0].name, layout.links[1].name);
    linkLimit = 1;
    EXPECT_EQ(1u, lay(L"abcdef<a x>ghijklm</a>n").links.size());
    EXPECT_TRUE(lay(L"<a x>open").links.empty());
}

TEST_F(HtmlLayouting, shouldTakeTimeInProportionToTheText) {
    std::wstring tags;
    for (int i = 0; i < 20000; ++i)
        tags += i % 2 ? L"<b>" : L"{c #12}";
    EXPECT_EQ(1u, lay(tags + L"x").runs.size());
    const std::wstring line(1 << 20, L'x');
    for (bool wordBreak : {false, true}) {
        style.wordBreak = wordBreak;
        box.bottom = 1 << 20;
        device.measured = 0;
        lay(line);
        EXPECT_LT(device.measured, 16 * line.size());
    }
    style.singleLine = true;
    device.measured = 0;
    lay(line);
    EXPECT_LT(device.measured, 1000u); // no more than the line that is seen
}

// Alignment moves what was set at the top left, and sets it again only where the lines differ.
TEST_F(HtmlLayouting, shouldMeasureAlignedTextOnce) {
    style.singleLine = style.middle = style.right = true;
    device.measured = 0;
    EXPECT_EQ(runs(L"ab<b>cd</b>"), L"60,494:ab 80,494:cd");
    EXPECT_EQ(device.measured, 4u);
    EXPECT_EQ(runs(L"<x -20>ab"), L"80,494:ab"); // a place of its own
    style = {};
    style.center = style.bottom = style.wordBreak = true;
    device.measured = 0;
    EXPECT_EQ(runs(L"abcdefgh ij"), L"10,964:abcdefgh 40,984:ij");
    EXPECT_LE(device.measured, 13u);
    box.bottom = 30; // too low for both lines
    EXPECT_EQ(runs(L"abcdefgh ij"), L"10,-6:abcdefgh 40,14:ij");
}
