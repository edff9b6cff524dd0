#include "tests/uilib/tree.h"
#include "uilib/controls/scroll_bar.h"
#include "uilib/controls/tab_layout.h"

#include <gtest/gtest.h>

using namespace UILib;

namespace {

std::string layout(const std::wstring& markup, int width = 100, int height = 100) {
    Tree root = buildTree(markup);
    root->SetPos({0, 0, width, height}, false);
    return placesIn(*root);
}

struct Case {
    const wchar_t* markup;
    const char* places;
};

} // namespace

TEST(VerticalLayout, SharesWhatFixedChildrenLeave) {
    const Case cases[] = {
        {L"<VBox><Control/><Control/><Control/></VBox>", "0,0,100,33 0,33,100,66 0,66,100,100"},
        {L"<VBox><Control height='20'/><Control/></VBox>", "0,0,100,20 0,20,100,100"},
        {L"<VBox inset='1,2,3,4'><Control height='20'/><Control/></VBox>", "1,2,97,22 1,22,97,96"},
        {L"<VBox childpadding='10'><Control/><Control/></VBox>", "0,0,100,45 0,55,100,90"},
        {L"<VBox><Control padding='1,2,3,4'/><Control/></VBox>", "1,2,97,49 0,53,100,94"},
        {L"<VBox><Control height='30' maxheight='20'/><Control/></VBox>", "0,0,100,20 0,20,100,100"},
        {L"<VBox><Control maxheight='10'/><Control/></VBox>", "0,0,100,10 0,10,100,100"},
        {L"<VBox><Control height='80'/><Control minheight='30'/><Control height='80'/></VBox>",
         "0,0,100,80 0,80,100,110 0,110,100,190"},
        {L"<VBox><Control height='10'/><Control visible='false'/><Control height='10'/></VBox>",
         "0,0,100,10 0,0,0,0 0,10,100,20"},
        {L"<VBox><Control width='40' height='5'/><Control minwidth='120' height='5'/></VBox>",
         "0,0,40,5 0,5,120,10"},
        {L"<VBox childalign='center'><Control width='41' height='5' padding='9,0,0,0'/></VBox>", "30,0,71,5"},
        {L"<VBox childalign='right'><Control width='40' height='5' padding='0,0,9,0'/></VBox>", "51,0,91,5"},
        {L"<VBox><Control float='true' pos='10,10,60,30'/><Control/></VBox>", "10,10,60,30 0,0,100,100"},
    };
    for (const auto& [markup, places] : cases) {
        std::wstring text = markup;
        for (wchar_t& c : text)
            c = c == L'\'' ? L'"' : c;
        EXPECT_EQ(layout(text), places) << std::string(text.begin(), text.end());
    }
}

TEST(HorizontalLayout, IsTheSameLyingDown) {
    EXPECT_EQ(layout(L"<HBox><Control/><Control/><Control/></HBox>"), "0,0,33,100 33,0,66,100 66,0,100,100");
    EXPECT_EQ(
        layout(L"<HBox childpadding=\"10\"><Control width=\"20\"/><Control padding=\"1,2,3,4\"/></HBox>"),
        "0,0,20,100 31,2,83,96");
    EXPECT_EQ(layout(L"<HBox childvalign=\"vcenter\"><Control width=\"5\" height=\"41\"/></HBox>"),
              "0,30,5,71");
    EXPECT_EQ(
        layout(
            L"<HBox childvalign=\"bottom\"><Control width=\"5\" height=\"40\" padding=\"0,0,0,9\"/></HBox>"),
        "0,51,5,91");
}

TEST(Container, LaysItsChildrenOnTopOfEachOther) {
    EXPECT_EQ(layout(L"<Container inset=\"5,5,5,5\"><Control/><Control maxwidth=\"10\" "
                     L"minheight=\"200\"/></Container>"),
              "5,5,95,95 5,5,15,205");
}

