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
