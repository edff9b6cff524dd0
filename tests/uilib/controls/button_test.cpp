#include "stage.h"
#include "uilib/controls/container.h"
#include "uilib/controls/option.h"

using namespace UILib;

namespace {

const wchar_t Colors[] = L"normalimage=\"color='#FF0000FF'\" hotimage=\"color='#FF00FF00'\" "
                         L"pushedimage=\"color='#FFFF0000'\" disabledimage=\"color='#FF808080'\" ";

std::wstring button(const wchar_t* attributes) {
    return std::wstring(L"<Button name=\"b\" width=\"100\" height=\"40\" ") + attributes + L"/>";
}

} // namespace

TEST(Button, ClicksOnlyWhereItIsReleasedInside) {
    Stage stage(button(Colors));
    stage.click(10, 10);
    EXPECT_EQ(stage.take(), "b!click");
    stage.press(10, 10);
    stage.mouse(WM_MOUSEMOVE, 200, 100);
    stage.mouse(WM_LBUTTONUP, 200, 100);
    EXPECT_EQ(stage.take(), "");
    stage.press(10, 10);
    stage.mouse(WM_MOUSEMOVE, 200, 100);
    stage.mouse(WM_MOUSEMOVE, 20, 10);
    stage.mouse(WM_LBUTTONUP, 20, 10);
    EXPECT_EQ(stage.take(), "b!click");
    stage.mouse(WM_LBUTTONDBLCLK, 10, 10);
    stage.mouse(WM_LBUTTONUP, 10, 10);
    EXPECT_EQ(stage.take(), "b!click");
    stage.get(L"b").SetEnabled(false);
    stage.click(10, 10);
    EXPECT_EQ(stage.take(), "");
}

TEST(Button, ShowsItsState) {
    Stage stage(button(Colors));
    CControlUI& b = stage.get(L"b");
    EXPECT_EQ(stage.pixel(b, 50, 20), 0x0000FFu);
    stage.mouse(WM_MOUSEMOVE, 50, 20);
    EXPECT_EQ(stage.pixel(b, 50, 20), 0x00FF00u);
    stage.press(50, 20);
    EXPECT_EQ(stage.pixel(b, 50, 20), 0xFF0000u);
    stage.mouse(WM_MOUSEMOVE, 200, 100); // dragged off, still captured
    EXPECT_NE(stage.pixel(b, 50, 20), 0xFF0000u);
    stage.mouse(WM_LBUTTONUP, 200, 100);
    stage.mouse(WM_MOUSEMOVE, 201, 100);
    EXPECT_EQ(stage.pixel(b, 50, 20), 0x0000FFu);
    b.SetEnabled(false);
    EXPECT_EQ(stage.pixel(b, 50, 20), 0x808080u);
}

// As when another window takes the mouse or a message box comes up: no release follows.
TEST(Button, IsReleasedWithoutAClickWhenTheMouseIsTakenAway) {
    Stage stage(button(Colors));
    CControlUI& b = stage.get(L"b");
    const HWND other =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    const std::function<void()> ways[] = {[&] { stage.SendMessage(WM_CANCELMODE); },
                                          [] { ::ReleaseCapture(); }, [&] { ::SetCapture(other); }};
    for (const auto& takeAway : ways) {
        stage.mouse(WM_MOUSEMOVE, 50, 20);
        stage.press(50, 20);
        ASSERT_EQ(stage.pixel(b, 50, 20), 0xFF0000u);
        takeAway();
        EXPECT_FALSE(stage.manager.IsCaptured());
        EXPECT_EQ(stage.pixel(b, 50, 20), 0x00FF00u);
        stage.mouse(WM_MOUSEMOVE, 200, 100); // the window follows the mouse again
        EXPECT_EQ(stage.pixel(b, 50, 20), 0x0000FFu);
        stage.mouse(WM_LBUTTONUP, 50, 20);
        EXPECT_EQ(stage.take(), "");
    }
    DestroyWindow(other);
    stage.click(50, 20);
    EXPECT_EQ(stage.take(), "b!click");
}

TEST(Button, FallsBackWhenPicturesAreMissing) {
    Stage stage(
        button(L"normalimage=\"color='#FF0000FF'\" hotimage=\"missing.png\" foreimage=\"missing.png\""));
    CControlUI& b = stage.get(L"b");
    for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN}) {
        stage.mouse(message, 50, 20);
        EXPECT_EQ(stage.pixel(b, 50, 20), 0x0000FFu);
    }
    b.SetEnabled(false);
    EXPECT_EQ(stage.pixel(b, 50, 20), 0x0000FFu);
}

