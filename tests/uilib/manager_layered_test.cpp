#include "tests/uilib/manager_host.h"
#include "uilib/controls/container.h"
#include "uilib/core/dib_surface.h"

#include <utility>

using namespace UILib;

// Per-pixel layered windows: what the manager keeps to be composed, and when it composes it.

namespace {

constexpr UINT RefreshTimer = 8192;

// A layered host whose root writes down the parts that it paints. Without the timer, so that
// only the test composes.
struct LayeredHost : Host {
    LayeredHost() {
        root = attach(TwoProbes, 200, 200);
        root->OnPaint.Add(this, &LayeredHost::note);
        manager.SetLayered(true);
        EXPECT_TRUE(manager.IsLayered());
        KillTimer(GetHWND(), RefreshTimer);
        compose();
        parts.clear();
    }
    ~LayeredHost() override { root->OnPaint.Remove(this, &LayeredHost::note); }
    bool note(PaintArguments& arguments) {
        parts += (parts.empty() ? "" : " ") + textOf(arguments.rectangle);
        return true;
    }
    std::string compose() {
        SendMessage(WM_TIMER, RefreshTimer);
        return std::exchange(parts, "");
    }

    CControlUI* root;
    std::string parts;
};

LRESULT CALLBACK printRed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_PRINT)
        return DefWindowProcW(window, message, wParam, lParam);
    RECT client = {};
    GetClientRect(window, &client);
    client.right -= 2; // leaves a stripe that stays clear
    const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    FillRect(reinterpret_cast<HDC>(wParam), &client, red);
    DeleteObject(red);
    return 0;
}

HWND redChild(HWND parent) {
    const HWND child = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 30, 40, 10, 10, parent,
                                       nullptr, nullptr, nullptr);
    SetWindowLongPtrW(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(printRed));
    return child;
}

} // namespace

