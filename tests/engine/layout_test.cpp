#include "tests/engine/page_support.h"

#include <gtest/gtest.h>

using engine::Rect;

namespace engine {
void PrintTo(const Rect& rect, std::ostream* out) {
    *out << rect.x << "," << rect.y << " " << rect.width << "x" << rect.height;
}
} // namespace engine

TEST(Layout, stacksBlocksWithTheirEdges) {
    const LaidOut page(
        "<div id=a style='margin:5px;padding:10px;border:2px solid #000'>"
        "<p id=b style='margin:0;height:20px'></p><p id=c style='margin:4px 0;height:6px'></p></div>"
        "<div id=d style='width:50%;margin:0 auto;height:10px'></div>");
    EXPECT_EQ(page.place("a"), (Rect{5, 5, 190, 58}));
    EXPECT_EQ(page.place("b"), (Rect{17, 17, 166, 20}));
    EXPECT_EQ(page.place("c"), (Rect{17, 41, 166, 6}));
    EXPECT_EQ(page.place("d"), (Rect{50, 68, 100, 10}));
}

TEST(Layout, dividesLinesAsTheScriptWants) {
    struct Row {
        const char* text;
        const char* lines; // in 80 pixels of 10-pixel letters, 20 pixels a line
    };
    const Row rows[] = {
        {"one two  three", "one two@0,0 three@0,20"},
        {"a <b>bold</b> word", "a@0,0 bold@20,0 word@0,20"},
        {"unbreakable-x", "unbreakable-@0,0 x@0,20"},
        {"一二三四五六七八九", "一二三四五六七八@0,0 九@0,20"},
        {"一二三四五六七八。", "一二三四五六七@0,0 八。@0,20"}, // no full stop at the beginning
        {"one<br>two", "one@0,0 two@0,20"},
    };
    for (const Row& row : rows) {
        const LaidOut page(std::string("<div id=t style='width:80px;font-size:20px;line-height:1'>") +
                           row.text + "</div>");
        EXPECT_EQ(page.lines("t"), row.lines);
    }
}

TEST(Layout, alignsAndShortensLines) {
    const auto lines = [](const char* style) {
        return LaidOut(std::string("<div id=t style='width:80px;font-size:20px;line-height:1;") + style +
                       "'>one three four</div>")
            .lines("t");
    };
    EXPECT_EQ(lines("text-align:right"), "one@50,0 three@30,20 four@40,40");
    EXPECT_EQ(lines("text-align:center"), "one@25,0 three@15,20 four@20,40");
    EXPECT_EQ(lines("white-space:nowrap"), "one three four@0,0");
    EXPECT_EQ(lines("white-space:nowrap;text-overflow:ellipsis"), "one thr…@0,0");
}

TEST(Layout, sharesOutARow) {
    const LaidOut page("<div id=r style='display:flex;gap:10px;align-items:center'>\n"
                       "<i id=a style='width:30px;height:40px'></i> <i id=b style='flex:1;height:10px'></i>\n"
                       "<i id=c style='flex:3;height:20px'></i></div>"
                       "<div style='display:flex;justify-content:space-between'>"
                       "<i id=d style='width:20px'></i><i id=e style='width:20px;height:9px'></i></div>");
    EXPECT_EQ(page.place("a"), (Rect{0, 0, 30, 40}));
    EXPECT_EQ(page.place("b"), (Rect{40, 15, 37, 10}));
    EXPECT_EQ(page.place("c"), (Rect{87, 10, 112, 20}));
    EXPECT_EQ(page.place("d"), (Rect{0, 40, 20, 9})); // as high as the row
    EXPECT_EQ(page.place("e"), (Rect{180, 40, 20, 9}));
}

TEST(Layout, placesPositionedElementsInTheirAncestor) {
    const LaidOut page(
        "<div id=o style='position:relative;margin-left:20px;height:60px;border:1px solid #000'>"
        "<div><i id=a style='position:absolute;right:5px;bottom:6px;width:10px;height:10px'></i></div>"
        "<i id=b style='position:absolute;left:4px;right:4px;top:0;height:50%'></i></div>"
        "<i id=c style='position:absolute;right:0;top:0'><img id=d></i>");
    EXPECT_EQ(page.place("a"), (Rect{184, 43, 10, 10}));
    EXPECT_EQ(page.place("b"), (Rect{25, 1, 170, 29}));
    EXPECT_EQ(page.place("d").x, 160);
}

TEST(Layout, givesPicturesTheirShape) {
    const LaidOut page("<img id=a><img id=b width=20><img id=c style='height:40px'>", 300);
    EXPECT_EQ(page.place("a"), (Rect{0, 20, 40, 20})); // on the line of the highest
    EXPECT_EQ(page.place("b"), (Rect{40, 30, 20, 10}));
    EXPECT_EQ(page.place("c"), (Rect{60, 0, 80, 40}));
}

TEST(Page, findsWhatAClickMeansAndFollowsThePointer) {
    SquareLetters letters;
    engine::Page page(
        engine::parsePage("<style>.c:hover b{color:#f00} i{display:none} .c:hover i{display:block}"
                          ".c{height:20px}</style>"
                          "<div class=c onclick='go()'><b>text</b><i>more</i></div>"
                          "<a href='/next'>link</a>"),
        letters);
    page.resize(200, 100);
    EXPECT_EQ(page.actionAt(5, 5).script, "go()");
    EXPECT_EQ(page.actionAt(5, 25).address, "/next");
    EXPECT_TRUE(page.actionAt(150, 90).address.empty());
    EXPECT_TRUE(page.pointAt(5, 5));
    EXPECT_FALSE(page.pointAt(6, 5)); // nothing new
    std::vector<engine::Color> pixels(200 * 100);
    letters.draws = 0;
    page.paint({pixels.data(), 200, 100}, letters, 0);
    EXPECT_EQ(letters.draws, 3);
    EXPECT_FALSE(page.showsHand());
    page.pointAt(5, 45); // the row above is higher while it is pointed at
    EXPECT_FALSE(page.showsHand());
    page.pointAt(5, 25);
    EXPECT_TRUE(page.showsHand());
}
