#include "combo_stage.h"
#include "kit/process_counts.h"
#include "refused_windows.h"
#include "tests/support/log_watch.h"
#include "uilib/controls/list_element.h"

using namespace UILib;

TEST(Combo, SelectsByMouse) {
    ComboStage stage(combo(5));
    stage.click(10, 10);
    EXPECT_EQ(stage.take(), "c!dropdown");
    ASSERT_TRUE(stage.control().IsOpen());
    stage.clickPopup(10, 50);
    EXPECT_EQ(stage.take(), "i2!itemclick c!itemselect");
    EXPECT_EQ(stage.last.wParam, 2u);
    EXPECT_EQ(stage.last.lParam, -1);
    EXPECT_TRUE(stage.closed());
    EXPECT_TRUE(stage.itemsAreBack());
    EXPECT_EQ(stage.control().GetText(), L"item 2");
    stage.open();
    stage.clickPopup(10, 50); // the present one closes too, and nothing is selected anew
    EXPECT_EQ(stage.take(), "i2!itemclick");
    EXPECT_TRUE(stage.closed());
}

TEST(Combo, DrawsAnItemHotOnlyWhileTheMouseIsOnIt) {
    ComboStage stage(combo(5, L"itembkcolor=\"#FFFFFFFF\" itemselectedbkcolor=\"#FF0000FF\" "
                              L"itemhotbkcolor=\"#FF00FF00\""));
    const auto color = [&](const wchar_t* name) {
        CControlUI& item = stage.get(name);
        return stage.pixel(item, item.GetPos().right - 2, item.GetPos().top + 2);
    };
    const auto moveTo = [&](int x, int y) { SendMessageW(stage.popup(), WM_MOUSEMOVE, 0, MAKELPARAM(x, y)); };
    stage.open();
    moveTo(10, 50);
    EXPECT_EQ(color(L"i2"), 0x00FF00u);
    stage.clickPopup(10, 50);
    EXPECT_TRUE(stage.closed());
    stage.open();
    EXPECT_EQ(color(L"i2"), 0x0000FFu);
    moveTo(10, 30);
    EXPECT_EQ(color(L"i1"), 0x00FF00u);
    stage.control().SetVisible(false); // dismissed
    EXPECT_TRUE(stage.closed());
    stage.control().SetVisible(true);
    stage.open();
    EXPECT_EQ(color(L"i1"), 0xFFFFFFu);
}

TEST(Combo, SelectsByKeyboard) {
    ComboStage stage(combo(4));
    stage.get(L"i1").SetEnabled(false);
    stage.key(VK_TAB);
    ASSERT_EQ(stage.manager.GetFocus(), &stage.control());
    const std::pair<UINT, int> keys[] = {{VK_DOWN, 0}, {VK_DOWN, 2}, {VK_UP, 0},   {VK_UP, 0},   {VK_END, 3},
                                         {VK_DOWN, 3}, {VK_HOME, 0}, {VK_NEXT, 2}, {VK_PRIOR, 0}};
    for (const auto& [key, selected] : keys) {
        stage.key(key);
        EXPECT_EQ(stage.control().GetCurSel(), selected) << key;
    }
    stage.key(VK_F4);
    ASSERT_TRUE(stage.control().IsOpen());
    stage.key(stage.popup(), VK_END);
    EXPECT_EQ(stage.control().GetCurSel(), 3);
    EXPECT_TRUE(stage.control().IsOpen());
    stage.key(stage.popup(), VK_ESCAPE);
    EXPECT_TRUE(stage.closed());
    EXPECT_EQ(stage.control().GetCurSel(), 0);
    stage.key(VK_F4);
    stage.key(stage.popup(), VK_DOWN);
    stage.key(stage.popup(), VK_RETURN);
    EXPECT_TRUE(stage.closed());
    EXPECT_EQ(stage.control().GetCurSel(), 2);
}

