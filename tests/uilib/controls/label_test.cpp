#include "kit/process_counts.h"
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

// GDI+ is started once for all; what a painting makes is gone after it.
TEST(Label, EffectsLeakNothing) {
    std::wstring labels;
    for (int i = 0; i < 50; ++i)
        labels +=
            L"<Label text=\"M\" width=\"20\" height=\"3\" enabledeffect=\"true\" enabledluminous=\"true\" "
            L"enabledstroke=\"true\" strokecolor=\"#FFFF0000\" enabledshadow=\"true\"/>";
    const auto paint = [&] {
        Stage stage(labels);
        stage.pixel(stage.get(L"root"), 0, 0);
    };
    paint();
    kit::ProcessCounts before, after;
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), before));
    for (int i = 0; i < 4; ++i)
        paint();
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), after));
    EXPECT_LE(after.threads, before.threads);
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_LE(after.handles, before.handles + 2);
}

// A cost that grows faster than the length would show at these sizes.
TEST(Label, AndItsKinStandHostileText) {
    const auto repeated = [](const wchar_t* part, int times) {
        std::wstring all;
        for (int i = 0; i < times; ++i)
            all += part;
        return all;
    };
    const std::wstring texts[] = {std::wstring(1000000, L'W'),
                                  repeated(L"<b><f 99999999999999999999>", 10000),
                                  repeated(L"<n>x", 100000),
                                  repeated(L"\x202E\x200F"
                                           L"a\x202B",
                                           100000),
                                  L"<b",
                                  L"<c #",
                                  L"<x 99999999999>a<p -1>",
                                  L"\xD800 alone \xDC00",
                                  L"\x202E\x200F\x202B mixed \x061C"};
    const std::wstring elements[] = {
        label(L""),
        label(L"showhtml=\"true\""),
        label(L"showhtml=\"true\" multiline=\"true\""),
        label(L"showhtml=\"true\" multiline=\"true\" align=\"center\" endellipsis=\"true\""),
        label(L"endellipsis=\"true\""),
        label(L"enabledeffect=\"true\" enabledluminous=\"true\""),
        L"<Button name=\"l\" showhtml=\"true\" drawmulline=\"true\"/>",
        L"<Option name=\"l\" showhtml=\"true\" selected=\"true\"/>",
        L"<Progress name=\"l\" showhtml=\"true\"/>",
        L"<Edit name=\"l\"/>",
        L"<Edit name=\"l\" password=\"true\"/>",
        L"<Combo itemshowhtml=\"true\"><ListLabelElement name=\"l\" selected=\"true\"/></Combo>",
    };
    for (const std::wstring& element : elements) {
        Stage stage(element);
        CControlUI& control = stage.get(L"l");
        for (const std::wstring& text : texts) {
            control.SetText(text.c_str());
            const double seconds = secondsOf([&] {
                control.EstimateSize({200, 100});
                stage.pixel(stage.get(L"root"), 0, 0);
            });
            EXPECT_LT(seconds, 4.0) << testing::PrintToString(element) << text.size();
        }
    }
}
