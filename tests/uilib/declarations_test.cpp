#include "tests/uilib/manager_host.h"
#include "tests/uilib/tree.h"

// What a skin declares beside its controls: fonts, default attributes, attributes of the window.

using namespace UILib;

namespace {

std::wstring fontOf(HFONT font) {
    LOGFONTW d = {};
    GetObjectW(font, sizeof d, &d);
    return std::wstring(d.lfFaceName) + L" " + std::to_wstring(-d.lfHeight) +
           (d.lfWeight >= 700 ? L" b" : L"") + (d.lfUnderline ? L" u" : L"") + (d.lfItalic ? L" i" : L"");
}

Tree build(CPaintManagerUI& manager, const std::wstring& elements,
           IDialogBuilderCallback* callback = nullptr) {
    CDialogBuilder builder;
    return Tree(builder.Create((L"<Window>" + elements + L"</Window>").c_str(), nullptr, callback, &manager));
}

} // namespace

TEST(Declarations, FontsTakeTheirStylesAndDefaults) {
    Host host;
    CPaintManagerUI& m = host.manager;
    const struct {
        const wchar_t *attributes, *font;
    } cases[] = {
        {L"", L"Liberation Sans 12"},
        {L"size=\"20\"", L"Liberation Sans 20"},
        {L"bold=\"true\"", L"Liberation Sans 12 b"},
        {L"underline=\"TRUE\"", L"Liberation Sans 12 u"},
        {L"italic=\"true\" size=\"31\"", L"Liberation Sans 31 i"},
        {L"bold=\"yes\" underline=\"false\" italic=\"1\"", L"Liberation Sans 12"},
    };
    for (const auto& [attributes, font] : cases) {
        build(m, std::wstring(L"<Font id=\"60\" name=\"Liberation Sans\" ") + attributes + L"/>");
        EXPECT_EQ(fontOf(m.GetFont(60)), font);
        EXPECT_NE(fontOf(m.GetFont(-1)), font) << "not the default";
    }
    build(m, L"<font ID=\"0\" NAME=\"Liberation Mono\" Default=\"True\" size=\"15\" italic=\"true\"/>");
    EXPECT_EQ(fontOf(m.GetFont(0)), L"Liberation Mono 15 i");
    EXPECT_EQ(fontOf(m.GetFont(4711)), L"Liberation Mono 15 i");
    Host other;
    EXPECT_NE(fontOf(other.manager.GetFont(4711)), L"Liberation Mono 15 i");
    build(m, L"<Font id=\"61\" name=\"Liberation Serif\" shared=\"true\"/>");
    EXPECT_EQ(fontOf(other.manager.GetFont(61)), L"Liberation Serif 12");
    EXPECT_NE(fontOf(other.manager.GetFont(60)), L"Liberation Sans 12");
}

TEST(Declarations, DefaultsMayBeSharedAndComeBeforeTheElementsOwn) {
    Host host, other;
    build(host.manager, L"<Default name=\"Control\" value=\"width=&quot;5&quot;\" shared=\"true\"/>"
                        L"<Default name=\"Label\" value=\"width=&quot;6&quot;\"/>");
    EXPECT_STREQ(other.manager.GetDefaultAttributeList(L"Control"), L"width=\"5\"");
    EXPECT_EQ(other.manager.GetDefaultAttributeList(L"Label"), nullptr);
    EXPECT_STREQ(host.manager.GetDefaultAttributeList(L"Label"), L"width=\"6\"");
    const Tree tree = build(other.manager, L"<VBox><Control/><Control width=\"9\"/></VBox>");
    EXPECT_EQ(child(*tree, 0).GetFixedWidth(), 5);
    EXPECT_EQ(child(*tree, 1).GetFixedWidth(), 9);
    build(other.manager, L"<Default name=\"Control\" value=\"\" shared=\"true\"/>");
}

TEST(Declarations, AWindowsAttributesNeedAWindowElementAndAWindow) {
    Host host;
    CDialogBuilder builder;
    Tree(builder.Create(L"<Other size=\"70,60\"><VBox/></Other>", nullptr, nullptr, &host.manager));
    EXPECT_EQ(host.manager.GetInitSize().cx, 0);
    CPaintManagerUI without;
    build(without, L"<VBox/>");
    CDialogBuilder second;
    Tree(second.Create(L"<window size=\"70,60\" caption=\"1,2,3,4\"><VBox/></window>", nullptr, nullptr,
                       &without));
    EXPECT_EQ(without.GetInitSize().cx, 0);
    CDialogBuilder third;
    Tree(third.Create(L"<window size=\"70,60\"><VBox/></window>", nullptr, nullptr, &host.manager));
    EXPECT_EQ(host.manager.GetInitSize().cx, 70);
    EXPECT_EQ(host.manager.GetClientSize().cy, 60);
}

