#include "render_fixture.h"

#include "tests/golden/golden.h"

using namespace UILib;

namespace {

constexpr uint32_t White = 0xFFFFFFFF;

class Text : public RenderFixture {
protected:
    Text() {
        tables.AddFont(nullptr, 0, {L"Liberation Sans", 16}, Scope::Own);
        tables.SetDefaultFont(nullptr, {L"Liberation Sans", 16}, Scope::Own);
    }

    void draw(const wchar_t* text, RECT& rectangle, unsigned style) {
        CRenderEngine::DrawText(context(), this, rectangle, text, White, 0, style);
    }
    void drawHtml(const wchar_t* text, RECT& rectangle, unsigned style, int wantedLinks = 0) {
        linkCount = wantedLinks;
        CRenderEngine::DrawHtmlText(context(), this, rectangle, text, White, links, names, linkCount, 0,
                                    style);
    }
    RECT painted() const { // around every pixel that is not black
        RECT box = {Width, Height, 0, 0};
        for (LONG y = 0; y < Height; ++y)
            for (LONG x = 0; x < Width; ++x)
                if (color(x, y) != 0)
                    box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                           std::max(box.bottom, y + 1)};
        return box;
    }

    RECT links[4] = {};
    CUIString names[4];
    int linkCount = 0;
};

} // namespace

TEST_F(Text, shouldLookUpKeysAndShowAmpersands) {
    RECT plain = {0, 0, 500, 500}, key = plain, ampersand = plain;
    draw(L"text of the key", plain, DT_CALCRECT);
    CPaintManagerUI::AddLanguageText(L"render_test", L"text of the key");
    draw(L"@render_test", key, DT_CALCRECT);
    EXPECT_EQ(plain.right, key.right);
    draw(L"text& of the key", ampersand, DT_CALCRECT);
    EXPECT_GT(ampersand.right, plain.right);
    key = {0, 0, 500, 500};
    drawHtml(L"@render_test", key, DT_CALCRECT);
    EXPECT_EQ(plain.right, key.right);
    EXPECT_EQ(Width, painted().left); // nothing is drawn
}

TEST_F(Text, shouldStayInsideTheRectangle) {
    for (unsigned style :
         {0u, static_cast<unsigned>(DT_CENTER | DT_VCENTER | DT_SINGLELINE),
          static_cast<unsigned>(DT_WORDBREAK), static_cast<unsigned>(DT_RIGHT | DT_BOTTOM)}) {
        fillSurface(0xFF000000);
        RECT rectangle = {10, 8, 50, 40};
        drawHtml(L"<b>many words</b> that <i>do not</i> <f Arial 40>fit <c #FF00FF00>here</c>", rectangle,
                 style);
        const RECT box = painted();
        EXPECT_TRUE(box.left >= 10 && box.top >= 8 && box.right <= 50 && box.bottom <= 40) << style;
        EXPECT_LT(box.left, box.right) << style;
    }
}

TEST_F(Text, shouldLeaveTheContextAsItWas) {
    const HGDIOBJ font = GetCurrentObject(context(), OBJ_FONT);
    SetBkMode(context(), OPAQUE);
    SetTextColor(context(), RGB(1, 2, 3));
    RECT rectangle = {0, 0, Width, Height};
    drawHtml(L"<s><b>a<c #123456>b", rectangle, 0);
    draw(L"c", rectangle, 0);
    EXPECT_EQ(font, GetCurrentObject(context(), OBJ_FONT));
    EXPECT_EQ(OPAQUE, GetBkMode(context()));
    EXPECT_EQ(RGB(1, 2, 3), GetTextColor(context()));
    CRenderEngine::DrawColor(context(), rectangle, White);
    EXPECT_EQ(0xFFFFFFu, color(63, 47)); // no clip stays
}

TEST_F(Text, shouldColourTheLinkUnderTheMouse) {
    tables.SetDefaultLinkFontColor(0xFF0000FF, Scope::Own);
    tables.SetDefaultLinkHoverFontColor(0xFFFF0000, Scope::Own);
    auto has = [&](uint32_t wanted) {
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                if (color(x, y) == wanted)
                    return true;
        return false;
    };
    RECT rectangle = {0, 0, Width, Height};
    drawHtml(L"<a page>link</a>", rectangle, 0, 4);
    ASSERT_EQ(1, linkCount);
    EXPECT_EQ(CUIString(L"page"), names[0]);
    EXPECT_TRUE(has(0x0000FF) && !has(0xFF0000));
    mouse = {links[0].left + 1, links[0].top + 1};
    fillSurface(0xFF000000);
    drawHtml(L"<a page>link</a>", rectangle, 0, 4);
    EXPECT_TRUE(has(0xFF0000) && !has(0x0000FF));
}

