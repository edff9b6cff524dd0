#include "tests/uilib/manager_host.h"
#include "tests/uilib/skin_window.h"
#include "tests/uilib/window_places.h"
#include "uilib/controls/container.h"

// The frame that a skinned window gives itself, in place of the system's: edges, caption, limits,
// corners, buttons and commands of the system.

using namespace UILib;

namespace {

SkinWindow& shown(SkinWindow& window, HWND owner = nullptr) {
    EXPECT_TRUE(window.open(owner)) << "these tests need a display";
    window.ShowWindow();
    EXPECT_TRUE(pumpUntil([&] { return logHas(window, "windowinit"); }));
    return window;
}

LRESULT hitAt(SkinWindow& window, int x, int y) {
    POINT point = {x, y};
    ClientToScreen(window, &point);
    return window.SendMessage(WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y));
}

const wchar_t UnevenSkin[] =
    L"<Window size=\"300,200\" caption=\"10,12,20,50\" sizebox=\"3,4,5,6\"><VBox>"
    L"<HBox height=\"60\"><Probe width=\"100\"/><Button width=\"40\"/><Probe width=\"40\" mouse=\"false\"/>"
    L"<Option width=\"40\"/></HBox><Probe/></VBox></Window>";

} // namespace

// Against a picture of the frame that is drawn here piece by piece.
TEST(WindowFrame, EveryPointIsWhatTheSkinSays) {
    SkinWindow window(UnevenSkin);
    shown(window);
    const auto expected = [](int x, int y) -> LRESULT {
        const int column = x < 3 ? 0 : x > 295 ? 2 : 1, row = y < 4 ? 0 : y > 194 ? 2 : 1;
        constexpr LRESULT edges[3][3] = {{HTTOPLEFT, HTTOP, HTTOPRIGHT},
                                         {HTLEFT, HTCLIENT, HTRIGHT},
                                         {HTBOTTOMLEFT, HTBOTTOM, HTBOTTOMRIGHT}};
        if (row != 1 || column != 1)
            return edges[row][column];
        const bool band = x >= 10 && x < 280 && y >= 12 && y < 50;
        const bool button = x >= 100 && x < 140, passed = x >= 140 && x < 180, option = x >= 180 && x < 220;
        return band && !button && !option && !passed ? HTCAPTION : HTCLIENT;
    };
    const int columns[] = {0, 2, 3, 4, 9, 10, 50, 99, 100, 120, 139, 180, 219, 220, 279, 280, 295, 296, 299};
    const int rows[] = {0, 3, 4, 5, 11, 12, 30, 49, 50, 100, 194, 195, 199};
    for (const int y : rows)
        for (const int x : columns)
            EXPECT_EQ(hitAt(window, x, y), expected(x, y)) << x << "," << y;
    closeAndWait(window);
}

TEST(WindowFrame, AWindowWithoutASizeBoxHasNoEdges) {
    SkinWindow window(L"<Window size=\"100,80\" caption=\"0,0,0,0\"><VBox/></Window>");
    shown(window);
    for (const POINT at : {POINT{0, 0}, POINT{50, 0}, POINT{99, 79}, POINT{0, 40}})
        EXPECT_EQ(hitAt(window, at.x, at.y), HTCLIENT) << at.x << "," << at.y;
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(GetWindowRgn(window, region), ERROR) << "no round corner, no shape";
    DeleteObject(region);
    closeAndWait(window);
}

TEST(WindowFrame, RoundCornersFollowTheSize) {
    SkinWindow window(L"<Window size=\"100,80\" roundcorner=\"20,30\"><VBox/></Window>");
    shown(window);
    const auto inside = [&](int x, int y) {
        HRGN region = CreateRectRgn(0, 0, 0, 0);
        EXPECT_NE(GetWindowRgn(window, region), ERROR);
        const bool hit = PtInRegion(region, x, y);
        DeleteObject(region);
        return hit;
    };
    const auto check = [&](int w, int h) {
        for (const POINT corner : {POINT{0, 0}, POINT{w - 1, 0}, POINT{0, h - 1}, POINT{w - 1, h - 1}})
            EXPECT_FALSE(inside(corner.x, corner.y)) << corner.x << "," << corner.y;
        for (const POINT edge : {POINT{0, h / 2}, POINT{w / 2, 0}, POINT{w - 1, h / 2}, POINT{w / 2, h - 1}})
            EXPECT_TRUE(inside(edge.x, edge.y)) << edge.x << "," << edge.y;
        EXPECT_TRUE(inside(11, 1));
        EXPECT_FALSE(inside(1, 5)) << "the ellipse is higher than wide";
    };
    check(100, 80);
    SetWindowPos(window, nullptr, 0, 0, 160, 140, SWP_NOMOVE | SWP_NOZORDER);
    check(160, 140);
    closeAndWait(window);
}

