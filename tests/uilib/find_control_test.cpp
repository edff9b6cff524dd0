#include "tests/uilib/tree.h"
#include "uilib/controls/scroll_bar.h"

#include <gtest/gtest.h>

// Which control of a tree lies under a point, and where a cover lies.

using namespace UILib;

namespace {

std::string under(CControlUI& root, int x, int y, unsigned more = 0) {
    POINT at = {x, y};
    const auto take = [](CControlUI* control, void*) { return control; };
    const CControlUI* found = root.FindControl(take, &at, FindVisible | FindHitTest | FindTopFirst | more);
    if (!found)
        return "nothing";
    const std::wstring name(found->GetName().IsEmpty() ? found->GetClass() : found->GetName().GetData());
    return std::string(name.begin(), name.end());
}

// 80 by 80 seen of 120: a bar of 4 at the right, and something that floats in the margin.
Tree scrolled() {
    Tree root = buildTree(
        L"<VBox name=\"r\" inset=\"10,10,10,10\" vscrollbar=\"true\"><Control name=\"a\" height=\"60\"/>"
        L"<VBox name=\"b\" height=\"60\"><Control name=\"c\" height=\"30\"/></VBox>"
        L"<Control name=\"f\" float=\"true\" pos=\"0,0,6,6\"/></VBox>");
    root->SetPos({0, 0, 100, 100}, false);
    return root;
}

} // namespace

TEST(ControlUnderAPoint, IsTheOneThatIsSeenThere) {
    Tree root = scrolled();
    CContainerUI& box = asContainer(*root);
    struct {
        int x, y;
        const char *first, *scrolled;
    } const cases[] = {{20, 20, "a", "a"},
                       {20, 29, "a", "a"},
                       {20, 30, "a", "c"},
                       {20, 60, "a", "b"},
                       {20, 75, "c", "b"},
                       {20, 89, "c", "b"},
                       {20, 90, "r", "r"},
                       {2, 2, "f", "f"},
                       {7, 7, "r", "r"},
                       {88, 50, "ScrollBar", "ScrollBar"},
                       {85, 50, "a", "c"},
                       {95, 50, "r", "r"},
                       {100, 50, "nothing", "nothing"}};
    for (const auto& point : cases)
        EXPECT_EQ(under(*root, point.x, point.y), point.first) << point.x << "," << point.y;
    box.EndDown();
    for (const auto& point : cases)
        EXPECT_EQ(under(*root, point.x, point.y), point.scrolled) << point.x << "," << point.y << " scrolled";
}

TEST(ControlUnderAPoint, HeedsWhatTakesNoMouse) {
    Tree root = scrolled();
    CContainerUI& box = asContainer(*root);
    child(*root, 0).SetMouseEnabled(false);
    EXPECT_EQ(under(*root, 20, 20), "r");
    child(*root, 0).SetMouseEnabled(true);
    child(*root, 0).SetEnabled(false);
    EXPECT_EQ(under(*root, 20, 20, FindEnabled), "r");
    EXPECT_EQ(under(*root, 20, 20), "a");
    box.SetMouseChildEnabled(false);
    EXPECT_EQ(under(*root, 20, 75), "r");
    EXPECT_EQ(under(*root, 2, 2), "r");
    EXPECT_EQ(under(*root, 88, 50), "ScrollBar");
    box.SetMouseChildEnabled(true);
    box.SetMouseEnabled(false);
    EXPECT_EQ(under(*root, 20, 75), "c");
    EXPECT_EQ(under(*root, 7, 7), "nothing");
    EXPECT_EQ(under(*root, 88, 50), "nothing");
    EXPECT_FALSE(box.GetVerticalScrollBar()->IsMouseEnabled());
    child(*root, 0).SetVisible(false);
    EXPECT_EQ(under(*root, 20, 20), "nothing");
}

TEST(ControlUnderAPoint, OfTwoIsTheLaterOneFromTheTop) {
    Tree root = buildTree(L"<Container name=\"r\"><Control name=\"a\"/><Control name=\"b\"/></Container>");
    root->SetPos({0, 0, 50, 50}, false);
    EXPECT_EQ(under(*root, 20, 20), "b");
    POINT at = {20, 20};
    const auto take = [](CControlUI* control, void*) { return control; };
    EXPECT_EQ(root->FindControl(take, &at, FindVisible | FindHitTest), &child(*root, 0));
    EXPECT_EQ(root->FindControl(take, &at, FindVisible | FindHitTest | FindMeFirst), root.get());
}

TEST(Cover, LiesOverItsControlAndGoesWithIt) {
    Tree root = buildTree(L"<VBox><Control name=\"a\" height=\"40\"/></VBox>");
    CControlUI& a = child(*root, 0);
    auto* over = new CControlUI;
    over->SetName(L"over");
    over->SetMaxWidth(30);
    over->SetMinHeight(50);
    a.SetCover(over);
    root->SetPos({10, 20, 110, 120}, false);
    EXPECT_EQ(placeOf(*over), "10,20,40,70");
    EXPECT_EQ(under(*root, 15, 25), "over");
    EXPECT_EQ(under(*root, 45, 25), "a");
    root->Move(5, -5, false);
    EXPECT_EQ(placeOf(*over), "15,15,45,65");
    a.SetVisible(false);
    EXPECT_FALSE(over->IsVisible());
    root->Move(100, 100, false);
    EXPECT_EQ(placeOf(*over), "15,15,45,65");
    a.SetVisible(true);
    EXPECT_TRUE(over->IsVisible());
    a.SetVisibleKeepFocus(false);
    EXPECT_FALSE(over->IsVisible());

    struct Gone {
        bool count(CControlUI&) { return ++times > 0; }
        int times = 0;
    } gone;
    over->OnDestroy.Add(&gone, &Gone::count);
    a.SetCover(over); // the same one stays
    EXPECT_EQ(gone.times, 0);
    auto* next = new CControlUI;
    a.SetCover(next);
    EXPECT_EQ(gone.times, 1);
    EXPECT_FALSE(next->IsVisible()) << "of a hidden control";
    next->OnDestroy.Add(&gone, &Gone::count);
    root.reset();
    EXPECT_EQ(gone.times, 2);
}

TEST(Cover, MayFloat) {
    Tree root = buildTree(L"<VBox><Control name=\"a\" height=\"40\"/></VBox>");
    CControlUI& a = child(*root, 0);
    Tree markup = buildTree(L"<VBox><Control float=\"0.5,0.5,1,1\" pos=\"1,2,-3,-4\"/></VBox>");
    auto* over = &child(*markup, 0);
    asContainer(*markup).Remove(over, Destroy::No);
    over->SetManager(nullptr, &a, false);
    a.SetCover(over);
    root->SetPos({10, 20, 110, 120}, false);
    EXPECT_EQ(placeOf(*over), "61,42,111,62") << "half of 100 by 40, a pixel and two further";
}
