#include "tests/uilib/tree.h"
#include "uilib/controls/scroll_bar.h"

#include <gtest/gtest.h>

#include <random>

// Rules that hold for every layout: turned over its diagonal it lies as before, and it does
// not matter what size it had before.

using namespace UILib;

namespace {

// Markup of a random tree, standing or turned.
class Turned {
public:
    Turned(unsigned seed, bool turned) : chance(seed), turned(turned) {}

    std::wstring box(int depth, bool flexible = true) {
        const bool along = below(2) == 0, scrolled = below(3) == 0;
        const std::wstring tag = along != turned ? L"VBox" : L"HBox";
        std::wstring all = L"<" + tag + common(flexible) + margins(L"inset") + L" childpadding=\"" +
                           std::to_wstring(below(6)) + L"\"";
        if (scrolled)
            all += along != turned ? L" vscrollbar=\"true\"" : L" hscrollbar=\"true\"";
        constexpr const wchar_t* across[] = {L"left", L"center", L"right"};
        constexpr const wchar_t* down[] = {L"top", L"vcenter", L"bottom"};
        const int align = below(3), valign = below(3);
        all += std::wstring(L" childalign=\"") + across[turned ? valign : align] + L"\" childvalign=\"" +
               down[turned ? align : valign] + L"\">";
        for (int i = below(4) + 1; i > 0; --i)
            all += depth && below(2) ? box(depth - 1, !scrolled) : L"<Control" + common(!scrolled) + L"/>";
        return all + L"</" + tag + L">";
    }

private:
    int below(int limit) { return int(chance() % unsigned(limit)); }
    std::wstring size(const wchar_t* wide, const wchar_t* high, bool across, int value) {
        return std::wstring(L" ") + (across != turned ? wide : high) + L"=\"" + std::to_wstring(value) +
               L"\"";
    }
    std::wstring margins(const wchar_t* name) {
        const int left = below(7), top = below(7), right = below(7), bottom = below(7);
        const int turnedOnes[] = {top, left, bottom, right}, plain[] = {left, top, right, bottom};
        std::wstring all = std::wstring(L" ") + name + L"=\"";
        for (int i = 0; i < 4; ++i)
            all += (i ? L"," : L"") + std::to_wstring(turned ? turnedOnes[i] : plain[i]);
        return all + L"\"";
    }
    std::wstring common(bool flexible) {
        std::wstring all = margins(L"padding");
        for (const bool across : {true, false}) {
            if (!flexible || below(2))
                all += size(L"width", L"height", across, 5 + below(90));
            if (below(5) == 0)
                all += size(L"minwidth", L"minheight", across, 10 + below(40));
            if (below(5) == 0)
                all += size(L"maxwidth", L"maxheight", across, 20 + below(60));
        }
        if (below(8) == 0)
            all += L" visible=\"false\"";
        return all;
    }

    std::mt19937 chance;
    const bool turned;
};

// All places, turned back if the tree is turned.
void collect(CControlUI& control, bool turned, std::string& all) {
    if (!control.IsVisible())
        return;
    const RECT& at = control.GetPos();
    for (const LONG number : {turned ? at.top : at.left, turned ? at.left : at.top,
                              turned ? at.bottom : at.right, turned ? at.right : at.bottom})
        all += std::to_string(number) + ",";
    all += " ";
    if (!control.GetInterface(L"Container"))
        return;
    const CContainerUI& box = asContainer(control);
    for (CScrollBarUI* bar : {box.GetVerticalScrollBar(), box.GetHorizontalScrollBar()})
        if (bar && bar->IsVisible()) {
            all += "bar " + std::to_string(bar->GetScrollRange()) + " ";
            collect(*bar, turned, all);
            for (const RECT& part : {bar->GetButton1Rect(), bar->GetThumbRect(), bar->GetButton2Rect()})
                all += std::to_string(turned ? part.left : part.top) + "-" +
                       std::to_string(turned ? part.right : part.bottom) + "/" +
                       std::to_string(turned ? part.top : part.left) + "-" +
                       std::to_string(turned ? part.bottom : part.right) + " ";
        }
    for (int i = 0; i < box.GetCount(); ++i)
        collect(*box.GetItemAt(i), turned, all);
}

std::string placesAll(CControlUI& root, bool turned) {
    std::string all;
    collect(root, turned, all);
    return all;
}

} // namespace

