#include "stage.h"
#include "uilib/controls/label.h"

using namespace UILib;

namespace {

std::wstring label(const std::wstring& attributes) {
    return L"<Label name=\"l\" " + attributes + L"/>";
}

double secondsOf(const std::function<void()>& work) {
    const DWORD start = GetTickCount();
    work();
    return (GetTickCount() - start) / 1000.0;
}

} // namespace

TEST(Label, EstimatesItsText) {
    Stage stage(label(L"text=\"some words\""));
    CLabelUI& l = stage.get<CLabelUI>(L"l");
    const SIZE plain = l.EstimateSize({1000, 1000});
    EXPECT_GT(plain.cx, 20);
    EXPECT_EQ(plain.cy, stage.manager.GetFontInfo(-1).metrics.tmHeight + 8);
    l.SetTextPadding({10, 2, 5, 3});
    const SIZE padded = l.EstimateSize({1000, 1000});
    EXPECT_EQ(padded.cx, plain.cx + 15);
    EXPECT_EQ(padded.cy, plain.cy + 5);
    l.SetText(L"some words and more");
    EXPECT_GT(l.EstimateSize({1000, 1000}).cx, padded.cx);
    l.SetMaxWidthEx(30);
    EXPECT_EQ(l.EstimateSize({1000, 1000}).cx, 30);
    l.SetMaxWidthEx(0);
    l.SetMultiLine(true);
    const SIZE wide = l.EstimateSize({1000, 1000}), narrow = l.EstimateSize({60, 1000});
    EXPECT_GT(narrow.cy, wide.cy);
    EXPECT_EQ(l.EstimateSize({1000, 1000}).cy, wide.cy);
}

TEST(Label, KeepsTheOtherAxisWhenItAligns) {
    Stage stage(label(L"align=\"center\" valign=\"bottom\""));
    CLabelUI& l = stage.get<CLabelUI>(L"l");
    EXPECT_EQ(l.GetTextStyle(), static_cast<unsigned>(DT_CENTER | DT_BOTTOM | DT_SINGLELINE));
    l.SetAttribute(L"align", L"right");
    l.SetAttribute(L"valign", L"top");
    EXPECT_EQ(l.GetTextStyle(), static_cast<unsigned>(DT_RIGHT | DT_SINGLELINE));
    l.SetAttribute(L"multiline", L"true");
    l.SetAttribute(L"multiline", L"false");
    EXPECT_EQ(l.GetTextStyle(), static_cast<unsigned>(DT_RIGHT | DT_SINGLELINE | DT_WORDBREAK));
}

TEST(Label, PlacesItsShadowByAngle) {
    Stage stage(L"<VBox>" + label(L"") + L"</VBox>");
    CLabelUI& l = stage.get<CLabelUI>(L"l");
    l.SetPos({0, 0, 50, 20}, false);
    struct {
        int degrees;
        float x, y;
    } const cases[] = {{0, -3, -3},  {90, -3, -3}, {91, -3, 3}, {180, -3, 3}, {-1, 3, -3},
                       {-89, 3, -3}, {-90, 3, 0},  {-91, 3, 3}, {-180, 0, 3}, {181, 0, 3}};
    for (const auto& wanted : cases) { // the last one is refused, and changes nothing
        l.SetShadowOffset(3, wanted.degrees);
        EXPECT_EQ(l.GetEffects().shadowOffsetX, wanted.x) << wanted.degrees;
        EXPECT_EQ(l.GetEffects().shadowOffsetY, wanted.y) << wanted.degrees;
    }
    for (const wchar_t* refused : {L"0", L"-1", L"nan", L"x"})
        l.SetAttribute(L"luminousfuzzy", refused);
    EXPECT_EQ(l.GetEffects().luminousFuzzy, 3.0f);
}

TEST(Label, StaysInsideThePartThatIsPainted) {
    Stage stage(label(L"text=\"MMMMMMMM\" width=\"200\" height=\"60\" textcolor=\"#FFFFFFFF\" "
                      L"enabledeffect=\"true\" enabledluminous=\"true\" enabledstroke=\"true\" "
                      L"strokecolor=\"#FFFFFFFF\""));
    DibSurface surface(nullptr, Stage::Width, Stage::Height);
    stage.manager.PaintTree(surface.context(), {0, 0, 20, 60}, &stage.get(L"l"));
    GdiFlush();
    int inside = 0, outside = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < Stage::Width; ++x)
            (x < 20 ? inside : outside) += surface.raster().row(y)[x] != 0;
    EXPECT_GT(inside, 0);
    EXPECT_EQ(outside, 0);
}

// A cost that grows faster than the length would show at these sizes.
TEST(Label, StandsHostileText) {
    std::wstring nested;
    for (int i = 0; i < 10000; ++i)
        nested += L"<b><f 99999999999999999999>";
    const std::wstring texts[] = {std::wstring(1000000, L'W'),
                                  nested,
                                  L"<b",
                                  L"<c #",
                                  L"<x 99999999999>a<p -1>",
                                  L"\xD800 alone \xDC00",
                                  L"\x202E\x200F\x202B mixed \x061C"};
    for (const wchar_t* kind :
         {L"", L"showhtml=\"true\"", L"showhtml=\"true\" multiline=\"true\"", L"endellipsis=\"true\"",
          L"enabledeffect=\"true\" enabledluminous=\"true\""}) {
        Stage stage(label(std::wstring(L"width=\"200\" ") + kind));
        CLabelUI& l = stage.get<CLabelUI>(L"l");
        for (const std::wstring& text : texts) {
            l.SetText(text.c_str());
            const double seconds = secondsOf([&] {
                l.EstimateSize({200, 100});
                stage.pixel(l, 0, 0);
            });
            EXPECT_LT(seconds, 4.0) << testing::PrintToString(std::wstring(kind)) << text.size();
        }
    }
}