TEST(Declarations, AWindowsAttributesReachWhatTheyName) {
    Host host;
    CPaintManagerUI& m = host.manager;
    const auto set = [&](const wchar_t* name, const wchar_t* value) { m.SetWindowAttribute(name, value); };
    set(L"MinInfo", L"11,12");
    set(L"MAXINFO", L"13 14");
    set(L"RoundCorner", L"3,4,5,6");
    set(L"SizeBox", L"1,2,3,4");
    set(L"Caption", L"5,6,7,8");
    EXPECT_EQ(m.GetMinInfo().cx, 11);
    EXPECT_EQ(m.GetMinInfo().cy, 12);
    EXPECT_EQ(m.GetMaxInfo().cx, 13);
    EXPECT_EQ(m.GetMaxInfo().cy, 14);
    EXPECT_EQ(m.GetRoundCorner().cx, 3);
    EXPECT_EQ(m.GetRoundCorner().cy, 4);
    EXPECT_EQ(textOf(m.GetSizeBox()), "1,2,3,4");
    EXPECT_EQ(textOf(m.GetCaptionRect()), "5,6,7,8");
    set(L"DisabledFontColor", L"#FF010101");
    set(L"DefaultFontColor", L"FF020202");
    set(L"LinkFontColor", L"#FF030303");
    set(L"LinkHoverFontColor", L"#FF040404");
    set(L"SelectedColor", L"#FF050505");
    EXPECT_EQ(m.GetDefaultDisabledColor(), 0xFF010101u);
    EXPECT_EQ(m.GetDefaultFontColor(), 0xFF020202u);
    EXPECT_EQ(m.GetDefaultLinkFontColor(), 0xFF030303u);
    EXPECT_EQ(m.GetDefaultLinkHoverFontColor(), 0xFF040404u);
    EXPECT_EQ(m.GetDefaultSelectedBkColor(), 0xFF050505u);
    EXPECT_NE(Host().manager.GetDefaultFontColor(), 0xFF020202u) << "of this window only";
    set(L"noactivate", L"True");
    EXPECT_TRUE(m.IsNoActivate());
    set(L"noactivate", L"false");
    EXPECT_FALSE(m.IsNoActivate());
    set(L"NoActivate", L"true"); // that one's case counts
    EXPECT_FALSE(m.IsNoActivate());
    EXPECT_STREQ(m.GetWindowCustomAttribute(L"NoActivate"), L"true");
    EXPECT_EQ(m.GetWindowCustomAttribute(L"mininfo"), nullptr);
    set(L"opacity", L"128");
    BYTE alpha = 0;
    EXPECT_TRUE(GetLayeredWindowAttributes(host, nullptr, &alpha, nullptr));
    EXPECT_EQ(alpha, 128);
    EXPECT_FALSE(m.IsLayered());
    set(L"opacity", L"999");
    EXPECT_TRUE(GetLayeredWindowAttributes(host, nullptr, &alpha, nullptr));
    EXPECT_EQ(alpha, 255);
    EXPECT_FALSE(m.IsLayered());
    set(L"layeredEnlargeimage", L"none.png");
    EXPECT_TRUE(m.IsLayered());
}

// With a frame of the system's, too: the size is that of the client area.
TEST(Declarations, TheSizeIsTakenBeforeThereIsATree) {
    for (const LONG style : {LONG(WS_POPUP), LONG(WS_OVERLAPPEDWINDOW)}) {
        Host host;
        SetWindowLongW(host, GWL_STYLE, style | WS_VISIBLE);
        SetWindowPos(host, nullptr, 0, 0, 300, 250,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED | SWP_NOACTIVATE);
        RECT before = {}, after = {};
        GetWindowRect(host, &before);
        host.manager.SetInitSize({222, 111});
        GetWindowRect(host, &after);
        EXPECT_EQ(host.manager.GetClientSize().cx, 222);
        EXPECT_EQ(host.manager.GetClientSize().cy, 111);
        EXPECT_EQ(before.left, after.left);
        EXPECT_EQ(before.top, after.top);
        host.attach(TwoProbes);
        host.manager.SetInitSize({50, 40});
        EXPECT_EQ(host.manager.GetInitSize().cx, 50);
        EXPECT_EQ(host.manager.GetClientSize().cx, 222);
    }
}