TEST(FloatingControl, KeepsItsShareOfTheParent) {
    Tree root = buildTree(L"<VBox><Control pos=\"-20,0,20,10\" float=\"0.5,0,0.5,0\"/></VBox>");
    root->SetPos({100, 50, 300, 150}, false);
    EXPECT_EQ(placeOf(child(*root, 0)), "180,50,220,60");
    root->SetPos({0, 0, 400, 100}, false);
    EXPECT_EQ(placeOf(child(*root, 0)), "180,0,220,10");
    EXPECT_EQ(child(*root, 0).GetFixedXY().x, -20);
    EXPECT_EQ(child(*root, 0).GetFixedWidth(), 40);
}

TEST(ScrollBars, HideUntilTheChildrenNeedThem) {
    Tree fits = buildTree(L"<VBox vscrollbar=\"true\"><Control height=\"100\"/></VBox>");
    fits->SetPos({0, 0, 100, 100}, false);
    EXPECT_EQ(placesIn(*fits), "0,0,100,100");
    EXPECT_FALSE(asContainer(*fits).GetVerticalScrollBar()->IsVisible());

    Tree tall =
        buildTree(L"<VBox vscrollbar=\"true\"><Control height=\"80\"/><Control height=\"80\"/></VBox>");
    tall->SetPos({0, 0, 100, 100}, false);
    EXPECT_EQ(placesIn(*tall), "0,0,96,80 0,80,96,160");
    EXPECT_EQ(placeOf(*asContainer(*tall).GetVerticalScrollBar()), "96,0,100,100");
    EXPECT_EQ(asContainer(*tall).GetScrollRange().cy, 60);

    tall->SetPos({0, 0, 100, 200}, false);
    EXPECT_FALSE(asContainer(*tall).GetVerticalScrollBar()->IsVisible());
    EXPECT_EQ(placesIn(*tall), "0,0,100,80 0,80,100,160");
    tall->SetPos({0, 0, 100, 100}, false);
    EXPECT_EQ(placesIn(*tall), "0,0,96,80 0,80,96,160");
}

TEST(ScrollBars, MoveTheChildrenWithoutALayout) {
    Tree root = buildTree(L"<VBox vscrollbar=\"true\"><Control height=\"80\"/><Control height=\"80\"/>"
                          L"<Control float=\"true\" pos=\"1,2,3,4\"/></VBox>");
    CContainerUI& box = asContainer(*root);
    root->SetPos({0, 0, 100, 100}, false);
    box.LineDown();
    EXPECT_EQ(placesIn(*root), "0,-8,96,72 0,72,96,152 1,2,3,4");
    root->SetPos({0, 0, 100, 100}, false);
    EXPECT_EQ(placesIn(*root), "0,-8,96,72 0,72,96,152 1,2,3,4");
    box.EndDown();
    EXPECT_EQ(box.GetScrollPos().cy, 60);
    box.PageUp();
    EXPECT_EQ(box.GetScrollPos().cy, 0);
    box.SetScrollPos({0, 1000});
    EXPECT_EQ(box.GetScrollPos().cy, 60);
    root->SetPos({0, 0, 100, 130}, false); // a smaller range takes the position back with it
    EXPECT_EQ(box.GetScrollPos().cy, 30);
    EXPECT_EQ(placeOf(child(*root, 1)), "0,50,96,130");
}

TEST(ScrollBars, GoWithTheContainerThatIsMoved) {
    Tree root = buildTree(L"<VBox vscrollbar=\"true\"><Control height=\"160\"/></VBox>");
    root->SetPos({0, 0, 100, 100}, false);
    const CScrollBarUI& bar = *asContainer(*root).GetVerticalScrollBar();
    const RECT parts[] = {bar.GetButton1Rect(), bar.GetThumbRect(), bar.GetButton2Rect()};
    root->Move(30, -7, false);
    EXPECT_EQ(placeOf(bar), "126,-7,130,93");
    EXPECT_TRUE(equal(bar.GetButton1Rect(), moved(parts[0], 30, -7)));
    EXPECT_TRUE(equal(bar.GetThumbRect(), moved(parts[1], 30, -7)));
    EXPECT_TRUE(equal(bar.GetButton2Rect(), moved(parts[2], 30, -7)));
}