TEST(WindowFrame, AMaximisedWindowCoversTheWorkAreaAndCannotBeSized) {
    SkinWindow window(UnevenSkin);
    shown(window);
    const MONITORINFO info = monitor();
    window.SendMessage(WM_SYSCOMMAND, SC_MAXIMIZE);
    ASSERT_TRUE(IsZoomed(window));
    EXPECT_EQ(clientOf(window).cx, width(info.rcWork));
    EXPECT_EQ(clientOf(window).cy, height(info.rcWork));
    EXPECT_EQ(hitAt(window, 0, 0), HTCLIENT);
    EXPECT_EQ(hitAt(window, 20, 20), HTCAPTION);
    NCCALCSIZE_PARAMS proposed = {};
    proposed.rgrc[0] = {-5, -6, 5000, 5000};
    EXPECT_EQ(window.SendMessage(WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&proposed)),
              WVR_HREDRAW | WVR_VREDRAW);
    EXPECT_EQ(textOf(proposed.rgrc[0]), textOf({-5, -6, width(info.rcWork) - 5, height(info.rcWork) - 6}));
    RECT single = {7, 8, 9, 10};
    window.SendMessage(WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&single));
    EXPECT_EQ(single.right, 7 + width(info.rcWork));
    window.SendMessage(WM_SYSCOMMAND, SC_RESTORE);
    ASSERT_FALSE(IsZoomed(window));
    EXPECT_EQ(clientOf(window).cx, 300);
    EXPECT_EQ(hitAt(window, 0, 0), HTTOPLEFT);
    const RECT before = proposed.rgrc[0];
    EXPECT_EQ(window.SendMessage(WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&proposed)), 0);
    EXPECT_EQ(textOf(proposed.rgrc[0]), textOf(before));
    closeAndWait(window);
}

