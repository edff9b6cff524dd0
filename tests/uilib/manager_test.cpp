#include "tests/uilib/probe.h"
#include "uilib/controls/container.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/render_engine.h"
#include "uilib/core/window.h"
#include "utility/log.h"

#include <gtest/gtest.h>

#include <thread>

using namespace UILib;

namespace {

// A small window with a manager and nothing else; its messages are real.
class Host : public CWindowWnd {
public:
    Host() {
        CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
        const POINT at = awayFromPointer();
        Create(nullptr, L"", WS_POPUP | WS_VISIBLE, WS_EX_NOACTIVATE, at.x, at.y, 200, 200);
        EXPECT_NE(window, nullptr) << "these tests need a display";
        manager.Init(window);
        manager.AddNotifier(&creator);
    }
    ~Host() override { DestroyWindow(window); }

    CControlUI* attach(const std::wstring& elements, int width = 100, int height = 100) {
        CDialogBuilder builder;
        CControlUI* root =
            builder.Create((L"<Window>" + elements + L"</Window>").c_str(), nullptr, &creator, &manager);
        manager.AttachDialog(root);
        root->SetPos({0, 0, width, height}, false);
        paint();
        creator.take();
        return root;
    }
    // What the first paint does besides painting: after it no update is pending.
    void paint() {
        LRESULT result;
        InvalidateRect(window, nullptr, FALSE);
        manager.MessageHandler(WM_PAINT, 0, 0, result);
        pump();
    }
    void pump() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    LRESULT mouse(UINT message, int x, int y) { return SendMessage(message, 0, MAKELPARAM(x, y)); }
    Probe& probe(const wchar_t* name) { return static_cast<Probe&>(*manager.FindControl(name)); }
    std::string take() { return creator.take(); }

    CPaintManagerUI manager;
    ProbeCreator creator;

private:
    const wchar_t* GetWindowClassName() const override { return L"uilib test host"; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        LRESULT result = 0;
        if (manager.MessageHandler(message, wParam, lParam, result))
            return result;
        return CWindowWnd::HandleMessage(message, wParam, lParam);
    }
};

const wchar_t TwoProbes[] =
    L"<VBox><Probe name=\"a\" height=\"50\"/><Probe name=\"b\" height=\"50\"/></VBox>";
const wchar_t ThreeStops[] =
    L"<VBox><Stop name=\"a\" height=\"10\"/><Probe name=\"x\" height=\"10\"/>"
    L"<Stop name=\"b\" height=\"10\"/><Stop name=\"off\" enabled=\"false\"/>"
    L"<Stop name=\"gone\" visible=\"false\"/><Stop name=\"c\" height=\"10\"/></VBox>";

} // namespace

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

TEST(PaintManager, KeysGoToTheFocusAndTheirReleaseToWhoHadThem) {
    Host host;
    host.attach(TwoProbes);
    host.SendMessage(WM_KEYDOWN, 'Q', 0);
    EXPECT_EQ(host.take(), "");
    host.probe(L"a").SetFocus();
    host.take();
    host.SendMessage(WM_KEYDOWN, 'Q', 0);
    host.SendMessage(WM_CHAR, 'q', 0);
    EXPECT_EQ(host.probe(L"a").last.key, L'q');
    host.probe(L"b").SetFocus();
    EXPECT_EQ(host.take(), "a:3 a:5 a:20 a!killfocus b:21 b!setfocus");
    host.SendMessage(WM_KEYUP, 'Q', 0);
    host.SendMessage(WM_KEYUP, 'Q', 0);
    EXPECT_EQ(host.take(), "a:4");
    host.probe(L"b").SetVisible(false);
    EXPECT_EQ(host.manager.GetFocus(), nullptr);
    host.probe(L"a").SetEnabled(false);
    host.probe(L"a").SetFocus(); // cannot take it
    EXPECT_EQ(host.manager.GetFocus(), nullptr);
}

TEST(PaintManager, TabWalksTheStopsAndWraps) {
    Host host;
    host.attach(ThreeStops);
    std::wstring order;
    const auto step = [&](Tab direction) {
        host.manager.SetNextTabControl(direction);
        return std::wstring(host.manager.GetFocus()->GetName());
    };
    host.manager.SetFocus(nullptr, FocusWindow::No);
    EXPECT_EQ(step(Tab::Forward), L"a");
    EXPECT_EQ(step(Tab::Forward), L"b");
    EXPECT_EQ(step(Tab::Forward), L"c");
    EXPECT_EQ(step(Tab::Forward), L"a");
    EXPECT_EQ(step(Tab::Backward), L"c");
    EXPECT_EQ(step(Tab::Backward), L"b");
    host.manager.SetFocus(nullptr, FocusWindow::No);
    EXPECT_EQ(step(Tab::Backward), L"a");
    LRESULT result;
    EXPECT_TRUE(host.manager.PreMessageHandler(WM_KEYDOWN, VK_TAB, 0, result));
    EXPECT_TRUE(host.manager.GetFocus()->GetName() == L"b");
    host.manager.SetFocusNeeded(&host.probe(L"c"));
    host.paint(); // lays out, and asks for one that gives the focus
    EXPECT_TRUE(host.manager.GetFocus()->GetName() == L"c");
}

