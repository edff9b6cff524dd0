#include "tests/uilib/skin_window.h"
#include "tests/uilib/tree.h"
#include "uilib/controls/container.h"

#include <gtest/gtest.h>

#include <memory>

// Real skinned windows on the display, driven with real messages.

using namespace UILib;

namespace {

LRESULT hitTest(SkinWindow& window, int x, int y) {
    POINT point = {x, y};
    ClientToScreen(window, &point);
    return window.SendMessage(WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y));
}

} // namespace

TEST(Window, OpensFromItsSkinAndLaysOutAtItsFirstPaint) {
    SkinWindow window;
    ASSERT_TRUE(window.open()) << "these tests need a display";
    EXPECT_EQ(window.manager().GetClientSize().cx, 300);
    EXPECT_EQ(window.manager().GetClientSize().cy, 200);
    EXPECT_FALSE(GetWindowLongW(window, GWL_STYLE) & WS_CAPTION);
    EXPECT_EQ(window.log(), std::vector<std::string>{"InitWindow"});
    window.ShowWindow();
    EXPECT_TRUE(pumpUntil([&] { return logHas(window, "windowinit"); }));
    EXPECT_EQ(height(window.manager().FindControl(L"body")->GetPos()), 160);
    closeAndWait(window);
    EXPECT_EQ(window.GetHWND(), nullptr);
}

TEST(Window, AnswersHitTestsFromItsSkin) {
    SkinWindow window;
    ASSERT_TRUE(window.open());
    window.ShowWindow();
    ASSERT_TRUE(pumpUntil([&] { return logHas(window, "windowinit"); }));
    const struct {
        int x, y;
        LRESULT hit;
    } cases[] = {{1, 1, HTTOPLEFT},    {150, 2, HTTOP},           {298, 2, HTTOPRIGHT},
                 {2, 100, HTLEFT},     {298, 100, HTRIGHT},       {2, 198, HTBOTTOMLEFT},
                 {150, 198, HTBOTTOM}, {298, 198, HTBOTTOMRIGHT}, {100, 20, HTCAPTION},
                 {280, 20, HTCLIENT},  {250, 20, HTCAPTION},      {150, 100, HTCLIENT}};
    for (const auto& [x, y, hit] : cases)
        EXPECT_EQ(hitTest(window, x, y), hit) << x << "," << y;
    closeAndWait(window);
}

