#include "tests/uilib/manager_host.h"
#include "uilib/controls/container.h"

using namespace UILib;

TEST(PaintManager, HoverFollowsTheMouse) {
    Host host;
    host.attach(TwoProbes);
    host.mouse(WM_MOUSEMOVE, 5, 5);
    EXPECT_EQ(host.take(), "a:11 a:9");
    host.mouse(WM_MOUSEMOVE, 6, 5);
    EXPECT_EQ(host.take(), "a:9");
    EXPECT_EQ(host.probe(L"a").last.mouse.x, 6);
    host.mouse(WM_MOUSEMOVE, 5, 60);
    EXPECT_EQ(host.take(), "a:10 b:11 b:9");
    host.mouse(WM_MOUSEMOVE, -1, -1);
    EXPECT_EQ(host.take(), "b:10");
}

TEST(PaintManager, ListenersOfMouseLeaveHearOfEveryChange) {
    Host host;
    host.attach(TwoProbes);
    EXPECT_TRUE(host.manager.AddMouseLeaveNeeded(&host.probe(L"b")));
    EXPECT_FALSE(host.manager.AddMouseLeaveNeeded(&host.probe(L"b")));
    host.mouse(WM_MOUSEMOVE, 5, 5);
    host.take();
    host.mouse(WM_MOUSEMOVE, -1, -1);
    EXPECT_EQ(host.take(), "b:10 a:10");
    EXPECT_TRUE(host.manager.RemoveMouseLeaveNeeded(&host.probe(L"b")));
}

TEST(PaintManager, APressKeepsTheMouseUntilItsRelease) {
    Host host;
    host.attach(TwoProbes);
    host.mouse(WM_MOUSEMOVE, 5, 5);
    host.mouse(WM_LBUTTONDOWN, 5, 5);
    EXPECT_TRUE(host.manager.IsCaptured());
    EXPECT_EQ(host.take(), "a:11 a:9 a:21 a!setfocus a:13");
    host.mouse(WM_MOUSEMOVE, 5, 60);
    EXPECT_EQ(host.take(), "a:9");
    host.mouse(WM_LBUTTONUP, 5, 60);
    EXPECT_FALSE(host.manager.IsCaptured());
    EXPECT_EQ(host.take(), "a:14");
    host.mouse(WM_MOUSEMOVE, 5, 60);
    EXPECT_EQ(host.take(), "a:10 b:11 b:9");
    host.mouse(WM_LBUTTONUP, 5, 60); // of no press
    EXPECT_EQ(host.take(), "");
}

TEST(PaintManager, APressEndsWithoutItsControlOrItsCapture) {
    Host host;
    host.attach(TwoProbes);
    host.mouse(WM_LBUTTONDOWN, 5, 5);
    static_cast<CContainerUI*>(host.manager.GetRoot())->Remove(&host.probe(L"a"));
    host.pump();
    host.mouse(WM_LBUTTONUP, 5, 5);
    EXPECT_FALSE(host.manager.IsCaptured());
    EXPECT_NE(GetCapture(), host.GetHWND());

    host.paint();
    host.mouse(WM_LBUTTONDOWN, 5, 5);
    host.mouse(WM_LBUTTONDBLCLK, 5, 5); // takes the capture from itself
    EXPECT_TRUE(host.manager.IsCaptured());
    host.take();
    ::ReleaseCapture();
    EXPECT_FALSE(host.manager.IsCaptured());
    EXPECT_EQ(host.take(), "b:14");
    EXPECT_FALSE(contains(host.manager.GetRoot()->GetPos(), host.probe(L"b").last.mouse));
    host.mouse(WM_LBUTTONUP, 5, 5);
    EXPECT_EQ(host.take(), "");
}

TEST(PaintManager, EventsCarryWhatTheirMessagesSay) {
    Host host;
    host.attach(TwoProbes);
    Probe& a = host.probe(L"a");
    a.SetFocus();
    host.SendMessage(WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(70, 80));
    EXPECT_EQ(a.last.kind, EventWindowSize);
    EXPECT_EQ(a.last.wParam, static_cast<WPARAM>(SIZE_MAXIMIZED));
    EXPECT_EQ(a.last.lParam, MAKELPARAM(70, 80));

    host.paint();
    host.mouse(WM_LBUTTONDOWN, 5, 5);
    host.probe(L"b").SetFocus(); // or the last event is the lost focus
    LRESULT result = 0;
    host.manager.MessageHandler(WM_CLOSE, 7, 8, result);
    EXPECT_EQ(a.last.kind, EventButtonUp);
    EXPECT_EQ(a.last.wParam, 7u);
    EXPECT_EQ(a.last.lParam, 8);
    host.mouse(WM_LBUTTONUP, 5, 5);

    BYTE before[256], keys[256] = {};
    GetKeyboardState(before);
    keys[VK_SHIFT] = 0x80;
    SetKeyboardState(keys);
    ASSERT_TRUE(host.manager.SetTimer(&a, 3, 100000));
    for (UINT number = 0; number < 255; ++number) // which it got is the manager's affair
        host.SendMessage(WM_TIMER, number);
    SetKeyboardState(before);
    EXPECT_EQ(a.last.kind, EventTimer);
    EXPECT_TRUE(a.last.keyState & KeyShift);

    POINT pointer, inside = {5, 5};
    GetCursorPos(&pointer);
    ClientToScreen(host, &inside);
    SetCursorPos(inside.x, inside.y);
    a.flags = FlagSetCursor;
    host.SendMessage(WM_SETCURSOR, 42, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    SetCursorPos(pointer.x, pointer.y);
    EXPECT_EQ(a.last.kind, EventSetCursor);
    EXPECT_EQ(a.last.wParam, 42u);
}

TEST(PaintManager, DoubleClicksRightClicksAndMenus) {
    Host host;
    host.attach(L"<VBox><Probe name=\"a\" menu=\"true\"/></VBox>");
    host.mouse(WM_LBUTTONDBLCLK, 5, 5);
    EXPECT_EQ(host.take(), "a:16");
    EXPECT_EQ(host.manager.GetFocus(), nullptr);
    host.mouse(WM_LBUTTONUP, 5, 5);
    host.mouse(WM_RBUTTONDOWN, 5, 5);
    EXPECT_EQ(host.take(), "a:14 a:21 a!setfocus a:15");
    host.SendMessage(WM_CONTEXTMENU, 0, 0);
    EXPECT_EQ(host.take(), "a:17 a!menu");
    host.SendMessage(WM_CONTEXTMENU, 0, 0); // the press has been used up
    EXPECT_EQ(host.take(), "");
}

TEST(PaintManager, UnhandledEventsGoUpToTheParents) {
    Host host;
    host.attach(L"<VBox vscrollbar=\"true\"><Probe name=\"a\" height=\"80\"/><Probe name=\"b\" "
                L"height=\"80\"/></VBox>");
    POINT point = {5, 5};
    ClientToScreen(host, &point);
    host.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), MAKELPARAM(point.x, point.y));
    EXPECT_GT(static_cast<CContainerUI*>(host.manager.GetRoot())->GetScrollPos().cy, 0);
    EXPECT_EQ(host.take().substr(0, 4), "a:18");
    EXPECT_EQ(host.probe(L"a").last.kind, EventMouseMove); // what scrolled away hears of it
}