// The skin may say so of a window.
TEST(PaintManager, FocusMayWaitForTheTabKey) {
    Host host;
    host.manager.SetWindowAttribute(L"keyboardfocus", L"true");
    host.attach(ThreeStops);
    host.paint();
    EXPECT_EQ(host.manager.GetFocus(), nullptr);
    const auto tab = [&] {
        LRESULT result;
        host.manager.PreMessageHandler(WM_KEYDOWN, VK_TAB, 0, result);
    };
    tab();
    EXPECT_TRUE(host.probe(L"a").ShowsFocus());
    host.manager.SetFocus(&host.probe(L"b"), FocusWindow::No);
    EXPECT_TRUE(host.probe(L"b").ShowsFocus()) << "moved by the program, in a keyboard user's hands";
    const RECT& place = host.probe(L"c").GetPos();
    host.mouse(WM_LBUTTONDOWN, place.left, place.top);
    host.mouse(WM_LBUTTONUP, place.left, place.top);
    EXPECT_TRUE(host.probe(L"c").IsFocused());
    EXPECT_FALSE(host.probe(L"c").ShowsFocus());
    tab();
    EXPECT_TRUE(host.probe(L"a").ShowsFocus()) << "goes on from what was clicked";
}

TEST(PaintManager, ShortcutsActivate) {
    Host host;
    host.attach(L"<VBox><Stop name=\"field\"/><Label name=\"text\" shortcut=\"n\"/>"
                L"<Stop name=\"ok\" shortcut=\"O\"/></VBox>");
    host.manager.SetFocus(nullptr, FocusWindow::No);
    host.take();
    LRESULT result;
    EXPECT_TRUE(host.manager.PreMessageHandler(WM_SYSCHAR, 'o', 0, result));
    EXPECT_EQ(host.take(), "ok:21 ok!setfocus ok:activate");
    EXPECT_TRUE(host.manager.PreMessageHandler(WM_SYSCHAR, 'N', 0, result));
    EXPECT_NE(host.take().find("field:activate"), std::string::npos); // the walk goes upwards
    EXPECT_FALSE(host.manager.PreMessageHandler(WM_SYSCHAR, 'z', 0, result));
    host.probe(L"ok").SetFocus();
    host.take();
    host.manager.PreMessageHandler(WM_SYSKEYDOWN, VK_F5, 0, result);
    EXPECT_EQ(host.take(), "ok:6");
}

TEST(PaintManager, QueuedNotificationsMergeOnRequest) {
    Host host;
    host.attach(TwoProbes);
    TUINotify notification;
    notification.type = L"tick";
    notification.sender = &host.probe(L"a");
    for (int i = 0; i < 3; ++i)
        host.manager.SendNotify(notification, Delivery::Queued, Repeats::Merge);
    host.manager.SendNotify(&host.probe(L"b"), L"tick", 0, 0, Delivery::Queued);
    host.manager.SendNotify(&host.probe(L"b"), L"tick", 0, 0, Delivery::Queued);
    EXPECT_EQ(host.take(), "");
    host.pump();
    EXPECT_EQ(host.take(), "a!tick b!tick b!tick");
}

TEST(PaintManager, RemovedControlsLiveUntilTheQueueRuns) {
    Host host;
    CControlUI* root = host.attach(TwoProbes);
    Probe& a = host.probe(L"a");
    bool gone = false;
    struct Watch {
        bool* gone;
        bool set(CControlUI&) { return *gone = true; }
    } watch{&gone};
    a.OnDestroy.Add(&watch, &Watch::set);
    a.SetFocus();
    host.manager.SetTimer(&a, 1, 100000);
    host.manager.SendNotify(&a, L"late", 0, 0, Delivery::Queued);
    host.mouse(WM_MOUSEMOVE, 5, 5);
    static_cast<CContainerUI*>(root)->Remove(&a);
    EXPECT_FALSE(gone);
    host.take();
    host.pump();
    EXPECT_TRUE(gone);
    EXPECT_EQ(host.manager.GetFocus(), nullptr);
    EXPECT_EQ(host.manager.FindControl(L"a"), nullptr);
    host.mouse(WM_MOUSEMOVE, 5, 60); // no leave event to the dead
    EXPECT_NE(host.manager.FindControl(L"b"), nullptr);
}

