#include "render_fixture.h"

#include "uilib/core/render_clip.h"

using namespace UILib;

namespace {

constexpr RECT All = {0, 0, 64, 48};

class RenderEngine : public RenderFixture {
protected:
    // A number of each pixel of the surface, to compare whole pictures.
    std::vector<uint32_t> picture() const {
        GdiFlush();
        std::vector<uint32_t> pixels;
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                pixels.push_back(color(x, y));
        return pixels;
    }
};

} // namespace

TEST_F(RenderEngine, shouldLoadOnceAndKeepAFailure) {
    EXPECT_FALSE(drawImage(L"late.png"));
    writeImage("late.png", 2, 2, [](int, int) { return 0xFFFF0000; });
    EXPECT_FALSE(CRenderEngine::DrawImage(context(), this, All, All, record));
    EXPECT_EQ(0u, color(5, 5));
    EXPECT_TRUE(drawImage(L"late.png")); // cleared
    EXPECT_EQ(0xFF0000u, color(5, 5));
    std::filesystem::remove(folder / "late.png");
    EXPECT_TRUE(CRenderEngine::DrawImage(context(), this, All, All, record));
    EXPECT_FALSE(drawImage(L""));
}

TEST_F(RenderEngine, shouldGiveTheSizeWithoutAContext) {
    writeImage("size.png", 7, 3, [](int, int) { return 0xFF123456; });
    record.drawString = L"size.png";
    EXPECT_TRUE(CRenderEngine::DrawImage(nullptr, this, All, All, record));
    EXPECT_EQ(7, record.image->width);
    EXPECT_EQ(3, record.sourcePart.bottom);
    EXPECT_EQ(0u, color(5, 5));
}

TEST_F(RenderEngine, shouldPaintColoursFadesAndMasks) {
    EXPECT_TRUE(drawImage(L"color='#FF00FF00'", {0, 0, 8, 8}));
    EXPECT_EQ(0x00FF00u, color(7, 7));
    EXPECT_EQ(0u, color(8, 8));
    writeImage("red.png", 4, 4, [](int x, int) { return x == 0 ? 0xFFFF00FF : 0xFFFF0000; });
    EXPECT_TRUE(drawImage(L"file='red.png' fade='128'", {10, 0, 14, 4}));
    EXPECT_EQ(0x800000u, color(12, 2));
    tables.Clear();
    EXPECT_TRUE(drawImage(L"file='red.png' mask='#FFFF00FF'", {20, 0, 24, 4}));
    EXPECT_TRUE(record.image->alphaChannel);
    EXPECT_EQ(0u, color(20, 2));
    EXPECT_EQ(0xFF0000u, color(21, 2));
}

TEST_F(RenderEngine, shouldBlendAnImageWithOneTransparentPixel) {
    writeImage("hole.png", 2, 1, [](int x, int) { return x ? 0x80800000 : 0xFF0000FFu; });
    fillSurface(0xFF00FF00);
    EXPECT_TRUE(drawImage(L"hole.png", {0, 0, 2, 1}));
    EXPECT_EQ(0xFF0000FFu, at(0, 0));
    EXPECT_EQ(0xFF807F00u, at(1, 0));
}

TEST_F(RenderEngine, shouldPlaceTheImageByDestAndSource) {
    writeImage("grid.png", 10, 10,
               [](int x, int y) { return 0xFF000000u | static_cast<uint32_t>(y << 8 | x); });
    EXPECT_TRUE(drawImage(L"file='grid.png' source='2,3,6,7' dest='1,2,5,6'", {10, 10, 40, 40}));
    EXPECT_EQ(0u, color(10, 12));
    EXPECT_EQ(0x0302u, color(11, 12));
    EXPECT_EQ(0x0605u, color(14, 15));
    EXPECT_EQ(0u, color(15, 15));
    // A dest that reaches beyond the rectangle ends there, one that misses it paints nothing.
    EXPECT_TRUE(drawImage(L"file='grid.png' dest='0,0,500,500'", {50, 0, 60, 10}));
    EXPECT_EQ(0x0909u, color(59, 9));
    EXPECT_EQ(0u, color(60, 9));
    EXPECT_TRUE(drawImage(L"file='grid.png' dest='70,70,90,90'", {0, 0, 20, 20}));
    // A source outside of the image paints nothing.
    fillSurface(0xFF000000);
    EXPECT_TRUE(drawImage(L"file='grid.png' source='50,50,60,60'"));
    EXPECT_TRUE(drawImage(L"file='grid.png' source='-5,-5,5,5'"));
    EXPECT_EQ(0u, color(30, 30));
}

