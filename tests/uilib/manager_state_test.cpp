#include "tests/uilib/manager_host.h"
#include "uilib/controls/container.h"

// What stays in a manager between messages: who has the mouse, the press, the focus, the tip; and
// which messages end there.

using namespace UILib;

namespace {

HWND tipOf(HWND window) {
    HWND tip = nullptr;
    while ((tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)))
        if (GetWindow(tip, GW_OWNER) == window)
            break;
    return tip;
}

struct Tip {
    std::wstring text;
    RECT rectangle;
};
Tip toolOf(HWND window) {
    wchar_t text[200] = {};
    TOOLINFOW info = {};
    info.cbSize = TTTOOLINFOW_V2_SIZE;
    info.hwnd = window;
    info.uId = reinterpret_cast<UINT_PTR>(window);
    info.lpszText = text;
    SendMessageW(tipOf(window), TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&info));
    return {text, info.rect};
}

// Takes messages away from the manager, with a result of its own.
struct Thief : IMessageFilterUI {
    LRESULT MessageHandler(UINT message, WPARAM, LPARAM, bool& handled) override {
        handled = message == wanted;
        return 7;
    }
    UINT wanted = 0;
};

int resultOf(Host& host, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    LRESULT result = 0;
    return host.manager.MessageHandler(message, wParam, lParam, result) ? static_cast<int>(result) : -1;
}

} // namespace

TEST(ManagerState, AFilterTakesAMessageButNotThePlaceOfTheMouse) {
    Host host;
    host.attach(TwoProbes);
    Thief thief;
    host.manager.AddMessageFilter(&thief);
    POINT screen = {31, 32};
    ClientToScreen(host, &screen);
    const struct {
        UINT message;
        POINT at, mouse;
    } cases[] = {{WM_MOUSEMOVE, {11, 12}, {11, 12}},     {WM_LBUTTONUP, {13, 14}, {13, 14}},
                 {WM_LBUTTONDBLCLK, {15, 16}, {15, 16}}, {WM_RBUTTONDOWN, {17, 18}, {15, 16}},
                 {WM_MOUSEWHEEL, screen, {31, 32}},      {WM_CHAR, {19, 20}, {31, 32}},
                 {WM_LBUTTONDOWN, {21, 22}, {21, 22}},   {WM_CONTEXTMENU, screen, {31, 32}},
                 {WM_NCMOUSEMOVE, {23, 24}, {31, 32}}};
    for (const auto& [message, at, mouse] : cases) {
        thief.wanted = message;
        EXPECT_EQ(resultOf(host, message, 0, MAKELPARAM(at.x, at.y)), 7) << message;
        EXPECT_EQ(host.manager.GetMousePos().x, mouse.x) << message;
        EXPECT_EQ(host.manager.GetMousePos().y, mouse.y) << message;
    }
    EXPECT_EQ(host.take(), "");
    EXPECT_TRUE(host.manager.RemoveMessageFilter(&thief));
    thief.wanted = WM_MOUSEMOVE;
    host.mouse(WM_MOUSEMOVE, 5, 5);
    EXPECT_EQ(host.take(), "a:11 a:9");
}

TEST(ManagerState, SaysWhichMessagesItHasFinished) {
    Host host;
    host.attach(TwoProbes);
    const struct {
        UINT message;
        WPARAM wParam;
        int result; // -1: not finished
    } cases[] = {{WM_ERASEBKGND, 0, 1},     {WM_SIZE, 0, 0},     {WM_PAINT, 0, 0},
                 {WM_MOUSEACTIVATE, 0, -1}, {WM_TIMER, 1, -1},   {WM_KEYDOWN, 'A', -1},
                 {WM_KILLFOCUS, 0, -1},     {WM_APP + 1, 0, -1}, {WM_NULL, 0, -1},
                 {WM_COMMAND, 5, -1},       {WM_NOTIFY, 0, -1},  {WM_CTLCOLOREDIT, 0, -1}};
    for (const auto& [message, wParam, result] : cases)
        EXPECT_EQ(resultOf(host, message, wParam), result) << message;
    CPaintManagerUI without; // a window
    LRESULT result;
    EXPECT_FALSE(without.MessageHandler(WM_ERASEBKGND, 0, 0, result));
}

