#include "tests/uilib/manager_host.h"
#include "uilib/controls/container.h"

#include <utility>

// What a manager keeps in lists, and what it forgets with a control or with a tree.

using namespace UILib;

TEST(ManagerMemory, AKilledTimerKeepsItsNumberAndIsSilent) {
    Host host;
    host.attach(TwoProbes);
    Probe &a = host.probe(L"a"), &b = host.probe(L"b");
    constexpr UINT never = 100000;
    const auto numbersOf = [&](const std::string& event) {
        std::vector<UINT> numbers;
        for (UINT number = 0; number < 300; ++number) {
            host.SendMessage(WM_TIMER, number, 5);
            if (host.take().starts_with(event))
                numbers.push_back(number);
        }
        return numbers;
    };
    ASSERT_TRUE(host.manager.SetTimer(&a, 1, never));
    ASSERT_TRUE(host.manager.SetTimer(&b, 1, never));
    ASSERT_TRUE(host.manager.SetTimer(&a, 2, never));
    const auto ofA = numbersOf("a:24 a!timer"), ofB = numbersOf("b:24 b!timer");
    EXPECT_EQ(ofA.size(), 2u);
    EXPECT_EQ(ofB.size(), 1u);
    EXPECT_EQ(a.last.lParam, 5);
    EXPECT_TRUE(host.manager.KillTimer(&a, 1));
    EXPECT_EQ(numbersOf("a").size(), 1u);
    EXPECT_EQ(numbersOf("b"), ofB);
    EXPECT_TRUE(host.manager.SetTimer(&a, 1, never));
    EXPECT_EQ(numbersOf("a"), ofA);
    host.manager.KillTimer(&a);
    EXPECT_TRUE(numbersOf("a").empty());
    EXPECT_FALSE(host.manager.KillTimer(&a, 2)) << "forgotten";
    EXPECT_EQ(numbersOf("b"), ofB);
}

TEST(ManagerMemory, TimersTakeTheNumbersOfOneByteLessOneInTurn) {
    Host host;
    host.attach(TwoProbes);
    Probe& a = host.probe(L"a");
    for (UINT id = 0; id < 255; ++id)
        ASSERT_TRUE(host.manager.SetTimer(&a, id, 100000));
    std::vector<bool> seen(255);
    for (UINT number = 0; number < 300; ++number) {
        host.SendMessage(WM_TIMER, number);
        if (host.take().empty())
            continue;
        ASSERT_LT(number, 255u);
        seen[a.last.wParam] = true;
    }
    EXPECT_EQ(std::count(seen.begin(), seen.end(), true), 255);
}

TEST(ManagerMemory, ANewTreeForgetsTheOldOne) {
    Host host;
    host.attach(TwoProbes);
    Probe& a = host.probe(L"a");
    const Gone gone(a);
    a.SetFocus();
    host.mouse(WM_MOUSEMOVE, 5, 5);
    host.mouse(WM_LBUTTONDOWN, 5, 5);
    host.SendMessage(WM_KEYDOWN, 'A');
    host.manager.AddPostPaint(&a);
    host.manager.SendNotify(&a, L"late", 0, 0, Delivery::Queued);
    host.take();
    CDialogBuilder builder;
    host.manager.AttachDialog(builder.Create(L"<Window><VBox><Probe name=\"c\"/></VBox></Window>", nullptr,
                                             &host.creator, &host.manager));
    EXPECT_EQ(host.take(), "a:20 a!killfocus");
    EXPECT_FALSE(gone) << "an event of it may be on the way";
    host.manager.ReleaseCapture();
    host.SendMessage(WM_KEYUP, 'A');
    host.mouse(WM_LBUTTONUP, 5, 5);
    host.mouse(WM_MOUSEMOVE, 150, 150);
    EXPECT_EQ(host.take(), "");
    EXPECT_TRUE(host.manager.AddPostPaint(&a)) << "was not listed any more";
    host.manager.RemovePostPaint(&a);
    host.pump();
    EXPECT_TRUE(gone);
    EXPECT_EQ(host.take().find("late"), std::string::npos);
    EXPECT_FALSE(host.manager.AttachDialog(nullptr));
    EXPECT_NE(host.manager.FindControl(L"c"), nullptr);
}