TEST(LayeredManager, ComposesAllThatHasChangedInOnePart) {
    LayeredHost host;
    EXPECT_EQ(host.compose(), "");
    RECT before = {}, after = {};
    GetWindowRect(host, &before);
    host.manager.Invalidate({10, 20, 30, 40});
    host.manager.Invalidate({25, 5, 60, 30});
    EXPECT_EQ(host.compose(), "10,5,60,40");
    GetWindowRect(host, &after);
    EXPECT_EQ(textOf(after), textOf(before)) << "composed where the window is";
    EXPECT_EQ(host.compose(), "");
    host.manager.Invalidate({-10, 190, 30, 900});
    EXPECT_EQ(host.compose(), "0,190,30,200");
    host.manager.Invalidate();
    EXPECT_EQ(host.compose(), "0,0,200,200");
    SetWindowPos(host, nullptr, 0, 0, 150, 120, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(host.compose(), "0,0,150,120");
    EXPECT_EQ(host.root->GetWidth(), 150);
}

TEST(LayeredManager, WaitsWhileItIsNotSeen) {
    LayeredHost host;
    host.manager.Invalidate({10, 20, 30, 40});
    ShowWindow(host, SW_HIDE);
    EXPECT_EQ(host.compose(), "");
    ShowWindow(host, SW_SHOWNOACTIVATE);
    EXPECT_EQ(host.compose().substr(0, 5), "10,20");
    host.SendMessage(WM_TIMER, RefreshTimer + 1); // somebody else's
    EXPECT_EQ(host.parts, "");
}

TEST(LayeredManager, ANewOpacityComposesTheWholeWindow) {
    LayeredHost host;
    int layouts = 0;
    struct Counter {
        int* count;
        bool size(CControlUI&) { return ++*count; }
    } counter{&layouts};
    host.probe(L"b").OnSize.Add(&counter, &Counter::size);
    host.manager.SetLayeredOpacity(100);
    EXPECT_EQ(host.compose(), "0,0,200,200");
    EXPECT_EQ(layouts, 1) << "everything is placed and painted anew";
    host.manager.Invalidate({1, 1, 2, 2});
    EXPECT_EQ(host.compose(), "1,1,2,2");
    EXPECT_EQ(layouts, 1);
}

TEST(LayeredManager, TakesTheFrameAwayFromTheSystem) {
    LayeredHost host;
    const auto handled = [&](UINT message, WPARAM wParam) {
        LRESULT result = 77;
        return host.manager.MessageHandler(message, wParam, 0, result) ? static_cast<int>(result) : -1;
    };
    EXPECT_EQ(handled(WM_NCCALCSIZE, 0), 0);
    EXPECT_EQ(handled(WM_NCPAINT, 0), 0);
    EXPECT_EQ(handled(WM_NCACTIVATE, 0), 1);
    EXPECT_EQ(handled(WM_NCACTIVATE, 1), 0);
    host.manager.SetLayered(false);
    EXPECT_FALSE(GetWindowLongW(host, GWL_EXSTYLE) & WS_EX_LAYERED);
    EXPECT_EQ(handled(WM_NCPAINT, 0), -1);
    EXPECT_EQ(handled(WM_NCACTIVATE, 0), -1);
    RECT invalid = {};
    EXPECT_TRUE(GetUpdateRect(host, &invalid, FALSE)) << "what was composed is painted again";
}

TEST(LayeredManager, LeavesChildWindowsAlone) {
    Host parent;
    parent.attach(TwoProbes);
    SetWindowLongW(parent, GWL_STYLE, WS_CHILD | WS_VISIBLE);
    parent.manager.SetLayered(true);
    EXPECT_FALSE(parent.manager.IsLayered());
    EXPECT_FALSE(GetWindowLongW(parent, GWL_EXSTYLE) & WS_EX_LAYERED);
    SetWindowLongW(parent, GWL_STYLE, WS_POPUP | WS_VISIBLE);
}

TEST(LayeredManager, AddsTheChildWindowsToThePictureAsOpaqueOnes) {
    LayeredHost host;
    struct Look {
        bool paint(PaintArguments& arguments) {
            GdiFlush();
            const Raster& pixels = *DibSurface::behind(arguments.context);
            inside = pixels.row(45)[35];
            outside = pixels.row(55)[35];
            stripe = pixels.row(45)[39];
            return true;
        }
        uint32_t inside = 0, outside = 0, stripe = 0;
    } look;
    host.root->OnPostPaint.Add(&look, &Look::paint);
    host.manager.AddPostPaint(host.root);
    const HWND child = redChild(host);
    EXPECT_FALSE(host.manager.AddNativeWindow(nullptr, child));
    EXPECT_TRUE(host.manager.AddNativeWindow(&host.probe(L"a"), child));
    const auto painted = [&](RECT part) {
        look.inside = look.outside = look.stripe = 0;
        host.manager.Invalidate(part);
        host.compose();
        return look.inside;
    };
    EXPECT_EQ(painted({0, 0, 200, 200}), 0xFFFF0000u);
    EXPECT_EQ(look.outside, 0u);
    EXPECT_EQ(look.stripe, 0u) << "what the child left clear stays clear";
    ShowWindow(child, SW_HIDE);
    EXPECT_EQ(painted({0, 0, 200, 200}), 0u);
    ShowWindow(child, SW_SHOWNA);
    EXPECT_EQ(painted({0, 0, 200, 200}), 0xFFFF0000u);
    EXPECT_TRUE(host.manager.RemoveNativeWindow(child));
    EXPECT_FALSE(host.manager.RemoveNativeWindow(child));
    EXPECT_EQ(painted({0, 0, 200, 200}), 0u);
    EXPECT_TRUE(host.manager.AddNativeWindow(&host.probe(L"a"), child));
    DestroyWindow(child);
    EXPECT_EQ(painted({0, 0, 200, 200}), 0u);
    EXPECT_FALSE(host.manager.RemoveNativeWindow(child)) << "forgotten when it was found gone";
}

// A part that is painted again begins clear, or what is translucent grows darker each time.
TEST(LayeredManager, APartIsPaintedFromNothing) {
    LayeredHost host;
    struct Look {
        bool paint(PaintArguments& arguments) {
            GdiFlush();
            pixel = DibSurface::behind(arguments.context)->row(45)[35];
            return true;
        }
        uint32_t pixel = 0;
    } look;
    host.root->SetBkColor(0x80FFFFFF);
    host.root->OnPostPaint.Add(&look, &Look::paint);
    host.manager.AddPostPaint(host.root);
    host.compose();
    const uint32_t first = look.pixel;
    EXPECT_EQ(first, 0x80808080u);
    host.manager.Invalidate({30, 40, 50, 60});
    host.compose();
    EXPECT_EQ(look.pixel, first);
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

TEST(LayeredManager, RestsWhenAllThatChangesIsOutside) {
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