TEST_F(Text, shouldNotGrowWithRepeatedPainting) {
    RECT rectangle = {0, 0, Width, Height};
    const wchar_t* text = L"<b>a</b><i>b</i><f Arial 13>c</f><a x>d</a><i nothing.png>";
    drawHtml(text, rectangle, 0, 4);
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    for (int i = 0; i < 500; ++i)
        drawHtml(text, rectangle, DT_CENTER | DT_VCENTER, 4);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
}

TEST_F(Text, shouldSurviveAMegabyte) {
    const std::wstring words(1 << 20, L'w');
    std::wstring tags;
    while (tags.size() < 1 << 20)
        tags += L"<b><a x>{c #}<i none.png 3>x";
    RECT rectangle = {0, 0, Width, Height};
    for (unsigned style : {static_cast<unsigned>(DT_CENTER | DT_SINGLELINE | DT_END_ELLIPSIS),
                           static_cast<unsigned>(DT_WORDBREAK | DT_VCENTER)}) {
        drawHtml(words.c_str(), rectangle, style, 4);
        drawHtml(tags.c_str(), rectangle, style, 4);
        draw(words.c_str(), rectangle, style);
        draw(tags.c_str(), rectangle, style);
    }
    EXPECT_LT(painted().left, Width);
}

// The size that is asked for is the size that is drawn: a rectangle of it shows the same letters
// as one with room to spare, and no letter reaches far beyond it.
TEST_F(Text, shouldMeasureWhatItDraws) {
    const wchar_t* texts[] = {L"one", L"one two three", L"<b>bold</b> <i>two</i>", L"a<n>b",
                              L"<f 0>x</f><n>y<n>z"};
    for (const wchar_t* text : texts)
        for (const unsigned style : {0u, unsigned(DT_WORDBREAK)}) {
            RECT need = {0, 0, Width, Height};
            drawHtml(text, need, style | DT_CALCRECT);
            ASSERT_GT(need.right, 0);
            fillSurface(0xFF000000);
            RECT roomy = {0, 0, Width, Height};
            drawHtml(text, roomy, style);
            const RECT free = painted();
            EXPECT_LE(free.right, std::min<LONG>(need.right, Width)) << style;
            EXPECT_LE(free.bottom, std::min<LONG>(need.bottom, Height)) << style;
            EXPECT_GE(free.right, std::min<LONG>(need.right, Width) - 8) << style;    // side bearing
            EXPECT_GE(free.bottom, std::min<LONG>(need.bottom, Height) - 8) << style; // descent
        }
}

TEST_F(Text, shouldAlignWhatItDraws) {
    const RECT room = {4, 6, 60, 44};
    const auto drawn = [&](unsigned style, bool html) {
        fillSurface(0xFF000000);
        RECT rectangle = room;
        if (html)
            drawHtml(L"EH", rectangle, style | DT_SINGLELINE);
        else
            draw(L"EH", rectangle, style | DT_SINGLELINE);
        return painted();
    };
    RECT size = room;
    draw(L"EH", size, DT_CALCRECT | DT_SINGLELINE);
    const int w = size.right - size.left, h = size.bottom - size.top;
    for (const bool html : {false, true}) {
        const RECT base = drawn(0, html);
        const struct {
            unsigned style;
            int dx, dy;
        } cases[] = {
            {DT_CENTER, (56 - w) / 2, 0},           {DT_RIGHT, 56 - w, 0},
            {DT_VCENTER, 0, (38 - h) / 2},          {DT_BOTTOM, 0, 38 - h},
            {DT_RIGHT | DT_BOTTOM, 56 - w, 38 - h}, {DT_CENTER | DT_VCENTER, (56 - w) / 2, (38 - h) / 2}};
        for (const auto& [style, dx, dy] : cases) {
            const RECT box = drawn(style, html);
            EXPECT_NEAR(box.left, base.left + dx, 1) << style << html;
            EXPECT_NEAR(box.top, base.top + dy, 1) << style << html;
            EXPECT_NEAR(box.right - box.left, base.right - base.left, 1) << style << html;
        }
    }
}