TEST(WindowFrame, LimitsComeFromTheSkinAndTheWorkArea) {
    const auto limitsOf = [](const wchar_t* skin) {
        SkinWindow window(skin);
        shown(window);
        MINMAXINFO limits = {};
        window.SendMessage(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        closeAndWait(window);
        return limits;
    };
    const MONITORINFO info = monitor();
    const MINMAXINFO few = limitsOf(L"<Window size=\"300,200\" mininfo=\"120,90\"><VBox/></Window>");
    EXPECT_EQ(few.ptMinTrackSize.x, 120);
    EXPECT_EQ(few.ptMinTrackSize.y, 90);
    EXPECT_EQ(few.ptMaxTrackSize.x, width(info.rcWork));
    EXPECT_EQ(few.ptMaxTrackSize.y, height(info.rcWork));
    EXPECT_EQ(few.ptMaxPosition.x, info.rcWork.left - info.rcMonitor.left);
    EXPECT_EQ(few.ptMaxPosition.y, info.rcWork.top - info.rcMonitor.top);
    const MINMAXINFO all = limitsOf(L"<Window size=\"300,200\" maxinfo=\"640,480\"><VBox/></Window>");
    EXPECT_EQ(all.ptMinTrackSize.x, 0);
    EXPECT_EQ(all.ptMaxTrackSize.x, 640);
    EXPECT_EQ(all.ptMaxTrackSize.y, 480);
}

TEST(WindowFrame, MaximisingShowsTheOtherButtonOfThePair) {
    for (const wchar_t* names : {L"maxbtn restorebtn", L"maxbtnxx restorebtnxx"}) {
        const std::wstring both = names, first = both.substr(0, both.find(L' ')),
                           second = both.substr(both.find(L' ') + 1);
        const std::wstring skin = L"<Window size=\"300,200\"><VBox><Probe name=\"" + first +
                                  L"\"/><Probe name=\"" + second + L"\" visible=\"false\"/></VBox></Window>";
        SkinWindow window(skin.c_str());
        shown(window);
        const auto visible = [&](const std::wstring& name) {
            return window.manager().FindControl(name.c_str())->IsVisible();
        };
        window.SendMessage(WM_SYSCOMMAND, SC_MAXIMIZE);
        EXPECT_FALSE(visible(first));
        EXPECT_TRUE(visible(second));
        window.SendMessage(WM_SYSCOMMAND, SC_MAXIMIZE);
        EXPECT_TRUE(visible(second)) << "nothing has changed";
        window.SendMessage(WM_SYSCOMMAND, SC_RESTORE);
        EXPECT_TRUE(visible(first));
        EXPECT_FALSE(visible(second));
        closeAndWait(window);
    }
    SkinWindow lonely(L"<Window size=\"300,200\"><VBox><Probe name=\"maxbtn\"/></VBox></Window>");
    shown(lonely);
    lonely.SendMessage(WM_SYSCOMMAND, SC_MAXIMIZE);
    EXPECT_TRUE(lonely.manager().FindControl(L"maxbtn")->IsVisible()) << "there is no other";
    closeAndWait(lonely);
}

TEST(WindowFrame, ButtonsDoWhatTheirNamesSay) {
    // The general handler: SkinWindow's own map has one for "closebtn".
    class Buttons : public SkinWindow {
    public:
        using SkinWindow::SkinWindow;

    private:
        const MessageMap* GetMessageMap() const override { return &WindowImplBase::messageMap; }
        void InitWindow() override { log().push_back("windowinit"); }
    } window(L"<Window size=\"300,200\"><VBox><Probe name=\"closebtn\"/><Probe name=\"minbtn\"/>"
             L"<Probe name=\"maxbtn\"/><Probe name=\"restorebtn\"/><Probe name=\"other\"/></VBox></Window>");
    shown(window);
    const auto click = [&](const wchar_t* name) {
        window.manager().SendNotify(window.manager().FindControl(name), L"click");
    };
    click(L"other");
    EXPECT_FALSE(IsZoomed(window) || IsIconic(window));
    click(L"maxbtn");
    EXPECT_TRUE(IsZoomed(window));
    click(L"restorebtn");
    EXPECT_FALSE(IsZoomed(window));
    click(L"minbtn");
    EXPECT_TRUE(IsIconic(window));
    click(L"restorebtn");
    EXPECT_FALSE(IsIconic(window));
    click(L"closebtn");
    EXPECT_EQ(window.ShowModal(), 1u);
    EXPECT_TRUE(window.gone);
}

TEST(WindowFrame, TheSystemsCloseClosesAndItsFrameIsNeverDrawn) {
    SkinWindow window;
    shown(window);
    EXPECT_EQ(window.SendMessage(WM_NCPAINT, 1), 0);
    EXPECT_EQ(window.SendMessage(WM_NCACTIVATE, TRUE), 0);
    EXPECT_EQ(window.SendMessage(WM_NCACTIVATE, FALSE), 1);
    EXPECT_EQ(clientOf(window).cx, width(frameOf(window)));
    EXPECT_EQ(clientOf(window).cy, height(frameOf(window)));
    EXPECT_EQ(window.SendMessage(WM_SYSCOMMAND, SC_CLOSE), 0);
    EXPECT_TRUE(window.gone);
    window.Close(); // to nobody
    window.ShowWindow();
}

TEST(WindowFrame, ReturnDoesNothingAndEscapeCloses) {
    SkinWindow window;
    shown(window);
    for (const WPARAM key : {VK_RETURN, VK_SPACE}) {
        window.PostMessage(WM_KEYDOWN, key);
        pumpMessages();
        EXPECT_FALSE(window.gone);
    }
    window.PostMessage(WM_KEYUP, VK_ESCAPE);
    pumpMessages();
    EXPECT_FALSE(window.gone) << "only the press";
    window.PostMessage(WM_KEYDOWN, VK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return window.gone; }));
}

TEST(WindowFrame, AWindowMayTakeMessagesBeforeItsTreeDoes) {
    class Custom : public SkinWindow {
        LRESULT HandleCustomMessage(UINT message, WPARAM wParam, LPARAM, bool& handled) override {
            handled = message == WM_CHAR && wParam == 'x';
            return 5;
        }
        LRESULT OnKeyDown(UINT, WPARAM wParam, LPARAM, bool& handled) override {
            handled = wParam == 'Q';
            return 6;
        }
    } window;
    shown(window);
    CControlUI* body = window.manager().FindControl(L"body");
    body->SetFocus();
    window.log().clear();
    EXPECT_EQ(window.SendMessage(WM_KEYDOWN, 'Q'), 6);
    EXPECT_EQ(window.SendMessage(WM_CHAR, 'x'), 5);
    EXPECT_TRUE(window.log().empty());
    EXPECT_EQ(window.SendMessage(WM_KEYDOWN, 'R'), 0);
    EXPECT_EQ(window.SendMessage(WM_CHAR, 'r'), 0);
    EXPECT_EQ(window.log(), (std::vector<std::string>{"body:3", "body:5"}));
    closeAndWait(window);
}