namespace {

UINT reflected = 0;
LRESULT CALLBACK noteReflected(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message < 0x2000)
        return DefWindowProcW(window, message, wParam, lParam);
    reflected = message;
    return static_cast<LRESULT>(wParam + 1);
}

} // namespace

TEST(ManagerState, MessagesOfAChildGoBackToIt) {
    Host host;
    const HWND child =
        CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 10, 10, host, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(noteReflected));
    NMHDR header = {child, 3, 4};
    for (const UINT message :
         {UINT(WM_COMMAND), UINT(WM_CTLCOLOREDIT), UINT(WM_CTLCOLORSTATIC), UINT(WM_NOTIFY)}) {
        const LPARAM from =
            message == WM_NOTIFY ? reinterpret_cast<LPARAM>(&header) : reinterpret_cast<LPARAM>(child);
        EXPECT_EQ(resultOf(host, message, 41, from), 42) << message;
        EXPECT_EQ(reflected, message + 0x2000);
    }
}

TEST(ManagerState, TheTipTellsOfTheControlUnderTheRestingMouse) {
    Host host;
    host.attach(L"<VBox><Probe name=\"a\" height=\"50\" tooltip=\"first\"/><Probe name=\"b\" height=\"30\" "
                L"tooltip=\"second\"/><Probe name=\"c\"/></VBox>");
    host.probe(L"a").SetToolTipWidth(77);
    EXPECT_EQ(resultOf(host, WM_MOUSEHOVER, 0, MAKELPARAM(150, 150)), -1) << "nothing is there";
    EXPECT_EQ(resultOf(host, WM_MOUSEHOVER, 0, MAKELPARAM(5, 90)), 0);
    EXPECT_EQ(tipOf(host), nullptr) << "that one has nothing to say";
    EXPECT_EQ(resultOf(host, WM_MOUSEHOVER, 0, MAKELPARAM(5, 5)), 0);
    const HWND tip = tipOf(host);
    ASSERT_NE(tip, nullptr);
    EXPECT_EQ(toolOf(host).text, L"first");
    EXPECT_EQ(textOf(toolOf(host).rectangle), textOf(host.probe(L"a").GetPos()));
    EXPECT_EQ(SendMessageW(tip, TTM_GETMAXTIPWIDTH, 0, 0), 77);
    EXPECT_TRUE(IsWindowVisible(tip));
    host.mouse(WM_MOUSEMOVE, 5, 60);
    host.take();
    EXPECT_EQ(resultOf(host, WM_MOUSEHOVER, 9, MAKELPARAM(5, 60)), 0);
    EXPECT_EQ(host.take(), "b:12");
    EXPECT_EQ(host.probe(L"b").last.wParam, 9u);
    EXPECT_EQ(tipOf(host), tip);
    EXPECT_EQ(toolOf(host).text, L"second");
    EXPECT_EQ(SendMessageW(tip, TTM_GETMAXTIPWIDTH, 0, 0), 300);
    host.mouse(WM_MOUSEMOVE, 5, 90);
    EXPECT_FALSE(IsWindowVisible(tip)) << "gone with what it told of";
    EXPECT_EQ(resultOf(host, WM_CLOSE), -1);
    EXPECT_FALSE(IsWindow(tip));
    EXPECT_EQ(resultOf(host, WM_MOUSEHOVER, 0, MAKELPARAM(5, 5)), 0);
    EXPECT_TRUE(IsWindow(tipOf(host))) << "a window that did not close has one again";
}

// The system tells once that the mouse has left, and only while it was asked to.
TEST(ManagerState, AMouseThatHasLeftDrainsWhatItWasOver) {
    Host host;
    host.attach(TwoProbes);
    host.mouse(WM_MOUSEMOVE, 5, 5);
    host.take();
    host.SendMessage(WM_MOUSELEAVE);
    EXPECT_EQ(host.take(), "a:10");
    EXPECT_EQ(host.manager.GetMousePos().x, -1);
    EXPECT_EQ(host.manager.GetMousePos().y, -1);
    host.mouse(WM_MOUSEMOVE, 5, 5);
    host.take();
    host.SendMessage(WM_MOUSEHOVER, 0, MAKELPARAM(5, 5)); // used up what was asked for
    host.take();
    host.SendMessage(WM_MOUSELEAVE);
    EXPECT_EQ(host.take(), "");
}