TEST(Combo, SizesAndPlacesItsPopup) {
    {
        ComboStage stage(combo(0));
        stage.open();
        EXPECT_EQ(height(stage.popupPlace()), 2);
        stage.control().SetEnabled(false);
        EXPECT_TRUE(stage.closed());
    }
    {
        ComboStage stage(combo(3));
        stage.open();
        RECT frame = {};
        GetWindowRect(stage, &frame);
        EXPECT_TRUE(
            equal(stage.popupPlace(), {frame.left, frame.top + 30, frame.left + 120, frame.top + 92}));
    }
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY), &monitor);
    ComboStage low(combo(20, L"dropboxsize=\"160,90\""), POINT{20, monitor.rcWork.bottom - 60});
    SetWindowPos(low, nullptr, 20, monitor.rcWork.bottom - 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    low.open();
    RECT frame = {};
    GetWindowRect(low, &frame);
    EXPECT_TRUE(equal(low.popupPlace(), {frame.left, frame.top - 90, frame.left + 160, frame.top}));
    low.clickPopup(157, 50); // on the scroll bar
    EXPECT_TRUE(low.control().IsOpen());
    low.key(low.popup(), VK_END);
    const RECT& last = low.get(L"i19").GetPos();
    EXPECT_EQ(last.bottom, 89);
    SendMessageW(low.popup(), WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_EQ(last.bottom, 89 + 16);
}

TEST(Combo, GivesTheItemsBackHoweverItCloses) {
    ComboStage stage(combo(5));
    const std::function<void()> ways[] = {
        [&] { stage.click(10, 45); },
        [&] { ::SetFocus(stage); },
        [&] { ::SetFocus(nullptr); },
        [&] { stage.control().SetVisible(false); },
        [&] { stage.control().SetEnabled(false); },
        [&] { stage.get(L"root").SetVisible(false); },
        [&] { stage.control().SelectItem((stage.control().GetCurSel() + 1) % 5); },
        [&] { DestroyWindow(stage.popup()); },
        [&] { stage.control().Remove(stage.control().GetItemAt(0)); },
    };
    for (size_t i = 0; i < std::size(ways); ++i) {
        stage.open();
        ASSERT_TRUE(stage.control().IsOpen()) << i;
        ways[i]();
        EXPECT_TRUE(stage.closed()) << i;
        EXPECT_TRUE(stage.itemsAreBack()) << i;
        stage.get(L"root").SetVisible(true);
        stage.control().SetVisible(true);
        stage.control().SetEnabled(true);
        pumpMessages();
    }
}

TEST(Combo, SurvivesTheEndOfItsWindowWhileOpen) {
    {
        ComboStage stage(combo(3));
        stage.open();
    }
    EXPECT_EQ(FindWindowW(L"ComboWnd", nullptr), nullptr);
    ComboStage stage(combo(3));
    stage.open();
    static_cast<IContainerUI*>(stage.get(L"root").GetInterface(L"IContainer"))->RemoveAll();
    EXPECT_TRUE(pumpUntil([&] { return !stage.popup(); }));
}

// A listener may empty the list while the popup's own event is on the stack.
TEST(Combo, MayBeEmptiedByItsOwnNotification) {
    for (const wchar_t* which : {L"itemclick", L"itemselect"}) {
        ComboStage stage(combo(3));
        stage.open();
        stage.onNotify = [&](TUINotify& notification) {
            if (notification.type == which)
                stage.control().RemoveAll();
        };
        stage.clickPopup(10, 30);
        EXPECT_TRUE(stage.closed());
        EXPECT_EQ(stage.control().GetCount(), 0);
        EXPECT_EQ(stage.control().GetCurSel(), -1);
    }
}

// A double click in the list activates; the item's own listeners hear it once.
TEST(Combo, ItsItemsTellTheWindowOfTheCombo) {
    ComboStage stage(combo(3));
    stage.open();
    struct Counter {
        bool count(TUINotify&) { return ++calls > 0; }
        int calls = 0;
    } own;
    stage.get(L"i1").OnNotify.Add(&own, &Counter::count);
    SendMessageW(stage.popup(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(10, 30));
    EXPECT_EQ(stage.take(), "i1!itemactivate");
    EXPECT_EQ(own.calls, 1);
}

// The text on the page and in the list is set in the window's font, open or not.
TEST(Combo, KeepsTheFontOfItsWindowWhileOpen) {
    ComboStage stage(combo(3));
    stage.manager.AddFont(0, L"Liberation Sans", 17, true, false, false, false);
    stage.open();
    CPaintManagerUI& popup = *stage.get(L"i1").GetManager();
    ASSERT_NE(&popup, &stage.manager);
    EXPECT_TRUE(popup.GetFontInfo(0).spec == stage.manager.GetFontInfo(0).spec);
}

TEST(Combo, KeepsTheSelectionOnItsItem) {
    ComboStage stage(combo(4));
    CComboUI& c = stage.control();
    c.SelectItem(2);
    c.Remove(c.GetItemAt(0));
    EXPECT_EQ(c.GetCurSel(), 1);
    c.SetItemIndex(c.GetItemAt(1), 2);
    EXPECT_EQ(c.GetText(), L"item 2");
    auto* added = new CListLabelElementUI;
    c.AddAt(added, 0);
    EXPECT_EQ(c.GetText(), L"item 2");
    EXPECT_EQ(c.GetCurSel(), 3);
    EXPECT_TRUE(c.SelectItem(99)); // past the end: the last
    EXPECT_FALSE(c.SelectItem(-1));
    EXPECT_EQ(c.GetText(), L"");
    c.GetItemAt(1)->SetEnabled(false);
    c.SelectItem(0);
    EXPECT_FALSE(c.SelectItem(1));
    EXPECT_EQ(c.GetCurSel(), -1);
    c.SelectItem(0);
    c.SetVisible(false);
    added->SetVisible(true);
    EXPECT_EQ(c.GetCurSel(), 0);
    c.SetVisible(true);
    added->SetVisible(false);
    EXPECT_EQ(c.GetCurSel(), -1);
}

TEST(Combo, StaysOpenWhenAskedTo) {
    ComboStage stage(combo(4));
    stage.control().SetSelectCloseFlag(false);
    stage.open();
    stage.key(stage.popup(), VK_DOWN); // a key keeps what was asked for
    stage.control().SelectItem(2);
    pumpMessages();
    EXPECT_TRUE(stage.control().IsOpen());
    EXPECT_EQ(stage.control().GetCurSel(), 2);
}

// The system may give no window, or take it back before it is whole.
TEST(Combo, KeepsItsItemsWhenThePopupCannotBeMade) {
    ComboStage stage(combo(3));
    {
        const RefusedWindows refused(L"ComboWnd");
        test::allowErrors(L"no popup window, error ");
        EXPECT_FALSE(stage.control().Activate());
        EXPECT_EQ(test::logged(L"no popup window, error "), 1);
    }
    EXPECT_FALSE(stage.control().IsOpen());
    EXPECT_TRUE(stage.itemsAreBack());
    stage.open();
    EXPECT_TRUE(stage.control().IsOpen());
}

TEST(Combo, LeaksNothing) {
    ComboStage stage(combo(5));
    // Turn by turn: an item is selected, the popup dismissed, the focus taken away.
    const auto open = [&](int times) {
        for (int i = 0; i < times && !HasFailure(); ++i) {
            ASSERT_TRUE(stage.control().Activate());
            if (i % 3 == 0)
                stage.control().SelectItem((stage.control().GetCurSel() + 1) % 5);
            else if (i % 3 == 1)
                stage.control().SetVisible(false);
            else
                SendMessageW(stage.popup(), WM_KILLFOCUS, 0, 0);
            pumpMessages();
            ASSERT_FALSE(stage.control().IsOpen());
            stage.control().SetVisible(true);
        }
    };
    open(50);
    kit::ProcessCounts before, after;
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), before));
    open(10000);
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), after));
    EXPECT_TRUE(stage.itemsAreBack());
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_LE(after.windows, before.windows + 2);
    EXPECT_LE(after.handles, before.handles + 2);
}