TEST(PaintManager, TimersReachTheirControlUntilKilled) {
    Host host;
    host.attach(TwoProbes);
    Probe& a = host.probe(L"a");
    int count = 0;
    a.onTimer = [&] { ++count; };
    EXPECT_TRUE(host.manager.SetTimer(&a, 7, 10));
    EXPECT_FALSE(host.manager.SetTimer(&a, 7, 10)); // runs already
    const auto waitForTicks = [&](int wanted, DWORD milliseconds) {
        const DWORD end = GetTickCount() + milliseconds;
        while (count < wanted && GetTickCount() < end) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
            host.pump();
        }
        return count >= wanted;
    };
    EXPECT_TRUE(waitForTicks(2, 5000));
    EXPECT_EQ(a.last.wParam, 7u);
    EXPECT_TRUE(host.manager.KillTimer(&a, 7));
    EXPECT_FALSE(host.manager.KillTimer(&a, 8));
    host.pump();
    count = 0;
    EXPECT_FALSE(waitForTicks(1, 100));
    EXPECT_TRUE(host.manager.SetTimer(&a, 7, 10)); // the same record again
    EXPECT_TRUE(waitForTicks(1, 5000));
}

TEST(PaintManager, ChildrenThatALostFocusRemovesAreNotHidden) {
    Host host;
    CControlUI* root =
        host.attach(L"<VBox><VBox name=\"box\"><Stop name=\"a\"/><Stop name=\"b\"/></VBox></VBox>");
    auto* box = static_cast<CContainerUI*>(host.manager.FindControl(L"box"));
    struct Emptier {
        CContainerUI* box;
        bool empty(TUINotify& notification) {
            if (notification.type == L"killfocus")
                box->RemoveAll();
            return true;
        }
    } emptier{box};
    Probe &a = host.probe(L"a"), &b = host.probe(L"b");
    a.OnNotify.Add(&emptier, &Emptier::empty);
    a.SetFocus();
    root->SetVisible(false);
    EXPECT_EQ(box->GetCount(), 0);
    EXPECT_TRUE(b.IsVisible());
}

// Dispatched in a popup that the window owns, a message is none of the window's.
TEST(PaintManager, FiltersSeeTheMessagesOfChildrenOnly) {
    struct Counter : IMessageFilterUI {
        LRESULT MessageHandler(UINT, WPARAM, LPARAM, bool&) override { return ++calls; }
        int calls = 0;
    } counter;
    Host host;
    host.manager.AddPreMessageFilter(&counter);
    const auto make = [](DWORD style, HWND parent) {
        return CreateWindowExW(0, L"STATIC", L"", style, 0, 0, 10, 10, parent, nullptr, nullptr, nullptr);
    };
    const HWND popup = make(WS_POPUP, host);
    MSG message = {};
    message.hwnd = make(WS_CHILD, popup);
    message.message = WM_KEYDOWN;
    EXPECT_FALSE(CPaintManagerUI::TranslateMessage(&message));
    EXPECT_EQ(counter.calls, 0);
    message.hwnd = make(WS_CHILD, host);
    CPaintManagerUI::TranslateMessage(&message);
    EXPECT_EQ(counter.calls, 1);
    DestroyWindow(popup);
}

TEST(PaintManager, NamesFollowTheTree) {
    Host host;
    CControlUI* root = host.attach(TwoProbes);
    host.probe(L"a").SetName(L"renamed");
    EXPECT_EQ(host.manager.FindControl(L"a"), nullptr);
    EXPECT_NE(host.manager.FindControl(L"renamed"), nullptr);
    static_cast<CContainerUI*>(root)->Add(new Probe(host.creator.log, L"Probe", 0));
    CControlUI* added = static_cast<CContainerUI*>(root)->GetItemAt(2);
    added->SetName(L"added");
    EXPECT_EQ(host.manager.FindControl(L"added"), added);
    EXPECT_EQ(added->GetParent(), root);
    host.attach(L"<VBox name=\"other\"/>");
    EXPECT_EQ(host.manager.FindControl(L"renamed"), nullptr);
    EXPECT_NE(host.manager.FindControl(L"other"), nullptr);
}

TEST(PaintManager, VirtualWindowsAreNamedInNotifications) {
    Host host;
    host.attach(L"<VBox><VBox virtualwnd=\"inner\"><Probe name=\"a\"/></VBox><Probe name=\"b\"/></VBox>");
    TUINotify notification;
    notification.sender = &host.probe(L"a");
    host.manager.SendNotify(notification);
    EXPECT_TRUE(notification.virtualWindow == L"inner");
    notification.sender = &host.probe(L"b");
    host.manager.SendNotify(notification);
    EXPECT_TRUE(notification.virtualWindow.IsEmpty());
}