TEST_F(RenderEngine, shouldPickOneOfFourStates) {
    writeImage("states.png", 8, 2, [](int x, int) { return 0xFF000000u | static_cast<uint32_t>(x / 2 + 1); });
    record.drawString = L"file='states.png' source='0,0,1,1'";
    for (int state : {3, 0, 2, 1}) {
        EXPECT_TRUE(CRenderEngine::DrawStateImage(context(), this, {0, 0, 2, 2}, All, record, state));
        EXPECT_EQ(static_cast<uint32_t>(state + 1), color(0, 0));
        EXPECT_EQ(static_cast<uint32_t>(state + 1), color(1, 1));
    }
}

TEST_F(RenderEngine, shouldTouchNothingOutsideThePaintRectangleOrTheClip) {
    writeImage("frame.png", 9, 9, [](int x, int y) { return x == 4 && y == 4 ? 0xFF0000FF : 0xFFFFFFFF; });
    EXPECT_TRUE(drawImage(L"file='frame.png' corner='3,3,3,3'", All, {10, 10, 20, 20}));
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            ASSERT_EQ(x >= 10 && x < 20 && y >= 10 && y < 20, color(x, y) != 0) << x << ' ' << y;
    fillSurface(0xFF000000);
    {
        CRenderClip outer, inner;
        CRenderClip::GenerateRoundClip(context(), All, {0, 0, 40, 40}, 20, 20, outer);
        {
            CRenderClip::GenerateClip(context(), {0, 0, 10, 10}, inner);
            CRenderEngine::DrawColor(context(), All, 0xFFFF0000);
        }
    }
    EXPECT_EQ(0u, color(0, 0)); // cut off by the corner
    EXPECT_EQ(0xFF0000u, color(9, 9));
    EXPECT_EQ(0u, color(10, 9));
    CRenderEngine::DrawColor(context(), All, 0xFF00FF00);
    EXPECT_EQ(0x00FF00u, color(0, 0)); // nothing of the clips stays
    EXPECT_EQ(0x00FF00u, color(63, 47));
}

TEST_F(RenderEngine, shouldKeepARoundClipBehindANestedOne) {
    CRenderClip round;
    CRenderClip::GenerateRoundClip(context(), All, All, 30, 30, round);
    {
        CRenderClip inner;
        CRenderClip::GenerateClip(context(), {5, 5, 9, 9}, inner);
    }
    CRenderEngine::DrawColor(context(), All, 0xFFFFFFFF);
    EXPECT_EQ(0u, color(0, 0));
    EXPECT_EQ(0xFFFFFFu, color(32, 24));
}

TEST_F(RenderEngine, shouldPaintOnAnyContextAsOnASurface) {
    writeImage("glow.png", 9, 9, [](int x, int y) {
        const auto alpha = static_cast<uint32_t>(x * 28);
        return alpha << 24 | alpha << 16 | static_cast<uint32_t>(y) * alpha / 9;
    });
    auto paintAll = [&](HDC target) {
        CRenderClip clip;
        CRenderClip::GenerateRoundClip(target, {3, 3, 60, 45}, {3, 3, 60, 45}, 20, 20, clip);
        CRenderEngine::DrawGradient(target, {0, 0, 40, 48}, 0xFF204060, 0xFF806040, Direction::Vertical);
        CRenderEngine::DrawColor(target, {10, 10, 30, 30}, 0x80FFFFFF);
        record.Clear();
        record.drawString = L"file='glow.png' corner='2,2,2,2' xtiled='true'";
        CRenderEngine::DrawImage(target, this, {5, 5, 60, 44}, {8, 8, 55, 40}, record);
    };
    paintAll(context());
    const std::vector<uint32_t> expected = picture();

    const utility::MemoryContext plain(CreateCompatibleDC(nullptr));
    uint32_t* bits = nullptr;
    const utility::Bitmap bitmap = CRenderEngine::CreateARGB32Bitmap(plain.get(), Width, Height, &bits);
    const utility::Selection selection(plain.get(), bitmap.get());
    paintAll(plain.get());
    BitBlt(context(), 0, 0, Width, Height, plain.get(), 0, 0, SRCCOPY);
    EXPECT_EQ(expected, picture());
}

TEST_F(RenderEngine, shouldFollowTheOriginOfTheContext) {
    writeImage("dot.png", 1, 1, [](int, int) { return 0xFFFFFFFF; });
    SetViewportOrgEx(context(), -100, -50, nullptr);
    CRenderEngine::DrawColor(context(), {101, 52, 103, 53}, 0xFFFF0000);
    CRenderClip clip;
    CRenderClip::GenerateRoundClip(context(), {110, 50, 130, 70}, {110, 50, 130, 70}, 10, 10, clip);
    drawImage(L"dot.png", {110, 50, 130, 70}, {100, 50, 200, 200});
    EXPECT_EQ(0xFF0000u, color(1, 2));
    EXPECT_EQ(0xFF0000u, color(2, 2));
    EXPECT_EQ(0u, color(3, 2));
    EXPECT_EQ(0u, color(10, 0));
    EXPECT_EQ(0xFFFFFFu, color(20, 10));
    EXPECT_EQ(0u, color(30, 10));
}

