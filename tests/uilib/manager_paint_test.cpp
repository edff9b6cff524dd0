#include "tests/uilib/manager_host.h"
#include "uilib/controls/container.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/render_engine.h"

#include <utility>

using namespace UILib;

namespace {

LRESULT CALLBACK printRed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_PRINT)
        return DefWindowProcW(window, message, wParam, lParam);
    CRenderEngine::DrawColor(reinterpret_cast<HDC>(wParam), {0, 0, 10, 10}, 0xFFFF0000);
    return 0;
}

// At 30,40 and ten pixels wide and high; it prints itself red.
void addRedChild(HWND parent) {
    const HWND child = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 30, 40, 10, 10, parent,
                                       nullptr, nullptr, nullptr);
    SetWindowLongPtrW(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(printRed));
}

} // namespace

// Into a context whose origin is elsewhere already, as of a parent that prints its children.
TEST(PaintManager, PrintsChildWindowsAtTheirPlace) {
    Host host;
    host.attach(L"<VBox bkcolor=\"#FF0000FF\"/>");
    addRedChild(host);
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

// What the root was asked to paint.
struct Parts {
    explicit Parts(CControlUI& root) { root.OnPaint.Add(this, &Parts::note); }
    bool note(PaintArguments& arguments) {
        all += (all.empty() ? "" : " ") + textOf(arguments.rectangle);
        return true;
    }
    std::string take() { return std::exchange(all, ""); }
    std::string all;
};

struct Layouts {
    explicit Layouts(Host& host) {
        for (const wchar_t* name : {L"left", L"right", L"inner"})
            if (CControlUI* control = host.manager.FindControl(name))
                control->OnSize.Add(this, &Layouts::note);
    }
    bool note(CControlUI& control) {
        const std::wstring name(control.GetName());
        all += (all.empty() ? "" : " ") + std::string(name.begin(), name.end());
        return true;
    }
    std::string take() { return std::exchange(all, ""); }
    std::string all;
};

std::string invalidPart(Host& host) {
    RECT part = {};
    return GetUpdateRect(host, &part, FALSE) ? textOf(part) : "";
}

void paintNow(Host& host) {
    LRESULT result = 0;
    EXPECT_TRUE(host.manager.MessageHandler(WM_PAINT, 0, 0, result));
}

COLORREF pixelOf(HWND window, int x, int y) {
    const HDC context = GetDC(window);
    const COLORREF color = GetPixel(context, x, y);
    ReleaseDC(window, context);
    return color;
}

} // namespace

TEST(PaintManager, InvalidatesWhatItIsToldLimitedToTheWindow) {
    Host host;
    host.attach(TwoProbes);
    const struct {
        RECT area;
        const char* invalid;
    } cases[] = {{{5, 6, 20, 30}, "5,6,20,30"},
                 {{-5, -7, 10, 12}, "0,0,10,12"},
                 {{50, 40, 20, 60}, ""}, // turned round: nothing
                 {{20, 60, 50, 40}, ""},
                 {{190, 180, 900, 900}, "190,180,200,200"}};
    for (const auto& [area, invalid] : cases) {
        ValidateRect(host, nullptr);
        host.manager.Invalidate(area);
        EXPECT_EQ(invalidPart(host), invalid) << textOf(area);
    }
    ValidateRect(host, nullptr);
    host.manager.Invalidate();
    EXPECT_EQ(invalidPart(host), "0,0,200,200");
}

TEST(PaintManager, PaintsTheInvalidPartOnceAndNothingElse) {
    Host host;
    Parts parts(*host.attach(TwoProbes, 200, 200));
    InvalidateRect(host, nullptr, FALSE);
    host.pump();
    parts.take();
    const RECT area = {10, 20, 40, 60};
    InvalidateRect(host, &area, FALSE);
    paintNow(host);
    EXPECT_EQ(parts.take(), "10,20,40,60");
    EXPECT_EQ(invalidPart(host), "");
    EXPECT_FALSE(host.manager.IsPainting());
    paintNow(host);
    EXPECT_EQ(parts.take(), "");
}

TEST(PaintManager, TellsThatItPaintsAndComesAgainWhenPaintingAsksForALayout) {
    Host host;
    CControlUI* root = host.attach(TwoProbes);
    struct Asker {
        bool paint(PaintArguments& arguments) {
            wasPainting = arguments.control->GetManager()->IsPainting();
            if (asks > 0 && asks--)
                arguments.control->GetManager()->NeedUpdate();
            return true;
        }
        int asks = 1;
        bool wasPainting = false;
    } asker;
    root->OnPaint.Add(&asker, &Asker::paint);
    host.manager.Invalidate();
    paintNow(host);
    EXPECT_TRUE(asker.wasPainting);
    EXPECT_EQ(invalidPart(host), "0,0,200,200");
    paintNow(host);
    EXPECT_EQ(invalidPart(host), "");
}

TEST(PaintManager, AWindowWithoutATreeIsBlack) {
    Host host;
    EXPECT_TRUE(pumpUntil([&] { return pixelOf(host, 100, 100) == RGB(0, 0, 0); }));
    host.attach(L"<VBox bkcolor=\"#FF00FF00\"/>", 150, 200);
    EXPECT_TRUE(pumpUntil([&] { return pixelOf(host, 100, 100) == RGB(0, 255, 0); }));
}