TEST(ManagerMemory, AControlThatGoesIsForgottenEverywhere) {
    Host host;
    auto* root = static_cast<CContainerUI*>(host.attach(TwoProbes));
    Probe& a = host.probe(L"a");
    a.SetFocus();
    host.SendMessage(WM_KEYDOWN, 'A');
    host.manager.AddPostPaint(&a);
    host.manager.AddMouseLeaveNeeded(&a);
    host.manager.SetTimer(&a, 1, 100000);
    host.mouse(WM_RBUTTONDOWN, 5, 5); // the press waits for a menu
    host.manager.SendNotify(&a, L"late", 0, 0, Delivery::Queued);
    host.take();
    root->RemoveAt(0);
    host.pump();
    EXPECT_EQ(host.take(), "a!late") << "it lives until its last notification is through";
    auto* loose = new Probe(host.creator.log, L"Probe", 0);
    host.manager.InitControls(loose);
    host.manager.SendNotify(loose, L"late", 0, 0, Delivery::Queued);
    loose->Delete();
    host.pump();
    EXPECT_EQ(host.take(), "?!late") << "told, but not of whom";
    host.SendMessage(WM_KEYUP, 'A');
    host.SendMessage(WM_CONTEXTMENU, 0, 0);
    host.mouse(WM_MOUSEMOVE, 5, 5);
    host.mouse(WM_MOUSEMOVE, -1, -1);
    for (UINT number = 0; number < 255; ++number)
        host.SendMessage(WM_TIMER, number);
    host.paint();
    EXPECT_EQ(host.take().find("a:"), std::string::npos);
    EXPECT_EQ(host.manager.GetFocus(), nullptr);
}

TEST(ManagerMemory, WhatWaitsToBeDeletedIsDeletedInOrderOnce) {
    Host host;
    host.attach(TwoProbes);
    std::vector<int> order;
    struct Dying : CControlUI {
        Dying(std::vector<int>& order, int number) : order(order), number(number) {}
        ~Dying() override { order.push_back(number); }
        std::vector<int>& order;
        int number;
    };
    for (int i = 0; i < 3; ++i)
        host.manager.AddDelayedCleanup(new Dying(order, i));
    EXPECT_TRUE(order.empty());
    host.pump();
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
    host.manager.AddDelayedCleanup(new Dying(order, 3)); // posted anew
    host.pump();
    EXPECT_EQ(order.size(), 4u);
}

TEST(ManagerMemory, ListsHoldEachListenerOnceAndTellOfStrangers) {
    Host host;
    host.attach(TwoProbes);
    struct : INotifyUI, IMessageFilterUI, ITranslateAccelerator {
        void Notify(TUINotify&) override {}
        LRESULT MessageHandler(UINT, WPARAM, LPARAM, bool&) override { return 0; }
        LRESULT TranslateAccelerator(MSG*) override { return 1; }
    } listener;
    CPaintManagerUI& m = host.manager;
    CControlUI* a = &host.probe(L"a");
    const std::pair<std::function<bool()>, std::function<bool()>> lists[] = {
        {[&] { return m.AddNotifier(&listener); }, [&] { return m.RemoveNotifier(&listener); }},
        {[&] { return m.AddPreMessageFilter(&listener); },
         [&] { return m.RemovePreMessageFilter(&listener); }},
        {[&] { return m.AddMessageFilter(&listener); }, [&] { return m.RemoveMessageFilter(&listener); }},
        {[&] { return m.AddTranslateAccelerator(&listener); },
         [&] { return m.RemoveTranslateAccelerator(&listener); }},
        {[&] { return m.AddPostPaint(a); }, [&] { return m.RemovePostPaint(a); }},
        {[&] { return m.AddMouseLeaveNeeded(a); }, [&] { return m.RemoveMouseLeaveNeeded(a); }},
    };
    for (const auto& [add, remove] : lists) {
        EXPECT_FALSE(remove());
        EXPECT_TRUE(add());
        EXPECT_FALSE(add());
        EXPECT_TRUE(remove());
        EXPECT_FALSE(remove());
    }
    EXPECT_FALSE(m.AddNotifier(nullptr));
}

TEST(ManagerMemory, AcceleratorsAndFiltersSeeAMessageBeforeItsWindow) {
    struct : ITranslateAccelerator {
        LRESULT TranslateAccelerator(MSG*) override { return calls += 1, takes ? 0 : 1; }
        int calls = 0;
        bool takes = false;
    } accelerator;
    struct : IMessageFilterUI {
        LRESULT MessageHandler(UINT, WPARAM, LPARAM, bool& handled) override {
            handled = takes;
            return calls += 1;
        }
        int calls = 0;
        bool takes = false;
    } filter;
    Host host, other;
    host.manager.AddTranslateAccelerator(&accelerator);
    host.manager.AddPreMessageFilter(&filter);
    MSG message = {};
    message.message = WM_KEYDOWN;
    message.hwnd = other;
    EXPECT_FALSE(CPaintManagerUI::TranslateMessage(&message));
    EXPECT_EQ(accelerator.calls + filter.calls, 0);
    message.hwnd = host;
    EXPECT_FALSE(CPaintManagerUI::TranslateMessage(&message));
    EXPECT_EQ(accelerator.calls, 1);
    EXPECT_EQ(filter.calls, 1);
    filter.takes = true;
    EXPECT_TRUE(CPaintManagerUI::TranslateMessage(&message));
    accelerator.takes = true;
    EXPECT_TRUE(CPaintManagerUI::TranslateMessage(&message));
    EXPECT_EQ(filter.calls, 2) << "the accelerator took it";
    host.manager.RemoveTranslateAccelerator(&accelerator);
    host.manager.RemovePreMessageFilter(&filter);
    EXPECT_FALSE(CPaintManagerUI::TranslateMessage(&message));
    EXPECT_EQ(accelerator.calls, 3);
}