TEST(ScrollBars, BothAtOnceShareTheCorner) {
    Tree root = buildTree(
        L"<VBox vscrollbar=\"true\" hscrollbar=\"true\"><Control width=\"300\" height=\"200\"/></VBox>");
    root->SetPos({0, 0, 100, 100}, false);
    const CContainerUI& box = asContainer(*root);
    EXPECT_EQ(placeOf(*box.GetVerticalScrollBar()), "96,0,100,96");
    EXPECT_EQ(placeOf(*box.GetHorizontalScrollBar()), "0,96,96,100");
    EXPECT_EQ(box.GetScrollRange().cx, 204);
    EXPECT_EQ(box.GetScrollRange().cy, 104);
    EXPECT_EQ(placesIn(*root), "0,0,300,200");
}

TEST(TabLayout, ShowsOnePage) {
    Tree root = buildTree(
        L"<TabLayout inset=\"1,1,1,1\"><Control/><Control padding=\"1,2,3,4\"/><Control/></TabLayout>");
    auto& tabs = static_cast<CTabLayoutUI&>(*root);
    root->SetPos({0, 0, 100, 100}, false);
    EXPECT_EQ(tabs.GetCurSel(), 0);
    EXPECT_EQ(placesIn(*root), "1,1,99,99 0,0,0,0 0,0,0,0");
    EXPECT_TRUE(tabs.SelectItem(1));
    EXPECT_FALSE(tabs.SelectItem(3) || tabs.SelectItem(-1));
    EXPECT_FALSE(child(*root, 0).IsVisible());
    root->SetPos({0, 0, 100, 100}, false);
    EXPECT_EQ(placeOf(child(*root, 1)), "2,3,96,95");

    EXPECT_TRUE(tabs.RemoveAt(0));
    EXPECT_EQ(tabs.GetCurSel(), 0);
    EXPECT_TRUE(tabs.AddAt(new CControlUI, 0));
    EXPECT_EQ(tabs.GetCurSel(), 1);
    EXPECT_TRUE(tabs.RemoveAt(1)); // the current page: the first one takes its place
    EXPECT_EQ(tabs.GetCurSel(), 0);
    EXPECT_TRUE(child(*root, 0).IsVisible());
    tabs.RemoveAll();
    EXPECT_EQ(tabs.GetCurSel(), -1);
}

TEST(TabLayout, StartsWithTheSelectedPageOfItsMarkup) {
    Tree root = buildTree(L"<TabLayout selectedid=\"1\"><Control/><Control/></TabLayout>");
    EXPECT_TRUE(child(*root, 1).IsVisible());
    EXPECT_FALSE(child(*root, 0).IsVisible());
    EXPECT_STREQ(root->GetCustomAttribute(L"selectedid"), L"1");
}

TEST(Container, MovesAndRemovesChildren) {
    Tree root = buildTree(
        L"<VBox><Control name=\"a\"/><Control name=\"b\"/><Control name=\"c\"/><Control name=\"d\"/></VBox>");
    CContainerUI& box = asContainer(*root);
    const auto order = [&] {
        std::wstring names;
        for (int i = 0; i < box.GetCount(); ++i)
            names += box.GetItemAt(i)->GetName();
        return names;
    };
    EXPECT_TRUE(box.SetItemIndex(&child(*root, 0), 2));
    EXPECT_EQ(order(), L"bcad");
    EXPECT_TRUE(box.SetMultiItemIndex(&child(*root, 0), 2, 2));
    EXPECT_EQ(order(), L"adbc");
    EXPECT_TRUE(box.SetMultiItemIndex(&child(*root, 1), 3, 0));
    EXPECT_EQ(order(), L"dbca");
    EXPECT_FALSE(box.SetMultiItemIndex(&child(*root, 0), 2, 3));
    EXPECT_FALSE(box.SetMultiItemIndex(nullptr, 1, 0));
    Tree taken(&child(*root, 1));
    EXPECT_TRUE(box.Remove(taken.get(), Destroy::No));
    EXPECT_FALSE(box.Remove(taken.get()));
    EXPECT_FALSE(box.Add(nullptr) || box.AddAt(nullptr, 0) || box.RemoveAt(7));
    EXPECT_EQ(order(), L"dca");
    EXPECT_EQ(box.GetItemIndex(taken.get()), -1);
}

