#include "kit/skin_document.h"
#include "uilib/controls/control.h"
#include "uilib/core/dialog_builder.h"
#include "uilib/core/dib_surface.h"

#include <gtest/gtest.h>

#include <random>

// A window is painted part by part, whatever happens to be invalid: each part has to look as it
// does in the whole, whatever the surface showed before.

using namespace UILib;

namespace {

void paint(CControlUI& root, const DibSurface& surface, const RECT& part) {
    root.DoPaint(surface.context(), part, nullptr);
    GdiFlush();
}

RECT randomPart(std::mt19937& random, const RECT& all) {
    const auto within = [&](LONG from, LONG to) {
        return std::uniform_int_distribution<LONG>(from, to)(random);
    };
    RECT part;
    part.left = within(all.left, all.right - 1);
    part.top = within(all.top, all.bottom - 1);
    part.right = within(part.left + 1, std::min(all.right, part.left + 200));
    part.bottom = within(part.top + 1, std::min(all.bottom, part.top + 120));
    return part;
}

// The place of the first pixel within the part that differs, or nothing. Letters may use the
// smoothing of the pixels below them, so the alpha does not count.
std::string differing(const DibSurface& a, const DibSurface& b, const RECT& part) {
    for (LONG y = part.top; y < part.bottom; ++y)
        for (LONG x = part.left; x < part.right; ++x)
            if ((a.raster().row(y)[x] ^ b.raster().row(y)[x]) & 0xFFFFFF)
                return std::to_string(x) + "," + std::to_string(y);
    return "";
}

void expectPartsAsTheWhole(CControlUI& root, int rounds) {
    const RECT all = root.GetPos();
    const DibSurface whole(nullptr, width(all), height(all)), parts(nullptr, width(all), height(all));
    ASSERT_TRUE(whole && parts);
    paint(root, whole, all);
    std::mt19937 random(20);
    for (int i = 0; i < rounds; ++i) {
        const RECT part = randomPart(random, all);
        paint(root, parts, part);
        ASSERT_EQ(differing(whole, parts, part), "")
            << part.left << "," << part.top << "," << part.right << "," << part.bottom;
    }
}

} // namespace

TEST(PaintParts, LookLikeTheWholeInTheShippedWindows) {
    const struct {
        const wchar_t* file;
        int width, height;
    } windows[] = {{L"xm_setupframe.xml", 816, 700},
                   {L"updatecheckframe.xml", 400, 230},
                   {L"xml_mainframe_small.xml", 1189, 708}};
    for (const auto& [file, width, height] : windows) {
        kit::SkinDocument document;
        ASSERT_TRUE(document.loadFrom(SKIN_FOLDER, file, L"en_US"));
        document.layout(width, height);
        expectPartsAsTheWhole(*document.root(), 40);
    }
    CPaintManagerUI::SetResourcePath(L"");
}

TEST(PaintParts, LookLikeTheWholeWhateverIsTranslucentRoundOrScrolled) {
    kit::SkinDocument document;
    ASSERT_TRUE(document.loadFrom(SKIN_FOLDER, L"xml_menu.xml", L"en_US"));
    CDialogBuilder builder;
    CControlUI* root = builder.Create(
        L"<Window><VBox bkcolor=\"#FF306090\" inset=\"5,6,7,8\">"
        L"<Control height=\"40\" bkcolor=\"#FFFF0000\" bkcolor2=\"#FF0000FF\"/>"
        L"<Control height=\"30\" bkcolor=\"#80FFFFFF\" bkcolor2=\"#80000000\" bkcolor3=\"#80FF00FF\"/>"
        L"<Control height=\"30\" padding=\"4,4,4,4\" bkcolor=\"#60FFFF00\" bordercolor=\"#FF00FF00\" "
        L"bordersize=\"3\" borderround=\"16,12\"/>"
        L"<Control height=\"24\" bordercolor=\"#FF00FFFF\" bordersize=\"1,2,3,4\"/>"
        L"<Label height=\"30\" text=\"a label with words\" textcolor=\"#FFFFFFFF\" align=\"center\"/>"
        L"<Label height=\"30\" text=\"&lt;b&gt;html&lt;/b&gt; text\" showhtml=\"true\" "
        L"textcolor=\"#FF00FF00\"/>"
        L"<Progress height=\"12\" min=\"0\" max=\"10\" value=\"4\" bkcolor=\"#FF101010\" "
        L"foreimage=\"file='vyn\\progress_fg.png' corner='10,2,10,2'\"/>"
        L"<HBox height=\"60\"><Button width=\"70\" normalimage=\"file='vyn\\btn31_normal.png' "
        L"corner='30,10,30,10'\" text=\"go\" textcolor=\"#FFFFFFFF\"/>"
        L"<Control width=\"90\" bkimage=\"file='vyn\\panel_idle.png' xtiled='true' ytiled='true' "
        L"fade='128'\"/>"
        L"<Control bkimage=\"file='vyn\\title_icon.png' dest='10,5,70,55'\"/></HBox>"
        L"<VBox vscrollbar=\"true\"><Control height=\"400\" bkcolor=\"#FF00FF00\" "
        L"bkcolor2=\"#FFFF00FF\"/></VBox>"
        L"<Control float=\"true\" pos=\"150,30,260,200\" bkcolor=\"#40FFFFFF\"/>"
        L"</VBox></Window>",
        nullptr, nullptr, &document.manager());
    ASSERT_NE(root, nullptr);
    document.manager().AttachDialog(root);
    document.layout(300, 360);
    expectPartsAsTheWhole(*root, 200);
    CPaintManagerUI::SetResourcePath(L"");
}
