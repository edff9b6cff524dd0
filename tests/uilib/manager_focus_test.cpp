#include "tests/uilib/manager_host.h"
#include "uilib/controls/container.h"

using namespace UILib;

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

TEST(PaintManager, TheTabKeyWaitsForALayoutThatIsPending) {
    Host host;
    host.attach(ThreeStops);
    host.manager.SetFocus(&host.probe(L"a"), FocusWindow::No);
    host.manager.GetRoot()->NeedUpdate();
    ValidateRect(host, nullptr);
    EXPECT_TRUE(host.manager.SetNextTabControl(Tab::Forward));
    EXPECT_TRUE(host.probe(L"a").IsFocused());
    EXPECT_TRUE(GetUpdateRect(host, nullptr, FALSE)) << "a paint was asked for";
    host.paint();
    host.paint();
    EXPECT_TRUE(host.probe(L"b").IsFocused());
    host.manager.GetRoot()->NeedUpdate();
    EXPECT_TRUE(host.manager.SetNextTabControl(Tab::Backward));
    EXPECT_TRUE(host.probe(L"a").IsFocused()) << "backwards at once";
}

TEST(PaintManager, AFocusThatIsNeededLandsAfterTheLayoutWhereverItWas) {
    for (const wchar_t* from : {L"a", L"b", L"c"})
        for (const wchar_t* to : {L"a", L"b", L"c"}) {
            Host host;
            host.attach(ThreeStops);
            host.manager.SetFocus(&host.probe(from), FocusWindow::No);
            host.take();
            host.manager.SetFocusNeeded(&host.probe(to));
            const std::wstring name(from);
            EXPECT_EQ(host.take(), std::string(name.begin(), name.end()) + ":20 " +
                                       std::string(name.begin(), name.end()) + "!killfocus");
            host.paint();
            host.paint();
            EXPECT_TRUE(host.probe(to).IsFocused());
        }
    Host host;
    host.attach(ThreeStops);
    host.manager.SetFocus(&host.probe(L"b"), FocusWindow::No);
    host.manager.SetFocusNeeded(nullptr);
    EXPECT_TRUE(host.probe(L"b").IsFocused()) << "the window alone";
    EXPECT_EQ(GetFocus(), host.GetHWND());
}

TEST(PaintManager, TheFocusIsNotToldTwiceAndNotGivenToStrangers) {
    Host host, other;
    host.attach(TwoProbes);
    other.attach(TwoProbes);
    host.manager.SetFocus(&host.probe(L"a"), FocusWindow::No);
    host.take();
    host.manager.SetFocus(&host.probe(L"a"), FocusWindow::No);
    EXPECT_EQ(host.take(), "");
    host.manager.SetFocus(&other.probe(L"b"), FocusWindow::No);
    EXPECT_EQ(host.take(), "a:20 a!killfocus");
    EXPECT_EQ(other.take(), "");
    EXPECT_EQ(host.manager.GetFocus(), nullptr);
}

TEST(PaintManager, AFocusThatBeginsOrEndsToShowIsPaintedAgain) {
    Host host;
    host.manager.SetKeyboardFocus(true);
    host.attach(ThreeStops);
    host.manager.SetFocus(&host.probe(L"b"), FocusWindow::No);
    const auto invalidAfter = [&](const std::function<void()>& act) {
        ValidateRect(host, nullptr);
        act();
        RECT part = {};
        return GetUpdateRect(host, &part, FALSE) ? textOf(part) : "";
    };
    LRESULT result = 0;
    host.manager.PreMessageHandler(WM_KEYDOWN, VK_TAB, 0, result);
    EXPECT_TRUE(host.manager.IsFocusShown());
    const std::string place = textOf(host.manager.GetFocus()->GetPos());
    EXPECT_EQ(invalidAfter([&] { host.mouse(WM_LBUTTONDOWN, 150, 150); }), place);
    EXPECT_FALSE(host.manager.IsFocusShown());
    EXPECT_EQ(invalidAfter([&] { host.mouse(WM_LBUTTONDOWN, 150, 150); }), "") << "hidden already";
}

TEST(PaintManager, ShortcutsReachOnlyWhatIsSeenAndEnabled) {
    Host host;
    host.attach(
        L"<VBox><Stop name=\"gone\" shortcut=\"g\" visible=\"false\"/>"
        L"<Stop name=\"off\" shortcut=\"f\" enabled=\"false\"/><Stop name=\"ok\" shortcut=\"k\"/></VBox>");
    LRESULT result;
    EXPECT_FALSE(host.manager.PreMessageHandler(WM_SYSCHAR, 'g', 0, result));
    EXPECT_FALSE(host.manager.PreMessageHandler(WM_SYSCHAR, 'f', 0, result));
    EXPECT_FALSE(host.manager.PreMessageHandler(WM_SYSCHAR, 0, 0, result)) << "no control has none";
    EXPECT_FALSE(host.manager.PreMessageHandler(WM_CHAR, 'k', 0, result));
    EXPECT_TRUE(host.manager.PreMessageHandler(WM_SYSCHAR, 'K', 0, result));
    EXPECT_TRUE(host.probe(L"ok").IsFocused());
}