TEST(ScrollBar, PlacesItsThumbByPositionAndRange) {
    CScrollBarUI bar;
    bar.SetPos({0, 0, 4, 100}, false);
    EXPECT_EQ(placeOf(bar), "0,0,4,100");
    // 92 pixels between the buttons; the thumb takes 100 of the 200 that there are.
    EXPECT_EQ(bar.GetThumbRect().top, 4);
    EXPECT_EQ(bar.GetThumbRect().bottom, 50);
    bar.SetScrollPos(100);
    EXPECT_EQ(bar.GetThumbRect().bottom, 96);
    bar.SetScrollRange(100000);
    EXPECT_EQ(height(bar.GetThumbRect()), 4); // never thinner than the bar
    bar.SetScrollRange(0);
    EXPECT_EQ(bar.GetScrollPos(), 0);
    EXPECT_EQ(height(bar.GetThumbRect()), 92);
    bar.SetPos({0, 0, 4, 6}, false);
    EXPECT_TRUE(isEmpty(bar.GetThumbRect()));
    EXPECT_EQ(bar.GetButton1Rect().bottom, 3);
    EXPECT_EQ(bar.GetButton2Rect().top, 3);
}

TEST(ScrollBar, SnapsToItsUnit) {
    CScrollBarUI bar;
    bar.SetAttribute(L"scrollunit", L"10");
    for (const auto& [wanted, stored] : {std::pair{14, 10}, {15, 20}, {96, 100}, {-5, 0}, {104, 100}}) {
        bar.SetScrollPos(wanted);
        EXPECT_EQ(bar.GetScrollPos(), stored);
    }
    bar.SetAttribute(L"hor", L"true");
    EXPECT_EQ(bar.GetFixedHeight(), 4);
    EXPECT_EQ(bar.GetFixedWidth(), 0);
    EXPECT_STREQ(bar.GetPicture(CScrollBarUI::PartThumb, CScrollBarUI::PictureHot),
                 L"file='scroll_thumb.png' source='8,0,16,8' mask='#FFFF00FF' corner='3,3,3,3'");
}

// Numbers beyond all sense give places that are limited, and no overflow on the way.
TEST(Layouts, StayWithinLimitsWhateverASkinAsksFor) {
    const wchar_t huge[] = L"width=\"2147483647\" height=\"2147483647\" minheight=\"2147483647\" "
                           L"padding=\"2147483647,2147483647,2147483647,-2147483648\"/>";
    for (const wchar_t* tag : {L"VBox", L"HBox", L"Container"}) {
        std::wstring markup = std::wstring(L"<") + tag + L" vscrollbar=\"true\" hscrollbar=\"true\" " +
                              L"childpadding=\"2147483647\" inset=\"-2147483648,2147483647,1,-5\">";
        for (int i = 0; i < 5000; ++i)
            markup += std::wstring(L"<Control ") + huge;
        markup += L"<Control float=\"999,-999,999,999\" pos=\"-2147483648,0,2147483647,9\"/>";
        Tree root = buildTree(markup + L"</" + tag + L">");
        for (int width : {100, 0, 100000000}) {
            root->SetPos({0, 0, width, 50}, false);
            asContainer(*root).EndDown();
            asContainer(*root).EndRight();
            for (int i = 0; i < asContainer(*root).GetCount(); i += 500) {
                const RECT& place = child(*root, i).GetPos();
                EXPECT_LE(place.left, place.right);
                EXPECT_LE(place.top, place.bottom);
            }
        }
    }
    std::wstring nested;
    for (int i = 0; i < 150; ++i)
        nested += L"<VBox float=\"500,500,900,900\" inset=\"1048576,1048576,-1048576,-1048576\">";
    for (int i = 0; i < 150; ++i)
        nested += L"</VBox>";
    Tree root = buildTree(nested);
    root->SetPos({0, 0, 100, 100}, false);
    EXPECT_EQ(placeOf(*root), "0,0,100,100");
}

