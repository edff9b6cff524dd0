#include "engine/css_value.h"
#include "engine/stylesheet.h"

#include <gtest/gtest.h>

using namespace engine;

TEST(Style, readsColorsAndRefusesOthers) {
    EXPECT_EQ(parseColor("#fA0"), 0xFFFFAA00u);
    EXPECT_EQ(parseColor("#102030"), 0xFF102030u);
    EXPECT_EQ(parseColor("#10203080"), 0x80102030u);
    EXPECT_EQ(parseColor("rgba(1, 2, 3, 0.5)"), 0x80010203u);
    EXPECT_EQ(parseColor(" White "), 0xFFFFFFFFu);
    for (const char* text :
         {"", "#", "#12", "#12345g", "rgb(1,2)", "rgb(1,2,x)", "rgb(", "nocolour", "#-123456"})
        EXPECT_FALSE(parseColor(text)) << text;
}

TEST(Style, readsGradientsAndLengths) {
    const auto gradient = parseGradient("linear-gradient(to right, #fff, rgba(0,0,0,0.5) 40%, #000)");
    ASSERT_TRUE(gradient);
    EXPECT_EQ(gradient->degrees, 90);
    EXPECT_FLOAT_EQ(gradient->stops[1].at, 0.4f);
    for (const char* text :
         {"linear-gradient()", "linear-gradient(#fff)", "linear-gradient(#fff 50%, #000 10%)"})
        EXPECT_FALSE(parseGradient(text)) << text;
    EXPECT_EQ(parseLength("1.5em", 20)->value, 30);
    EXPECT_FALSE(parseLength("1e9px", 20));
    EXPECT_EQ(parseLength("99999999px", 20)->value, LargestLength);
    EXPECT_FALSE(parseLength("5", 20));
    EXPECT_FALSE(parseLength("nanpx", 20));
}

TEST(Style, theMoreSpecificRuleWinsAndItsAncestorsCount) {
    const Document page =
        parsePage("<style>/* } */ #x{color:#000001} .a{color:#000002} p{color:#000003}"
                  "@media print{p{color:#000009}} div .a{color:#000004}"
                  "p:first-child{color:#000008} ul .a{color:#000007}</style>"
                  "<p>1<div><p class=a>2</p><p class='b a' id=x>3<p style='color:#000005'>4</div>");
    const auto styles = computeStyles(page, parseStyleSheet(page.styles), {});
    std::vector<Color> colors;
    for (size_t i = 0; i < page.nodes.size(); i++)
        if (page.nodes[i].isText() && page.nodes[i].text.size() == 1)
            colors.push_back(styles[i].color & 15);
    EXPECT_EQ(colors, (std::vector<Color>{3, 4, 1, 5}));
}
