#include "stage.h"
#include "uilib/controls/progress.h"

#include <climits>

using namespace UILib;

namespace {

std::wstring bar(const wchar_t* attributes) {
    return std::wstring(L"<Progress name=\"p\" width=\"200\" height=\"100\" bkcolor=\"#FF000000\" "
                        L"forecolor=\"#FFFFFFFF\" ") +
           attributes + L"/>";
}

int filledAcross(Stage& stage) {
    int count = 0;
    for (int x = 0; x < 200; ++x)
        count += stage.pixel(stage.get(L"p"), x, 50) == 0xFFFFFF;
    return count;
}

} // namespace

TEST(Progress, CoversItsShare) {
    Stage stage(bar(L""));
    CProgressUI& p = stage.get<CProgressUI>(L"p");
    const std::pair<int, int> cases[] = {{0, 0},     {1, 2},  {50, 100},  {99, 198},
                                         {100, 200}, {-5, 0}, {1000, 200}};
    for (const auto& [value, pixels] : cases) {
        p.SetValue(value);
        EXPECT_EQ(filledAcross(stage), pixels) << value;
    }
    p.SetHorizontal(false);
    p.SetValue(25);
    EXPECT_EQ(stage.pixel(p, 10, 74), 0u);
    EXPECT_EQ(stage.pixel(p, 10, 75), 0xFFFFFFu);
}

TEST(Progress, StandsRangesThatAreNone) {
    Stage stage(bar(L"min=\"5\" max=\"5\" value=\"9\""));
    CProgressUI& p = stage.get<CProgressUI>(L"p");
    EXPECT_EQ(filledAcross(stage), 0);
    EXPECT_EQ(p.GetMaxValue(), 6);
    p.SetMinValue(INT_MIN);
    p.SetMaxValue(INT_MAX);
    p.SetValue(0);
    EXPECT_EQ(filledAcross(stage), 100);
    p.SetMinValue(INT_MAX);
    EXPECT_EQ(filledAcross(stage), 0);
}

TEST(Progress, PaintsTheSameInParts) {
    Stage stage(bar(L"value=\"50\""));
    DibSurface surface(nullptr, Stage::Width, Stage::Height);
    stage.manager.PaintTree(surface.context(), {80, 0, 200, 100}, &stage.get(L"p"));
    GdiFlush();
    EXPECT_EQ(surface.raster().row(50)[99] & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(surface.raster().row(50)[100] & 0xFFFFFF, 0u);
}