TEST(Window, ShowsWhatItsTreePaints) {
    SkinWindow window;
    ASSERT_TRUE(window.open());
    window.ShowWindow();
    ASSERT_TRUE(pumpUntil([&] { return logHas(window, "windowinit"); }));
    const auto pixel = [&](int x, int y) {
        const HDC context = GetDC(window);
        const COLORREF color = GetPixel(context, x, y);
        ReleaseDC(window, context);
        return color;
    };
    EXPECT_TRUE(pumpUntil([&] { return pixel(150, 100) == RGB(0, 255, 0); }));
    EXPECT_EQ(pixel(100, 20), COLORREF(RGB(128, 0, 0)));
    EXPECT_EQ(pixel(280, 20), COLORREF(RGB(0x20, 0x40, 0x60)));
    window.manager().FindControl(L"body")->SetAttribute(L"bkcolor", L"#FF0000FF");
    EXPECT_TRUE(pumpUntil([&] { return pixel(150, 100) == RGB(0, 0, 255); }));
    SetWindowPos(window, nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_TRUE(pumpUntil([&] { return pixel(350, 250) == RGB(0, 0, 255); }));
    EXPECT_EQ(placeOf(*window.manager().GetRoot()), "0,0,400,300");
    closeAndWait(window);
}

TEST(Window, RoutesNotificationsByNameBeforeType) {
    SkinWindow window;
    ASSERT_TRUE(window.open());
    window.log().clear();
    window.manager().SendNotify(window.manager().FindControl(L"closebtn"), L"click", 42);
    EXPECT_EQ(window.closed, 42);
    EXPECT_TRUE(window.log().empty());
    window.manager().SendNotify(window.manager().FindControl(L"body"), L"click");
    EXPECT_EQ(window.log(), std::vector<std::string>{"general"});
    closeAndWait(window);
}

TEST(Window, AsksEveryVirtualWindowOfANameUntilOneTakesIt) {
    struct Target : CNotifyPump {
        explicit Target(const wchar_t* type) : rows{entry(type, L"", &Target::take)}, map{nullptr, rows} {}
        const MessageMap* GetMessageMap() const override { return &map; }
        void take(TUINotify&) { ++taken; }
        Entry rows[1];
        MessageMap map;
        int taken = 0;
    } pages[] = {Target(L"scroll"), Target(L"click"), Target(L"scroll")};
    SkinWindow window;
    const wchar_t* names[] = {L"page", L"PAGE", L"Page"};
    for (size_t i = 0; i < std::size(pages); ++i)
        EXPECT_TRUE(window.AddVirtualWnd(names[i], &pages[i]));
    TUINotify notification;
    notification.virtualWindow = L"pagE";
    notification.type = L"click";
    EXPECT_TRUE(window.NotifyPump(notification));
    EXPECT_EQ(pages[1].taken, 1);
    notification.type = L"scroll";
    EXPECT_TRUE(window.NotifyPump(notification));
    EXPECT_EQ(pages[0].taken + pages[2].taken, 1);
    notification.type = L"timer";
    EXPECT_FALSE(window.NotifyPump(notification));
}

namespace {

// Deletes itself with its window. Its memory is kept and made worthless, so that a use
// after that does not go unseen.
class DyingWindow : public SkinWindow {
public:
    explicit DyingWindow(UINT deadlyMessage) : deadly(deadlyMessage) {}
    ~DyingWindow() override { ++deaths; }
    static void operator delete(void* memory, size_t size) {
        for (volatile char* at = static_cast<char*>(memory); size > 0; --size)
            *at++ = '\xCC';
    }
    bool armed = false;
    static inline int deaths = 0;

private:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (armed && message == deadly) {
            armed = false;
            DestroyWindow(window);
            return 0;
        }
        return SkinWindow::HandleMessage(message, wParam, lParam);
    }
    void OnFinalMessage(HWND handle) override {
        SkinWindow::OnFinalMessage(handle);
        delete this;
    }
    UINT deadly;
};

class RefusingWindow : public DyingWindow {
public:
    RefusingWindow() : DyingWindow(WM_NULL) {}

private:
    LRESULT OnCreate(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override {
        SkinWindow::OnCreate(message, wParam, lParam, handled);
        return -1;
    }
};

} // namespace

// What comes in during a command of the system, such as a move, may end the window.
TEST(Window, MayGoInTheMiddleOfACommandOfTheSystem) {
    auto* window = new DyingWindow(WM_WINDOWPOSCHANGED);
    ASSERT_TRUE(window->open());
    window->ShowWindow();
    window->SendMessage(WM_SYSCOMMAND, SC_MAXIMIZE);
    ASSERT_TRUE(IsZoomed(*window));
    window->armed = true;
    DyingWindow::deaths = 0;
    window->SendMessage(WM_SYSCOMMAND, SC_RESTORE);
    EXPECT_EQ(DyingWindow::deaths, 1);
}

TEST(Window, StaysTheCallersWhenItIsNotMade) {
    DyingWindow::deaths = 0;
    {
        const auto window = std::make_unique<RefusingWindow>();
        EXPECT_FALSE(window->open());
        EXPECT_EQ(DyingWindow::deaths, 0);
        EXPECT_EQ(window->GetHWND(), nullptr);
        EXPECT_FALSE(window->gone);
    }
    EXPECT_EQ(DyingWindow::deaths, 1);
}

TEST(Window, EscapeClosesAModalWindowWithOne) {
    SkinWindow owner, window;
    ASSERT_TRUE(owner.open());
    owner.ShowWindow();
    ASSERT_TRUE(window.open(owner));
    window.CenterWindow();
    RECT outer, inner;
    GetWindowRect(owner, &outer);
    GetWindowRect(window, &inner);
    EXPECT_EQ((outer.left + outer.right) / 2, (inner.left + inner.right) / 2);
    window.PostMessage(WM_KEYDOWN, VK_ESCAPE);
    EXPECT_EQ(window.ShowModal(), 1u);
    EXPECT_TRUE(window.gone);
    EXPECT_TRUE(IsWindowEnabled(owner));
    closeAndWait(owner);
}

TEST(Window, ShowsTheToolTipOfWhatTheMouseRestsOn) {
    SkinWindow window;
    ASSERT_TRUE(window.open());
    window.ShowWindow();
    ASSERT_TRUE(pumpUntil([&] { return logHas(window, "windowinit"); }));
    window.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(150, 100));
    window.SendMessage(WM_MOUSEHOVER, 0, MAKELPARAM(150, 100));
    EXPECT_TRUE(logHas(window, "body:12"));
    const auto toolTip = [&] {
        HWND tip = nullptr;
        while ((tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)))
            if (GetWindow(tip, GW_OWNER) == window)
                return tip;
        return tip;
    };
    ASSERT_NE(toolTip(), nullptr);
    EXPECT_TRUE(pumpUntil([&] { return IsWindowVisible(toolTip()) != FALSE; }));
    window.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(-1, -1));
    EXPECT_TRUE(pumpUntil([&] { return !IsWindowVisible(toolTip()); }));
    closeAndWait(window);
    EXPECT_EQ(toolTip(), nullptr);
}
