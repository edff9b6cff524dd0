#include "kit/process_counts.h"
#include "tests/uilib/probe.h"
#include "tests/uilib/tree.h"
#include "uilib/controls/container.h"
#include "uilib/core/window_impl_base.h"

#include <gtest/gtest.h>

// Real skinned windows on the display, driven with real messages.

using namespace UILib;

namespace {

const wchar_t Skin[] =
    L"<Window size=\"300,200\" caption=\"0,0,0,40\" sizebox=\"4,4,4,4\" roundcorner=\"6,6\" "
    L"mininfo=\"120,90\"><VBox name=\"root\" bkcolor=\"#FF204060\">"
    L"<HBox height=\"40\"><Probe name=\"bar\" bkcolor=\"#FF800000\"/>"
    L"<Probe name=\"still\" mouse=\"false\" width=\"20\"/><Button name=\"closebtn\" width=\"40\"/></HBox>"
    L"<Probe name=\"body\" bkcolor=\"#FF00FF00\" tooltip=\"tip\"/></VBox></Window>";

class SkinWindow : public WindowImplBase {
public:
    explicit SkinWindow(const wchar_t* skin = Skin) : skin(skin) {
        CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
    }
    bool open(HWND owner = nullptr, DWORD style = WS_POPUP) {
        return Create(owner, L"skin window", style, 0, 50, 60, 0, 0) != nullptr;
    }

    CPaintManagerUI& manager() { return paintManager; }
    std::vector<std::string>& log() { return creator.log; }
    bool gone = false;
    int closed = 0;

protected:
    const wchar_t* GetWindowClassName() const override { return L"uilib test window"; }
    CUIString GetSkinFolder() override { return L""; }
    CUIString GetSkinFile() override { return skin; }
    void InitWindow() override { creator.log.push_back("InitWindow"); }
    void OnFinalMessage(HWND handle) override {
        WindowImplBase::OnFinalMessage(handle);
        gone = true;
    }
    CControlUI* CreateControl(const wchar_t* tag) override {
        if (wcscmp(tag, L"Button") == 0)
            return new Probe(creator.log, L"Button", 0);
        return creator.CreateControl(tag);
    }
    void onWindowInit(TUINotify&) { creator.log.push_back("windowinit"); }
    void onCloseButton(WPARAM wParam, LPARAM) { closed = static_cast<int>(wParam); }
    void onOtherClick(TUINotify& notification) {
        creator.log.push_back("general");
        OnClick(notification);
    }
    const MessageMap* GetMessageMap() const override {
        static const Entry entries[] = {entry(L"windowinit", L"", &SkinWindow::onWindowInit),
                                        entry(L"click", L"", &SkinWindow::onOtherClick),
                                        entry(L"click", L"closebtn", &SkinWindow::onCloseButton)};
        static const MessageMap map = {&WindowImplBase::messageMap, entries};
        return &map;
    }

private:
    const wchar_t* skin;
    ProbeCreator creator;
};

bool pumpUntil(const std::function<bool()>& done, DWORD milliseconds = 5000) {
    const DWORD end = GetTickCount() + milliseconds;
    while (!done() && GetTickCount() < end) {
        MSG message;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (CPaintManagerUI::TranslateMessage(&message))
                continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return done();
}

LRESULT hitTest(SkinWindow& window, int x, int y) {
    POINT point = {x, y};
    ClientToScreen(window, &point);
    return window.SendMessage(WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y));
}

void closeAndWait(SkinWindow& window) {
    window.Close();
    EXPECT_TRUE(pumpUntil([&] { return window.gone; }));
}

bool logHas(SkinWindow& window, const char* line) {
    return std::find(window.log().begin(), window.log().end(), line) != window.log().end();
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

TEST(Window, LeavesNoHandlesBehind) {
    const auto cycle = [] {
        SkinWindow window;
        ASSERT_TRUE(window.open());
        window.ShowWindow();
        ASSERT_TRUE(pumpUntil([&] { return logHas(window, "windowinit"); }));
        DestroyWindow(window);
        ASSERT_TRUE(window.gone);
    };
    // Not GetGuiResources: it knows nothing here.
    const auto counts = [] {
        kit::ProcessCounts now;
        EXPECT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), now));
        return now;
    };
    cycle();
    const kit::ProcessCounts before = counts();
    ASSERT_GT(before.gdi, 0u);
    for (int i = 0; i < 25; ++i)
        cycle();
    const kit::ProcessCounts after = counts();
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.windows, before.windows);
    EXPECT_LE(after.handles, before.handles + 2);
}

TEST(LayeredWindow, TakesItsShapeFromItsFrameImage) {
    SkinWindow window(
        L"<Window size=\"80,60\" layeredimage=\"color='#80FFFFFF'\"><VBox bkcolor=\"#FFFF8040\"/></Window>");
    ASSERT_TRUE(window.open());
    EXPECT_TRUE(window.manager().IsLayered());
    EXPECT_TRUE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_LAYERED);
    window.ShowWindow();
    EXPECT_TRUE(pumpUntil([&] { return logHas(window, "windowinit"); }));
    window.manager().SetLayeredOpacity(200);
    window.manager().SetOpacity(128); // leaves the per-pixel mode
    EXPECT_FALSE(window.manager().IsLayered());
    closeAndWait(window);
}
