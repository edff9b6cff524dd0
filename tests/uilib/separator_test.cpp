#include "tests/uilib/skin_window.h"
#include "tests/uilib/tree.h"

// The band that resizes a layout, dragged with messages of the mouse in a real window.

using namespace UILib;

namespace {

std::wstring skinWith(const wchar_t* attributes) {
    return std::wstring(L"<Window size=\"300,200\"><HBox name=\"root\"><HBox name=\"side\" width=\"100\" "
                        L"minwidth=\"60\" maxwidth=\"150\" bkcolor=\"#FF804020\" ") +
           attributes + L"/><Probe name=\"rest\" bkcolor=\"#FF00FF00\"/></HBox></Window>";
}

class Dragged : public SkinWindow {
public:
    explicit Dragged(const std::wstring& skin) : SkinWindow(skin.c_str()) {
        EXPECT_TRUE(open());
        ShowWindow();
        EXPECT_TRUE(pumpUntil([&] { return logHas(*this, "windowinit"); }));
    }
    ~Dragged() override { closeAndWait(*this); }

    void mouse(UINT message, int x) {
        SendMessage(message, 0, MAKELPARAM(x, 100));
        UpdateWindow(*this);
    }
    std::string places() { return placesIn(*manager().GetRoot()); }
    COLORREF pixel(int x) {
        const HDC context = GetDC(*this);
        const COLORREF color = GetPixel(context, x, 100);
        ReleaseDC(*this, context);
        return color;
    }
};

} // namespace

TEST(Separator, ResizesTheLayoutWhenTheMouseLetsGo) {
    const std::wstring skin = skinWith(L"sepwidth=\"6\"");
    Dragged window(skin);
    const std::string before = "0,0,100,200 100,0,300,200";
    ASSERT_EQ(window.places(), before);
    window.mouse(WM_LBUTTONDOWN, 50); // beside the band
    window.mouse(WM_MOUSEMOVE, 70);
    window.mouse(WM_LBUTTONUP, 70);
    EXPECT_EQ(window.places(), before);

    window.mouse(WM_LBUTTONDOWN, 97);
    window.mouse(WM_MOUSEMOVE, 117);
    EXPECT_EQ(window.places(), before) << "the band alone follows the mouse";
    EXPECT_EQ(window.pixel(117), COLORREF(RGB(0, 0x55, 0))) << "the band is a shadow on what is there";
    EXPECT_EQ(window.pixel(97), COLORREF(RGB(0x80, 0x40, 0x20)));
    window.mouse(WM_LBUTTONUP, 117);
    EXPECT_TRUE(pumpUntil([&] { return window.places() == "0,0,120,200 120,0,300,200"; })) << window.places();
    EXPECT_TRUE(pumpUntil([&] { return window.pixel(117) == RGB(0x80, 0x40, 0x20); }));
    window.mouse(WM_MOUSEMOVE, 140); // let go
    EXPECT_EQ(window.places(), "0,0,120,200 120,0,300,200");
    EXPECT_EQ(window.manager().FindControl(L"side")->GetFixedWidth(), 120) << "nor at the next layout";
}

TEST(Separator, TakesTheLayoutAlongAtOnceAndStopsAtItsLimits) {
    const std::wstring skin = skinWith(L"sepwidth=\"6\" sepimm=\"true\"");
    Dragged window(skin);
    window.mouse(WM_LBUTTONDOWN, 97);
    window.mouse(WM_MOUSEMOVE, 107);
    EXPECT_TRUE(pumpUntil([&] { return window.places() == "0,0,110,200 110,0,300,200"; })) << window.places();
    window.mouse(WM_MOUSEMOVE, 250);
    EXPECT_TRUE(pumpUntil([&] { return window.places() == "0,0,150,200 150,0,300,200"; })) << window.places();
    window.mouse(WM_MOUSEMOVE, 10);
    EXPECT_TRUE(pumpUntil([&] { return window.places() == "0,0,60,200 60,0,300,200"; })) << window.places();
    window.mouse(WM_LBUTTONUP, 10);
}
