#include "tests/support/log_watch.h"
#include "tests/uilib/manager_host.h"
#include "uilib/controls/container.h"

#include <thread>

using namespace UILib;

TEST(PaintManager, QueuedNotificationsMergeOnRequest) {
    Host host;
    host.attach(TwoProbes);
    TUINotify notification;
    notification.type = L"tick";
    notification.sender = &host.probe(L"a");
    struct Note {
        bool notify(TUINotify& notification) {
            last = notification;
            return true;
        }
        TUINotify last;
    } note;
    host.probe(L"a").OnNotify.Add(&note, &Note::notify);
    host.mouse(WM_MOUSEMOVE, 7, 8);
    host.take();
    for (int i = 0; i < 3; ++i) {
        notification.wParam = 10 + i;
        notification.lParam = 20 + i;
        host.manager.SendNotify(notification, Delivery::Queued, Repeats::Merge);
    }
    host.manager.SendNotify(&host.probe(L"b"), L"tick", 0, 0, Delivery::Queued);
    host.manager.SendNotify(&host.probe(L"b"), L"tick", 0, 0, Delivery::Queued);
    EXPECT_EQ(host.take(), "");
    host.pump();
    EXPECT_EQ(host.take(), "a!tick b!tick b!tick");
    EXPECT_EQ(note.last.wParam, 12u) << "the latest parameters";
    EXPECT_EQ(note.last.lParam, 22);
    EXPECT_EQ(note.last.mouse.x, 7);
    EXPECT_LT(GetTickCount() - note.last.timestamp, 60000u);
}

TEST(PaintManager, RemovedControlsLiveUntilTheQueueRuns) {
    Host host;
    CControlUI* root = host.attach(TwoProbes);
    Probe& a = host.probe(L"a");
    const Gone gone(a);
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

#ifndef VYN_CHECKED // there it ends the program
TEST(PaintManager, TellsOfCallsFromOtherThreads) {
    Host host;
    CControlUI* root = host.attach(TwoProbes);
    root->NeedUpdate();
    EXPECT_EQ(test::logged(L" of window "), 0);
    std::thread([&] { host.manager.NeedUpdate(); }).join();
    EXPECT_EQ(test::logged(L"NeedUpdate of window"), 1);
}
#endif