namespace {

// What a walk for pending layouts meets, and in brackets what it would lay out; lays it out.
std::string layPendingOut(CControlUI& root) {
    struct Walk {
        std::string met;
        std::vector<CControlUI*> pending;
    } walk;
    const auto visit = [](CControlUI* control, void* data) {
        auto& walk = *static_cast<Walk*>(data);
        const std::wstring name(control->GetName());
        const std::string narrow(name.begin(), name.end());
        // The walk asks a control that it enters a second time.
        if (!control->IsUpdateNeeded())
            return walk.met.ends_with(narrow) ? nullptr
                                              : (walk.met += narrow, static_cast<CControlUI*>(nullptr));
        walk.met += "[" + narrow + "]";
        walk.pending.push_back(control);
        return control;
    };
    root.FindControl(visit, &walk, FindVisible | FindUpdateTest | FindMeFirst);
    for (CControlUI* control : walk.pending)
        control->SetPos(control->GetPos(), true);
    return walk.met;
}

} // namespace

TEST(PendingLayouts, AreFoundWithoutAskingTheRestOfTheTree) {
    Tree root =
        buildTree(L"<VBox name=\"r\"><HBox name=\"a\"><Control name=\"b\"/><Control name=\"c\"/></HBox>"
                  L"<VBox name=\"d\"><TabLayout name=\"e\"><VBox name=\"f\"/>"
                  L"<VBox name=\"g\"><Control name=\"h\"/></VBox></TabLayout></VBox></VBox>");
    root->SetPos({0, 0, 100, 100}, false);
    layPendingOut(*root); // marks from the making of the tree
    // The hidden page was never laid out, so that the way to it is always walked.
    CControlUI &a = child(*root, 0), &d = child(*root, 1), &tab = child(d, 0), &page = child(tab, 1);
    child(a, 1).SetText(L"changed");
    EXPECT_EQ(layPendingOut(*root), "r[a]de");
    EXPECT_EQ(layPendingOut(*root).find('['), std::string::npos);

    child(a, 0).NeedUpdate();
    page.NeedUpdate(); // hidden: asks for nothing
    EXPECT_EQ(layPendingOut(*root), "ra[b]de");

    static_cast<CTabLayoutUI&>(tab).SelectItem(1);
    EXPECT_EQ(layPendingOut(*root), "r[d]") << "the parent of the pages lays them out";
    layPendingOut(*root);
    child(a, 1).SetText(L"changed again");
    EXPECT_EQ(layPendingOut(*root), "r[a]");
    child(page, 0).NeedUpdate();
    d.SetVisible(false);
    EXPECT_EQ(layPendingOut(*root), "[r]");
    EXPECT_EQ(layPendingOut(*root).find('['), std::string::npos);
    d.SetVisible(true);
    root->SetPos({0, 0, 100, 100}, false);
    EXPECT_FALSE(child(page, 0).IsUpdateNeeded());

    // What a parent does not place stays pending, and the next walk finds it.
    auto& tabs = static_cast<CTabLayoutUI&>(tab);
    auto* added = new CContainerUI;
    added->SetName(L"n");
    tabs.AddAt(added, 0);
    EXPECT_EQ(layPendingOut(*root), "rd[e]");
    EXPECT_TRUE(layPendingOut(*root).starts_with("rde[n]"));
    EXPECT_EQ(layPendingOut(*root).find('['), std::string::npos);
}
