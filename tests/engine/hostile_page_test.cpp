#include "tests/engine/page_support.h"

#include <gtest/gtest.h>

namespace {

std::string repeated(std::string_view text, size_t count) {
    std::string out;
    for (size_t i = 0; i < count; i++)
        out += text;
    return out;
}

struct Hostile {
    const char* name;
    std::string page;
};

std::vector<Hostile> hostilePages() {
    return {
        {"empty", ""},
        {"zero bytes", std::string(5000, '\0')},
        {"no text", "\xFF\xFE\x80\xC0\xED\xA0\x80<p>\xF4\x90\x80\x80"},
        {"deep", repeated("<div>", 100000)},
        {"deep inline", repeated("<b><i>", 50000) + "x"},
        {"many", repeated("<p>x", 200000)},
        {"long word", "<p>" + std::string(900000, 'x')},
        {"many attributes", "<p " + repeated("a b=c ", 60000) + ">"},
        {"endless style", "<style>" + repeated("a{color:red}", 80000)},
        {"open comment", "<style>/*" + std::string(100000, '*')},
        {"brackets", "<style>a{background:" + repeated("linear-gradient(", 5000)},
        {"huge numbers",
         "<div style='padding:99999999px;width:9e9px;border:9999px solid red;font-size:1e30px;"
         "margin:-99999999px;line-height:99999'><img width=99999999 height=99999999>x</div>"},
        {"heavy layers",
         repeated("<div style='position:absolute;left:0;top:0;right:0;bottom:0;"
                  "background:linear-gradient(#ff000080,#00ff0080);border-radius:99px'></div>",
                  3000)},
        {"shrink in shrink", repeated("<span style='display:inline-block'>", 500) + "x"},
        {"row in row", repeated("<div style='display:flex'>", 500) + "x"},
    };
}

} // namespace

// Each is parsed, laid out and painted whole, in a time that a window can stand.
TEST(HostilePage, costsItsOwnPanelOnly) {
    std::vector<engine::Color> pixels(752 * 344);
    for (const Hostile& hostile : hostilePages()) {
        const auto begin = processorTime();
        SquareLetters letters;
        engine::Page page(engine::parsePage(hostile.page), letters);
        page.resize(752, 344);
        page.paint({pixels.data(), 752, 344}, letters, 0);
        page.actionAt(5, 5);
        EXPECT_LE(page.height(), engine::limits::PageHeight) << hostile.name;
        EXPECT_LT(processorTime() - begin, std::chrono::seconds(8)) << hostile.name;
    }
}

TEST(HostilePage, keepsToTheLimits) {
    const auto deep =
        engine::parsePage(repeated("<div>", 1000) + "x" + repeated("</div>", 999) + "<p id=last>");
    size_t depth = 0;
    for (int node = static_cast<int>(deep.nodes.size()) - 1; node != engine::NoNode;
         node = deep.nodes[node].parent)
        depth++;
    EXPECT_LE(deep.nodes.size(), engine::limits::Depth + 2);
    EXPECT_LE(depth, engine::limits::Depth);
    EXPECT_EQ(engine::parsePage(repeated("<p>x", 9000)).nodes.size(), engine::limits::Nodes);
}

TEST(HostilePage, refusesPicturesBeforeDecodingThem) {
    // A PNG header that announces 65535 by 65535 pixels.
    const std::string png("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\xFF\xFF\0\0\xFF\xFF\x08\x06\0\0\0\0\0\0\0", 33);
    EXPECT_FALSE(engine::decodeImage(png));
    EXPECT_FALSE(engine::decodeImage(""));
    EXPECT_FALSE(engine::decodeImage("GIF89a"));
}