TEST(PaintManager, WindowAttributesComeFromTheSkin) {
    Host host;
    CDialogBuilder builder;
    CControlUI* root = builder.Create(
        L"<Window SIZE=\"320,240\" caption=\"1,2,3,40\" sizebox=\"4,4,6,6\" roundcorner=\"3,3,3,3\" "
        L"mininfo=\"10,20\" "
        L"maxinfo=\"1000,900\" noactivate=\"true\" LinkFontColor=\"#FF112233\" custom=\"one\" custom=\"two\">"
        L"<VBox/></Window>",
        nullptr, nullptr, &host.manager);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(host.manager.GetInitSize().cx, 320);
    EXPECT_EQ(host.manager.GetClientSize().cy, 240);
    EXPECT_EQ(host.manager.GetCaptionRect().bottom, 40);
    EXPECT_EQ(host.manager.GetSizeBox().right, 6);
    EXPECT_EQ(host.manager.GetRoundCorner().cy, 3);
    EXPECT_TRUE(host.manager.IsNoActivate());
    EXPECT_EQ(host.manager.GetDefaultLinkFontColor(), 0xFF112233u);
    EXPECT_STREQ(host.manager.GetWindowCustomAttribute(L"custom"), L"one");
    MINMAXINFO info = {};
    host.SendMessage(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_EQ(info.ptMinTrackSize.y, 20);
    EXPECT_EQ(info.ptMaxTrackSize.x, 1000);
    EXPECT_EQ(host.SendMessage(WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
    root->Delete();
}

namespace {

LRESULT CALLBACK printRed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_PRINT)
        return DefWindowProcW(window, message, wParam, lParam);
    CRenderEngine::DrawColor(reinterpret_cast<HDC>(wParam), {0, 0, 10, 10}, 0xFFFF0000);
    return 0;
}

} // namespace

// Into a context whose origin is elsewhere already, as of a parent that prints its children.
TEST(PaintManager, PrintsChildWindowsAtTheirPlace) {
    Host host;
    host.attach(L"<VBox bkcolor=\"#FF0000FF\"/>");
    const HWND child = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 30, 40, 10, 10, host,
                                       nullptr, nullptr, nullptr);
    SetWindowLongPtrW(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(printRed));
    DibSurface surface(nullptr, 100, 100);
    SetWindowOrgEx(surface.context(), -20, -10, nullptr);
    host.SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(surface.context()), PRF_CHILDREN);
    GdiFlush();
    const auto pixel = [&](int x, int y) { return surface.raster().row(y)[x] & 0xFFFFFF; };
    EXPECT_EQ(pixel(55, 55), 0xFF0000u);
    EXPECT_EQ(pixel(35, 45), 0x0000FFu);
    EXPECT_EQ(pixel(55, 62), 0x0000FFu);
    POINT origin;
    GetWindowOrgEx(surface.context(), &origin);
    EXPECT_EQ(origin.x, -20);
}

namespace {

struct PaintCounter : IMessageFilterUI {
    LRESULT MessageHandler(UINT message, WPARAM, LPARAM, bool&) override {
        paints += message == WM_PAINT;
        return 0;
    }
    int paints = 0;
};

void pumpFor(Host& host, DWORD milliseconds) {
    for (const DWORD end = GetTickCount() + milliseconds; GetTickCount() < end; host.pump())
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
}

} // namespace

TEST(PaintManager, LayeredRestsWhenAllThatChangesIsOutside) {
    Host host;
    CControlUI* root = host.attach(TwoProbes);
    PaintCounter counter;
    host.manager.AddMessageFilter(&counter);
    host.manager.SetLayered(true);
    ASSERT_TRUE(host.manager.IsLayered());
    pumpFor(host, 50);
    root->SetPos({0, 0, 5000, 5000}, false);
    Probe& b = host.probe(L"b");
    b.SetPos({4000, 4000, 4100, 4100}, false);
    b.NeedUpdate();
    counter.paints = 0;
    pumpFor(host, 200);
    EXPECT_EQ(counter.paints, 1);
    EXPECT_FALSE(b.IsUpdateNeeded());
}

#ifndef VYN_CHECKED // there it ends the program
TEST(PaintManager, TellsOfCallsFromOtherThreads) {
    static std::vector<std::wstring> lines;
    lines.clear();
    Host host;
    CControlUI* root = host.attach(TwoProbes);
    common::setLogSink([](const char*, int, const wchar_t* text) { lines.push_back(text); });
    root->NeedUpdate();
    EXPECT_TRUE(lines.empty());
    std::thread([&] { host.manager.NeedUpdate(); }).join();
    common::setLogSink(nullptr);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0].starts_with(L"NeedUpdate of window"))
        << std::string(lines[0].begin(), lines[0].end());
}
#endif
