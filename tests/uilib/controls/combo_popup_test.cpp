#include "combo_stage.h"
#include "tests/uilib/repaint.h"
#include "tests/uilib/tree.h"
#include "uilib/controls/list_element.h"
#include "uilib/controls/scroll_bar.h"

#include <random>

// The list that a combo lets down: what it shows, how it scrolls and which item it takes.

using namespace UILib;

namespace {

constexpr wchar_t Look[] =
    L"itembkcolor=\"#FF000001\" itemselectedbkcolor=\"#FF000002\" itemhotbkcolor=\"#FF000003\" "
    L"itemdisabledbkcolor=\"#FF000004\" dropboxsize=\"0,82\" ";
constexpr int Seen = 82, ItemHeight = 20;

class Popup : public ComboStage {
public:
    explicit Popup(int items, const std::wstring& attributes = L"")
        : ComboStage(combo(items, (Look + attributes).c_str())) {
        control().SetSelectCloseFlag(false);
        open();
        body = control().GetItemAt(0)->GetParent();
        list = std::make_unique<Repaints>(popup(), *body->GetManager());
        page = std::make_unique<Repaints>(*this, manager);
    }

    CControlUI& item(int index) { return *control().GetItemAt(index); }
    CContainerUI& box() { return asContainer(*body); }
    void send(UINT message, int x, int y) { SendMessageW(popup(), message, 0, MAKELPARAM(x, y)); }
    void press(UINT key) { SendMessageW(popup(), WM_KEYDOWN, key, 1); }
    void wheel(int delta) { SendMessageW(popup(), WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0); }
    std::string color(int index) {
        const RECT& place = item(index).GetPos();
        return list->at(place.right - 1, place.top + 1);
    }

    CControlUI* body;
    std::unique_ptr<Repaints> list, page;
};

} // namespace

TEST(ComboPopup, ListsItsItemsWithinItsBorderAndBesideItsBar) {
    Popup few(3);
    EXPECT_EQ(placesIn(*few.body), "1,1,119,21 1,21,119,41 1,41,119,61");
    EXPECT_FALSE(few.box().GetVerticalScrollBar()->IsVisible());
    EXPECT_EQ(few.list->at(0, 0), "9396A4");
    EXPECT_EQ(few.list->at(119, 61), "9396A4");
    few.control().SetSelectCloseFlag(true);
    few.control().SelectItem(0);
    EXPECT_TRUE(few.closed());
    Popup many(6);
    EXPECT_EQ(placeOf(many.item(5)), "1,101,115,121");
    EXPECT_EQ(placeOf(*many.box().GetVerticalScrollBar()), "115,1,119,81");
    EXPECT_EQ(many.list->at(117, 20), "6DABFF");
    EXPECT_EQ(many.list->at(117, 78), "FFFFFF");
}

// The colours of an item, by what it is: one that the mouse is on, the selected, the others.
TEST(ComboPopup, ShowsWhichItemIsHotWhichSelectedAndWhichDisabled) {
    Popup p(4, L"itemaltbk=\"true\" itemhlinesize=\"2\" itemhlinecolor=\"#FF00FF00\" ");
    const std::string none = "203040"; // the ground of the list
    const auto colors = [&] {
        std::string all;
        for (int i = 0; i < 4; ++i)
            all += (i ? " " : "") + p.color(i);
        return all;
    };
    EXPECT_EQ(colors(), none + " 000001 " + none + " 000001");
    EXPECT_EQ(p.list->by([&] { p.send(WM_MOUSEMOVE, 10, 30); }), "1,21,119,41");
    EXPECT_EQ(colors(), none + " 000003 " + none + " 000001");
    EXPECT_EQ(p.list->by([&] { p.send(WM_MOUSEMOVE, 12, 31); }), "");
    p.send(WM_RBUTTONDOWN, 10, 30);
    EXPECT_EQ(colors(), none + " 000003 " + none + " 000001");
    p.send(WM_MOUSEMOVE, 10, 10);
    EXPECT_EQ(colors(), "000003 000002 " + none + " 000001") << "the mouse is that of the item";
    p.item(0).SetEnabled(false);
    EXPECT_EQ(colors(), "000004 000002 " + none + " 000001");
    p.send(WM_MOUSEMOVE, 10, 70);
    p.item(0).SetEnabled(true);
    EXPECT_EQ(colors(), none + " 000002 " + none + " 000003");
    EXPECT_EQ(p.list->at(50, 20), "00FF00");
    EXPECT_EQ(p.list->at(50, 21), "00FF00");
    EXPECT_EQ(p.list->stale(), "");
    p.item(2).SetVisible(false); // every second of those that are seen
    p.body->NeedUpdate();
    p.list->settle();
    p.send(WM_MOUSEMOVE, 10, 10);
    EXPECT_EQ(p.color(3), none);
}