TEST_F(RenderEngine, shouldDrawLinesAndFrames) {
    CRenderEngine::DrawLine(context(), {2, 5, 12, 5}, 1, 0xFFFF0000);
    EXPECT_EQ(0xFF0000u, color(2, 5));
    EXPECT_EQ(0xFF0000u, color(11, 5));
    EXPECT_EQ(0u, color(12, 5));
    CRenderEngine::DrawRect(context(), {20, 10, 40, 30}, 2, 0x0000FF00);
    EXPECT_EQ(0x00FF00u, color(20, 10));
    EXPECT_EQ(0x00FF00u, color(39, 29));
    EXPECT_EQ(0x00FF00u, color(21, 20));
    EXPECT_EQ(0u, color(22, 20));
    EXPECT_EQ(0u, color(40, 30));
    CRenderEngine::DrawRoundRect(context(), {42, 10, 62, 30}, 1, 10, 10, 0xFF0000FF);
    EXPECT_EQ(0u, color(42, 10));
    EXPECT_EQ(0x0000FFu, color(42, 20));
    EXPECT_EQ(0u, color(52, 20));
}

TEST_F(RenderEngine, shouldBlendFillsAndGradients) {
    fillSurface(0xFFFFFFFF);
    CRenderEngine::DrawColor(context(), {0, 0, 4, 4}, 0x00FF0000);
    EXPECT_EQ(0xFFFFFFu, color(0, 0));
    CRenderEngine::DrawColor(context(), {0, 0, 4, 4}, 0x80000000);
    EXPECT_EQ(0x7F7F7Fu, color(0, 0));
    CRenderEngine::DrawColor(context(), {0, 0, 4, 4}, 0xFF010203);
    EXPECT_EQ(0xFF010203u, at(3, 3)); // opaque for a layered window, too
    CRenderEngine::DrawGradient(context(), {10, 0, 20, 4}, 0x00000000, 0xFF000000, Direction::Horizontal);
    EXPECT_EQ(0x808080u, color(15, 1)); // the mean of the two alphas everywhere
    CRenderEngine::DrawGradient(context(), {10, 10, 20, 20}, 0x00112233, 0x01112233, Direction::Vertical);
    EXPECT_EQ(0xFFFFFFu, color(15, 15));
}

TEST_F(RenderEngine, shouldCopyAPartOfTheTree) {
    paintTree = [](HDC target, const RECT& part) {
        EXPECT_EQ(30, part.left);
        CRenderEngine::DrawColor(target, {30, 20, 32, 22}, 0xFFFF0000);
    };
    const RECT part = {30, 20, 40, 24};
    const utility::Bitmap bitmap = CRenderEngine::GenerateBitmap(this, part, nullptr, 0x80FFFFFF);
    DIBSECTION section = {};
    ASSERT_EQ(static_cast<int>(sizeof section), GetObjectW(bitmap.get(), sizeof section, &section));
    EXPECT_EQ(10, section.dsBm.bmWidth);
    EXPECT_EQ(4, section.dsBm.bmHeight);
    const auto* bits = static_cast<const uint32_t*>(section.dsBm.bmBits);
    EXPECT_EQ(0xFFFF8080u, bits[30]);    // the top row is the last
    EXPECT_EQ(0x80808080u, bits[0] | 0); // the colour alone
    EXPECT_FALSE(CRenderEngine::GenerateBitmap(this, {5, 5, 5, 9}, nullptr, 0));
}

TEST_F(RenderEngine, shouldSurviveRectanglesBeyondAnyWindow) {
    writeImage("tile.png", 3, 3, [](int, int) { return 0x80808080; });
    const RECT huge = {LONG_MIN, LONG_MIN, LONG_MAX, LONG_MAX}, turned = {50, 40, 10, 10};
    EXPECT_TRUE(drawImage(L"file='tile.png' xtiled='true' ytiled='true' corner='1,1,1,1'", huge, huge));
    EXPECT_TRUE(
        drawImage(L"file='tile.png' dest='-2147483648,0,2147483647,9' corner='999999,1,1,1'", huge, huge));
    CRenderEngine::DrawGradient(context(), huge, 0xFF000000, 0xFFFFFFFF, Direction::Horizontal);
    fillSurface(0xFF000000);
    EXPECT_TRUE(drawImage(L"tile.png", turned));
    CRenderEngine::DrawColor(context(), turned, 0xFFFFFFFF);
    EXPECT_EQ(0u, color(20, 20));
}