TEST(PaintManager, LaysOutOnlyWhatAsksForIt) {
    Host host;
    host.attach(L"<HBox><VBox name=\"left\" width=\"40\"><Probe name=\"inner\" height=\"20\"/></VBox>"
                L"<VBox name=\"right\" width=\"60\"/></HBox>");
    Layouts layouts(host);
    host.paint();
    EXPECT_EQ(layouts.take(), "");
    host.manager.FindControl(L"right")->NeedUpdate();
    host.paint();
    EXPECT_EQ(layouts.take(), "right");
    host.manager.FindControl(L"left")->NeedUpdate();
    host.paint();
    EXPECT_EQ(layouts.take(), "left inner");
    host.manager.GetRoot()->NeedUpdate(); // takes the whole client area
    host.paint();
    EXPECT_EQ(layouts.take(), "left inner right");
    EXPECT_EQ(host.manager.GetRoot()->GetWidth(), 200);
    host.paint();
    EXPECT_EQ(layouts.take(), "");
}

TEST(PaintManager, AFloatingControlThatAsksForALayoutStaysWhereItIs) {
    Host host;
    host.attach(L"<VBox padding=\"0,0,0,0\"><Control height=\"30\"/><VBox><Probe name=\"a\" float=\"true\" "
                L"pos=\"5,6,25,36\"/></VBox></VBox>");
    const std::string place = textOf(host.probe(L"a").GetPos());
    EXPECT_EQ(place, "5,36,25,66");
    host.probe(L"a").NeedUpdate();
    host.paint();
    EXPECT_FALSE(host.probe(L"a").IsUpdateNeeded());
    EXPECT_EQ(textOf(host.probe(L"a").GetPos()), place);
}

TEST(PaintManager, AnnouncesItsFirstLayoutOnceBeforeItPaints) {
    Host host;
    struct Watch : INotifyUI {
        void Notify(TUINotify& notification) override {
            if (notification.type == L"windowinit")
                all += "init:" + std::to_string(notification.sender->GetWidth()) + " ";
        }
        bool paint(PaintArguments&) {
            all += "paint ";
            return true;
        }
        std::string all;
    } watch;
    host.manager.AddNotifier(&watch);
    for (int i = 0; i < 2; ++i) { // each tree anew
        auto* root = new CContainerUI;
        root->OnPaint.Add(&watch, &Watch::paint);
        host.manager.AttachDialog(root);
        host.manager.SetFocus(nullptr, FocusWindow::No);
        InvalidateRect(host, nullptr, FALSE);
        paintNow(host);
        InvalidateRect(host, nullptr, FALSE);
        paintNow(host);
        EXPECT_EQ(watch.all, "init:200 paint paint ");
        watch.all.clear();
        host.pump();
    }
    host.manager.RemoveNotifier(&watch);
}

TEST(PaintManager, PaintsListedControlsOnceMoreOverTheTree) {
    Host host;
    CControlUI* root = host.attach(L"<VBox bkcolor=\"#FF0000FF\"><Probe name=\"a\"/></VBox>", 200, 200);
    struct Over {
        bool paint(PaintArguments& arguments) {
            CRenderEngine::DrawColor(arguments.context, {10, 10, 20, 20}, 0xFFFF0000);
            return true;
        }
    } over;
    host.probe(L"a").OnPostPaint.Add(&over, &Over::paint);
    root->Invalidate();
    paintNow(host);
    EXPECT_EQ(pixelOf(host, 15, 15), RGB(0, 0, 255));
    EXPECT_TRUE(host.manager.AddPostPaint(&host.probe(L"a")));
    EXPECT_FALSE(host.manager.AddPostPaint(&host.probe(L"a")));
    root->Invalidate();
    paintNow(host);
    EXPECT_EQ(pixelOf(host, 15, 15), RGB(255, 0, 0));
    EXPECT_EQ(pixelOf(host, 25, 15), RGB(0, 0, 255));
    EXPECT_TRUE(host.manager.RemovePostPaint(&host.probe(L"a")));
    EXPECT_FALSE(host.manager.RemovePostPaint(&host.probe(L"a")));
    root->Invalidate();
    paintNow(host);
    EXPECT_EQ(pixelOf(host, 15, 15), RGB(0, 0, 255));
}

TEST(PaintManager, OutlinesWhatItPaintsOnRequest) {
    Host host;
    host.attach(L"<VBox bkcolor=\"#FF0000FF\"/>", 200, 200);
    host.manager.SetWindowAttribute(L"showdirty", L"true");
    const RECT part = {20, 30, 60, 70};
    InvalidateRect(host, &part, FALSE);
    paintNow(host);
    constexpr COLORREF red = RGB(220, 0, 0), blue = RGB(0, 0, 255);
    EXPECT_EQ(pixelOf(host, 20, 50), red);
    EXPECT_EQ(pixelOf(host, 59, 69), red);
    EXPECT_EQ(pixelOf(host, 21, 31), blue);
    EXPECT_EQ(pixelOf(host, 19, 29), blue);
}

TEST(PaintManager, PrintsNoChildUnlessAskedAndLeavesTheContextAsItWas) {
    Host host;
    host.attach(L"<VBox bkcolor=\"#FF0000FF\"/>");
    addRedChild(host);
    DibSurface surface(nullptr, 100, 100);
    SetTextColor(surface.context(), RGB(1, 2, 3));
    host.SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(surface.context()), 0);
    GdiFlush();
    EXPECT_EQ(surface.raster().row(45)[35] & 0xFFFFFF, 0x0000FFu);
    EXPECT_EQ(GetTextColor(surface.context()), RGB(1, 2, 3));
}