TEST(AnyLayout, LiesTheSameTurnedOverItsDiagonal) {
    for (unsigned seed = 1; seed <= 150; ++seed) {
        const std::wstring markup = Turned(seed, false).box(3);
        Tree standing = buildTree(markup), lying = buildTree(Turned(seed, true).box(3));
        for (const auto& [w, h] : {std::pair{200, 150}, {90, 60}, {300, 40}}) {
            standing->SetPos({0, 0, w, h}, false);
            lying->SetPos({0, 0, h, w}, false);
            ASSERT_EQ(placesAll(*standing, false), placesAll(*lying, true))
                << seed << testing::PrintToString(markup);
        }
    }
}

TEST(AnyLayout, DoesNotDependOnWhatSizeItHad) {
    std::mt19937 chance(9);
    for (unsigned seed = 1; seed <= 120; ++seed) {
        const std::wstring markup = Turned(seed, false).box(2);
        Tree used = buildTree(markup);
        for (int i = 0; i < 4; ++i) {
            const LONG w = LONG(chance() % 250) + 20, h = LONG(chance() % 250) + 20;
            Tree fresh = buildTree(markup);
            fresh->SetPos({0, 0, w, h}, false);
            used->SetPos({0, 0, w, h}, false);
            ASSERT_EQ(placesAll(*used, false), placesAll(*fresh, false))
                << seed << testing::PrintToString(markup);
            used->Move(7, 3, false);
            fresh->SetPos({7, 3, w + 7, h + 3}, false);
            ASSERT_EQ(placesAll(*used, false), placesAll(*fresh, false))
                << seed << testing::PrintToString(markup);
        }
    }
}

// Both bars take room from each other, and each shows all that is there.
TEST(AnyLayout, HasTheBarsThatItNeeds) {
    std::mt19937 chance(4);
    Tree root =
        buildTree(L"<VBox vscrollbar=\"true\" hscrollbar=\"true\" inset=\"1,2,3,4\"><Control/></VBox>");
    CContainerUI& box = asContainer(*root);
    CScrollBarUI &down = *box.GetVerticalScrollBar(), &across = *box.GetHorizontalScrollBar();
    for (int round = 0; round < 2000; ++round) {
        const int w = int(chance() % 60) + 70, h = int(chance() % 60) + 70;
        child(*root, 0).SetFixedWidth(w);
        child(*root, 0).SetFixedHeight(h);
        box.SetScrollPos({0, 0});
        for (int settled = 0; settled < 2; ++settled) // a bar that goes makes room for the next round
            root->SetPos({0, 0, 104, 106}, false);    // 100 by 100 inside
        EXPECT_TRUE(down.IsVisible() || h <= 100) << w << "," << h;
        EXPECT_TRUE(across.IsVisible() || w <= 100) << w << "," << h;
        EXPECT_TRUE(!down.IsVisible() || h > 96) << w << "," << h;
        EXPECT_TRUE(!across.IsVisible() || w > 96) << w << "," << h;
        EXPECT_EQ(down.GetScrollRange(), down.IsVisible() ? h - (across.IsVisible() ? 96 : 100) : 0)
            << w << "," << h;
        EXPECT_EQ(across.GetScrollRange(), across.IsVisible() ? w - (down.IsVisible() ? 96 : 100) : 0)
            << w << "," << h;
        box.EndDown();
        box.EndRight();
        const RECT& end = child(*root, 0).GetPos();
        EXPECT_EQ(end.bottom, down.IsVisible() ? 102 - (across.IsVisible() ? 4 : 0) : 2 + h) << w << "," << h;
        EXPECT_EQ(end.right, across.IsVisible() ? 101 - (down.IsVisible() ? 4 : 0) : 1 + w) << w << "," << h;
    }
}