TEST(Button, FadesInFiveStepsAndBack) {
    Stage stage(button((std::wstring(Colors) + L"fadedelta=\"51\"").c_str()));
    CControlUI& b = stage.get(L"b");
    TUIEvent tick = {EventTimer, &b};
    tick.wParam = 11;
    TUIEvent enter = {EventMouseEnter, &b}, leave = {EventMouseLeave, &b};
    enter.mouse = {50, 20}, leave.mouse = {250, 150};
    b.Event(enter);
    for (int i = 0; i < 4; ++i)
        b.Event(tick);
    const uint32_t nearly = stage.pixel(b, 50, 20);
    EXPECT_TRUE((nearly & 0xFF) && (nearly & 0xFF00)) << std::hex << nearly;
    b.Event(tick);
    EXPECT_EQ(stage.pixel(b, 50, 20), 0x00FF00u);
    b.Event(leave);
    b.Event(tick);
    b.SetEnabled(false);
    b.SetEnabled(true);
    EXPECT_EQ(stage.pixel(b, 50, 20), 0x0000FFu); // no half-way picture stays
}

TEST(Button, IsUsedByTheKeyboard) {
    Stage stage(L"<Button name=\"a\" height=\"20\" keyboard=\"true\"/><Button name=\"no\" height=\"20\"/>"
                L"<Button name=\"b\" height=\"20\" keyboard=\"true\"/>");
    stage.key(VK_TAB);
    stage.key(VK_SPACE);
    stage.key(VK_TAB);
    stage.key(VK_RETURN);
    stage.key('A');
    EXPECT_EQ(stage.take(), "a!click b!click");
}

TEST(Button, SplitsItsTextIntoLines) {
    Stage stage(L"<Button name=\"b\" width=\"100\" height=\"60\" text=\"MM&lt;n&gt;MM\" showhtml=\"true\" "
                L"drawmulline=\"true\" textcolor=\"#FFFFFFFF\"/>");
    DibSurface surface(nullptr, 100, 60);
    stage.manager.PaintTree(surface.context(), {0, 0, 100, 60}, &stage.get(L"b"));
    GdiFlush();
    std::vector<int> inked;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 100; ++x)
            if (surface.raster().row(y)[x] & 0xFFFFFF) {
                inked.push_back(y);
                break;
            }
    ASSERT_FALSE(inked.empty());
    EXPECT_GE(inked.front(), 14); // two strips of 14 in a block of 32, centred
    EXPECT_LT(inked.back(), 46);
    EXPECT_GT(inked.back() - inked.front(), 18);
}

TEST(Option, TogglesAloneAndStaysInAGroup) {
    Stage stage(L"<Option name=\"alone\" height=\"20\"/><Option name=\"a\" group=\"g\" height=\"20\"/>"
                L"<Option name=\"b\" group=\"g\" selected=\"true\" height=\"20\"/>");
    stage.click(5, 10);
    stage.click(5, 10);
    EXPECT_EQ(stage.take(), "alone!click alone!selectchanged alone!click alone!selectchanged");
    stage.click(5, 30);
    EXPECT_EQ(stage.take(), "a!click a!selectchanged");
    EXPECT_FALSE(stage.get<COptionUI>(L"b").IsSelected());
    stage.click(5, 30);
    EXPECT_EQ(stage.take(), "a!click");
    EXPECT_TRUE(stage.get<COptionUI>(L"a").IsSelected());
    stage.get<COptionUI>(L"a").SetGroup(nullptr);
    stage.click(5, 50);
    EXPECT_TRUE(stage.get<COptionUI>(L"a").IsSelected()); // no longer concerned
}

TEST(Option, OfSeveralSelectedInAGroupTheLastOneStays) {
    Stage stage(L"<Option name=\"a\" group=\"g\" selected=\"true\" height=\"20\"/><HBox height=\"20\">"
                L"<Option name=\"b\" selected=\"true\" group=\"g\"/></HBox><Option name=\"c\" group=\"g\"/>");
    EXPECT_FALSE(stage.get<COptionUI>(L"a").IsSelected());
    EXPECT_TRUE(stage.get<COptionUI>(L"b").IsSelected());
    stage.click(5, 50);
    EXPECT_FALSE(stage.get<COptionUI>(L"b").IsSelected());
}

TEST(Option, LeavesItsGroupWhenItGoes) {
    Stage stage(L"<VBox name=\"box\"><Option name=\"a\" group=\"g\" selected=\"true\" height=\"20\"/></VBox>"
                L"<Option name=\"b\" group=\"g\" height=\"20\"/>");
    static_cast<IContainerUI*>(stage.get(L"box").GetInterface(L"IContainer"))->RemoveAll();
    pumpMessages();
    stage.get<COptionUI>(L"b").Selected(true);
    EXPECT_EQ(stage.manager.GetOptionGroup(L"g")->GetSize(), 1);
}