TEST(ManagerState, ClosingEndsPressHoverAndFocus) {
    Host host;
    host.attach(TwoProbes);
    host.mouse(WM_MOUSEMOVE, 5, 5);
    host.mouse(WM_LBUTTONDOWN, 5, 5);
    host.take();
    EXPECT_EQ(resultOf(host, WM_CLOSE), -1);
    EXPECT_EQ(host.take(), "a:10 a:14 a:20 a!killfocus");
    EXPECT_EQ(host.manager.GetFocus(), nullptr);
    host.manager.ReleaseCapture();
}

TEST(ManagerState, ClosingGivesTheFocusToTheOwner) {
    const HWND owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                       nullptr, nullptr, nullptr);
    Host host;
    host.attach(TwoProbes);
    SetWindowLongPtrW(host, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
    SetActiveWindow(host);
    ASSERT_EQ(GetActiveWindow(), host.GetHWND());
    resultOf(host, WM_CLOSE);
    EXPECT_EQ(GetFocus(), owner);
    SetWindowLongPtrW(host, GWLP_HWNDPARENT, 0);
    DestroyWindow(owner);
}

TEST(ManagerState, APressFocusesTheWindowUnlessItIsNotToBeActivated) {
    Host host;
    host.attach(TwoProbes);
    const HWND other =
        CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 10, 10, host, nullptr, nullptr, nullptr);
    for (const UINT message : {UINT(WM_LBUTTONDOWN), UINT(WM_LBUTTONDBLCLK), UINT(WM_RBUTTONDOWN)}) {
        for (const bool noActivate : {false, true}) {
            host.manager.SetNoActivate(noActivate);
            SetFocus(other);
            host.mouse(message, 5, 5);
            EXPECT_EQ(GetFocus(), noActivate ? other : host.GetHWND()) << message;
            host.mouse(WM_LBUTTONUP, 5, 5);
        }
    }
    SetFocus(other);
    host.manager.SetFocus(nullptr, FocusWindow::Yes);
    host.manager.SetFocus(&host.probe(L"a"), FocusWindow::Yes);
    EXPECT_EQ(GetFocus(), other);
    host.manager.SetNoActivate(false);
    host.manager.SetFocus(&host.probe(L"b"), FocusWindow::No);
    EXPECT_EQ(GetFocus(), other);
    host.manager.SetFocus(&host.probe(L"a"), FocusWindow::Yes);
    EXPECT_EQ(GetFocus(), host.GetHWND());
}

TEST(ManagerState, TheFocusOfAChildWindowIsThatOfItsControl) {
    Host host;
    host.attach(TwoProbes);
    const HWND child =
        CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 10, 10, host, nullptr, nullptr, nullptr);
    const HWND below =
        CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 5, 5, child, nullptr, nullptr, nullptr);
    host.manager.AddNativeWindow(&host.probe(L"b"), child);
    host.probe(L"a").SetFocus();
    host.take();
    host.SendMessage(WM_KILLFOCUS, 0);
    host.SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(GetDesktopWindow()));
    EXPECT_EQ(host.take(), "");
    host.SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(below));
    EXPECT_EQ(host.take(), "a:20 a!killfocus b:21 b!setfocus");
    host.SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(child));
    EXPECT_EQ(host.take(), "") << "it has it already";
}

TEST(ManagerState, TheCursorIsAskedForOnlyWhereAControlWantsIt) {
    Host host;
    host.attach(TwoProbes);
    POINT pointer, inside = {5, 5};
    GetCursorPos(&pointer);
    ClientToScreen(host, &inside);
    SetCursorPos(inside.x, inside.y);
    const auto asked = [&](LPARAM hit) { return resultOf(host, WM_SETCURSOR, 0, hit); };
    EXPECT_EQ(asked(HTCLIENT), -1);
    host.probe(L"a").flags = FlagSetCursor;
    EXPECT_EQ(asked(HTCLIENT), 0);
    EXPECT_EQ(asked(HTCAPTION), -1);
    EXPECT_EQ(host.take(), "a:23");
    host.manager.SetCapture();
    EXPECT_EQ(asked(HTCLIENT), 0);
    EXPECT_EQ(host.take(), "") << "who has the mouse keeps its cursor";
    host.manager.ReleaseCapture();
    SetCursorPos(pointer.x, pointer.y);
}
