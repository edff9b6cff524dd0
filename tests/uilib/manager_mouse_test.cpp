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

namespace {

// The keys that count as down for the program's thread, as long as this lives.
class HeldKeys {
public:
    explicit HeldKeys(std::initializer_list<int> held) {
        GetKeyboardState(before);
        BYTE keys[256] = {};
        for (const int key : held)
            keys[key] = 0x80;
        SetKeyboardState(keys);
    }
    ~HeldKeys() { SetKeyboardState(before); }

private:
    BYTE before[256];
};

} // namespace

TEST(PaintManager, EventsCarryTheKeysThatAreHeld) {
    Host host;
    host.attach(TwoProbes);
    const Probe& a = host.probe(L"a");
    const struct {
        int key;
        unsigned state;
    } cases[] = {{VK_LBUTTON, KeyLeftButton}, {VK_RBUTTON, KeyRightButton},
                 {VK_SHIFT, KeyShift},        {VK_CONTROL, KeyControl},
                 {VK_MENU, KeyAlt},           {'Q', 0}};
    for (const auto& [key, state] : cases) {
        const HeldKeys held{key};
        host.mouse(WM_MOUSEMOVE, 5, 5);
        EXPECT_EQ(a.last.keyState, state) << key;
    }
    const HeldKeys held{VK_SHIFT, VK_CONTROL, VK_MENU};
    host.mouse(WM_MOUSEMOVE, 5, 5);
    EXPECT_EQ(a.last.keyState, unsigned(KeyShift | KeyControl | KeyAlt));
}

// The state of a press is that of the message, not of the moment at which it is handled.
TEST(PaintManager, PressesCarryTheKeysOfTheirMessage) {
    Host host;
    host.attach(TwoProbes);
    const Probe& a = host.probe(L"a");
    for (const UINT message : {UINT(WM_LBUTTONDOWN), UINT(WM_LBUTTONUP), UINT(WM_LBUTTONDBLCLK),
                               UINT(WM_LBUTTONUP), UINT(WM_RBUTTONDOWN)}) {
        host.SendMessage(message, MAKEWPARAM(MK_SHIFT | MK_LBUTTON, 1), MAKELPARAM(7, 8));
        EXPECT_EQ(a.last.keyState, MK_SHIFT | MK_LBUTTON) << message;
        EXPECT_EQ(a.last.mouse.x, 7) << message;
        EXPECT_EQ(a.last.mouse.y, 8) << message;
    }
    POINT screen = {21, 22};
    ClientToScreen(host, &screen);
    host.SendMessage(WM_CONTEXTMENU, 33, MAKELPARAM(screen.x, screen.y));
    EXPECT_EQ(a.last.kind, EventContextMenu);
    EXPECT_EQ(a.last.keyState, 33);
    EXPECT_EQ(a.last.mouse.x, 21);
    EXPECT_EQ(a.last.mouse.y, 22);
    EXPECT_EQ(a.last.lParam, reinterpret_cast<LPARAM>(&a));
}

TEST(PaintManager, TheSystemsCaptureFollowsThePress) {
    Host host;
    host.attach(TwoProbes);
    for (const UINT message : {UINT(WM_LBUTTONDOWN), UINT(WM_LBUTTONDBLCLK)}) {
        host.mouse(message, 5, 5);
        EXPECT_EQ(GetCapture(), host.GetHWND());
        host.mouse(WM_LBUTTONUP, 5, 5);
        EXPECT_EQ(GetCapture(), nullptr);
    }
    host.mouse(WM_RBUTTONDOWN, 5, 5);
    EXPECT_EQ(GetCapture(), nullptr);
    host.take();
    host.mouse(WM_LBUTTONDOWN, 150, 150); // on nothing
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(host.take(), "");
    host.SendMessage(WM_CONTEXTMENU, 0, 0);
    EXPECT_EQ(host.take(), "a:17") << "the right button's press still waits";
}

TEST(PaintManager, NoMenuComesWhileThePressHasTheMouse) {
    Host host;
    host.attach(TwoProbes);
    host.mouse(WM_LBUTTONDOWN, 5, 5);
    host.take();
    host.SendMessage(WM_CONTEXTMENU, 0, 0);
    EXPECT_EQ(host.take(), "");
    host.mouse(WM_LBUTTONUP, 5, 5);
}

TEST(PaintManager, TheWheelGoesToTheControlUnderItWithItsDirection) {
    Host host;
    host.attach(TwoProbes);
    std::vector<WPARAM> directions;
    struct Note {
        std::vector<WPARAM>* all;
        bool event(TUIEvent& event) {
            if (event.kind == EventScrollWheel)
                all->push_back(event.wParam);
            return true;
        }
    } note{&directions};
    host.probe(L"b").OnEvent.Add(&note, &Note::event);
    POINT screen = {5, 60};
    ClientToScreen(host, &screen);
    for (const int delta : {120, -120, -1, 1})
        host.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(screen.x, screen.y));
    EXPECT_EQ(directions, (std::vector<WPARAM>{WheelUp, WheelDown, WheelDown, WheelUp}));
    EXPECT_EQ(host.manager.GetMousePos().y, 60);
    host.take();
    host.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, 120), MAKELPARAM(screen.x + 150, screen.y + 100));
    EXPECT_EQ(host.take(), "") << "nothing is there";
}

// A tip or a child may cover the pointer: it is over the window all the same.
TEST(PaintManager, AMouseThatIsStillInsideStaysOverItsControl) {
    Host host;
    host.attach(TwoProbes);
    POINT pointer, inside = {5, 60};
    GetCursorPos(&pointer);
    ClientToScreen(host, &inside);
    SetActiveWindow(host);
    ASSERT_EQ(GetActiveWindow(), host.GetHWND());
    host.mouse(WM_MOUSEMOVE, 5, 5);
    SetCursorPos(inside.x, inside.y);
    host.take();
    host.SendMessage(WM_MOUSELEAVE);
    EXPECT_EQ(host.take(), "a:10 b:11 b:9");
    EXPECT_EQ(host.manager.GetMousePos().x, 5);
    EXPECT_EQ(host.manager.GetMousePos().y, 60);
    SetCursorPos(pointer.x, pointer.y);
}