TEST(ComboPopup, ScrollsNoFurtherThanTheSelectionNeeds) {
    Popup p(10);
    const int range = 10 * ItemHeight - (Seen - 2);
    std::mt19937 chance(3);
    const std::pair<UINT, int> keys[] = {{VK_DOWN, 1},   {VK_UP, -1},   {VK_NEXT, 1},
                                         {VK_PRIOR, -1}, {VK_END, 100}, {VK_HOME, -100}};
    int selected = -1, scrolled = 0;
    for (int round = 0; round < 60; ++round) {
        if (chance() % 4 == 0) {
            const bool down = chance() % 2;
            const std::string invalid = p.list->by([&] { p.wheel(down ? -120 : 120); });
            const int old = std::exchange(scrolled, std::clamp(scrolled + (down ? 16 : -16), 0, range));
            EXPECT_TRUE(old == scrolled || !invalid.empty());
        } else {
            const auto& [key, step] = keys[chance() % std::size(keys)];
            p.press(key);
            selected = std::clamp(selected + step, 0, 9);
            const int top = selected * ItemHeight;
            scrolled = std::clamp(scrolled, top + ItemHeight - (Seen - 2), top);
        }
        ASSERT_EQ(p.control().GetCurSel(), selected);
        ASSERT_EQ(p.box().GetScrollPos().cy, scrolled);
        EXPECT_EQ(p.item(0).GetPos().top, 1 - scrolled);
        EXPECT_EQ(p.list->stale(), "");
        EXPECT_EQ(p.page->stale(), "") << "the combo shows what is selected";
    }
}

// Keys pass over items that cannot be selected, and stay where there is none beyond.
TEST(ComboPopup, KeysTakeTheNextItemThatCanBeSelected) {
    Popup p(8);
    for (const int off : {0, 3, 4, 7})
        p.item(off).SetEnabled(false);
    p.item(5).SetVisible(false);
    const std::pair<UINT, int> keys[] = {{VK_DOWN, 1},  {VK_DOWN, 2}, {VK_DOWN, 6}, {VK_UP, 2},
                                         {VK_PRIOR, 1}, {VK_UP, 1},   {VK_NEXT, 2}, {VK_HOME, 1}};
    for (const auto& [key, wanted] : keys) {
        p.press(key);
        EXPECT_EQ(p.control().GetCurSel(), wanted) << key;
        for (int i = 0; i < 8; ++i)
            EXPECT_EQ(static_cast<CListElementUI&>(p.item(i)).IsSelected(), i == wanted) << i;
    }
    EXPECT_EQ(p.control().FindSelectable(7, true), -1);
    EXPECT_EQ(p.control().FindSelectable(-3, true), 1);
    EXPECT_EQ(p.control().FindSelectable(99, false), 6);
}

TEST(ComboPopup, ClosesByAClickOnAnItemAndNotOnTheBar) {
    Popup p(10);
    p.control().SetSelectCloseFlag(true);
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK}) {
        p.send(message, 117, 40);
        p.send(WM_LBUTTONUP, 50, 30); // dragged off the bar
        pumpMessages();
        EXPECT_TRUE(p.control().IsOpen());
    }
    EXPECT_EQ(p.control().GetCurSel(), -1);
    p.send(WM_LBUTTONUP, 117, 40);
    pumpMessages();
    EXPECT_TRUE(p.control().IsOpen());
    p.take();
    p.box().SetScrollPos({0, 0});
    p.send(WM_RBUTTONDOWN, 50, 30);
    EXPECT_EQ(p.take(), "i1!itemclick c!itemselect");
    EXPECT_TRUE(p.closed());
}

// A disabled item is no choice, and a click on it none either.
TEST(ComboPopup, PassesOverAClickOnADisabledItem) {
    Popup p(4);
    p.item(1).SetEnabled(false);
    p.take();
    EXPECT_EQ(p.list->by([&] { p.send(WM_LBUTTONDOWN, 50, 30); }), "");
    EXPECT_EQ(p.take(), "");
    EXPECT_EQ(p.control().GetCurSel(), -1);
    p.item(1).SetEnabled(true);
    p.item(1).SetMouseEnabled(false); // the combo's own affair then
    TUIEvent press = {EventButtonDown, &p.item(1)};
    p.item(1).Event(press);
    EXPECT_EQ(p.take(), "");
}
