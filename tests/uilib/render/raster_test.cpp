#include "uilib/core/raster.h"

#include <gtest/gtest.h>

#include <vector>

using namespace UILib;

namespace {

struct Canvas {
    std::vector<uint32_t> pixels;
    Raster raster;

    Canvas(int width, int height, uint32_t color = 0)
        : pixels(static_cast<size_t>(width * height), color), raster{pixels.data(), width, height, width} {}
    uint32_t at(int x, int y) const { return raster.row(y)[x]; }
};

// Each pixel tells where it comes from.
Canvas numbered(int width, int height) {
    Canvas canvas(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            canvas.raster.row(y)[x] = 0xFF000000u | static_cast<uint32_t>(y << 8 | x);
    return canvas;
}

// The definition that the fast arithmetic must meet for each channel.
uint32_t blended(uint32_t source, uint32_t target, uint32_t fade) {
    auto scaled = [](uint32_t value, uint32_t by) { return (value * by + 127) / 255; };
    const uint32_t alpha = scaled(source >> 24, fade);
    uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8)
        result |= (scaled(source >> shift & 0xFF, fade) + scaled(target >> shift & 0xFF, 255 - alpha))
                  << shift;
    return result;
}

const Box Everything = {-1000, -1000, 1000, 1000};

} // namespace

TEST(Raster, shouldBlendEveryAlphaByTheDefinition) {
    for (uint32_t fade : {1u, 77u, 128u, 254u, 255u})
        for (uint32_t alpha = 0; alpha < 256; ++alpha) {
            const uint32_t source = alpha << 24 | alpha << 16 | alpha / 2 << 8 | alpha / 3;
            Canvas image(1, 1, source), target(1, 1, 0xFF306090);
            raster::draw(target.raster, Everything, image.raster, {{0, 0, 1, 1}, {0, 0, 1, 1}},
                         Compose::Blend, static_cast<uint8_t>(fade));
            ASSERT_EQ(blended(source, 0xFF306090, fade), target.at(0, 0)) << alpha << ' ' << fade;
        }
}

TEST(Raster, shouldFillWithinTheClipAndTheTarget) {
    Canvas canvas(4, 3, 0xFF000000);
    raster::fill(canvas.raster, {1, 0, 9, 2}, {-5, 1, 3, 100}, 0xFFFFFFFF);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(y == 1 && (x == 1 || x == 2) ? 0xFFFFFFFFu : 0xFF000000u, canvas.at(x, y))
                << x << ' ' << y;
    raster::fill(canvas.raster, Everything, {0, 0, 1, 1}, 0x80FFFFFF);
    EXPECT_EQ(0xFF808080u, canvas.at(0, 0));
    raster::fill(canvas.raster, Everything, {0, 0, 1, 1}, 0x00FFFFFF);
    EXPECT_EQ(0xFF808080u, canvas.at(0, 0));
}

TEST(Raster, shouldCopyAClippedPart) {
    const Canvas image = numbered(10, 10);
    Canvas canvas(6, 6);
    raster::draw(canvas.raster, {2, 2, 4, 4}, image.raster, {{1, 1, 6, 6}, {3, 4, 8, 9}}, Compose::Copy, 255);
    EXPECT_EQ(0xFF000504u, canvas.at(2, 2));
    EXPECT_EQ(0xFF000605u, canvas.at(3, 3));
    EXPECT_EQ(0u, canvas.at(4, 4));
    EXPECT_EQ(0u, canvas.at(1, 1));
}

TEST(Raster, shouldCutTheLastTile) {
    const Canvas image = numbered(3, 2);
    Canvas canvas(8, 5);
    raster::draw(canvas.raster, Everything, image.raster, {{-1, 0, 8, 5}, {0, 0, 3, 2}, Fit::Tile, Fit::Tile},
                 Compose::Copy, 255);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 8; ++x)
            EXPECT_EQ(image.at((x + 1) % 3, y % 2), canvas.at(x, y));
}

TEST(Raster, shouldTileAlongOneAxisAndStretchTheOther) {
    Canvas image(2, 1);
    image.raster.row(0)[0] = 0xFFFF0000;
    image.raster.row(0)[1] = 0xFF0000FF;
    Canvas canvas(6, 4);
    raster::draw(canvas.raster, Everything, image.raster,
                 {{0, 0, 6, 4}, {0, 0, 2, 1}, Fit::Tile, Fit::Stretch}, Compose::Copy, 255);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(image.at(x % 2, 0), canvas.at(x, y));
}

TEST(Raster, shouldStretchSmoothlyAndKeepTheEnds) {
    Canvas image(2, 1);
    image.raster.row(0)[0] = 0xFF000000;
    image.raster.row(0)[1] = 0xFFFFFFFF;
    Canvas canvas(64, 3);
    raster::draw(canvas.raster, Everything, image.raster, {{0, 0, 64, 3}, {0, 0, 2, 1}}, Compose::Copy, 255);
    EXPECT_EQ(0xFF000000u, canvas.at(0, 1));
    EXPECT_EQ(0xFFFFFFFFu, canvas.at(63, 1));
    for (int x = 1; x < 64; ++x)
        EXPECT_GE(canvas.at(x, 1), canvas.at(x - 1, 1));
    // A part of it shows the same as the whole does there.
    Canvas part(64, 3);
    raster::draw(part.raster, {20, 1, 41, 2}, image.raster, {{0, 0, 64, 3}, {0, 0, 2, 1}}, Compose::Copy,
                 255);
    for (int x = 20; x < 41; ++x)
        EXPECT_EQ(canvas.at(x, 1), part.at(x, 1));
}

TEST(Raster, shouldAverageWhenItShrinks) {
    Canvas board(64, 64);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            board.raster.row(y)[x] = (x + y) % 2 ? 0xFFFFFFFF : 0xFF000000;
    for (int size : {32, 16, 4}) {
        Canvas canvas(size, size);
        raster::draw(canvas.raster, Everything, board.raster, {{0, 0, size, size}, {0, 0, 64, 64}},
                     Compose::Copy, 255);
        EXPECT_NEAR(0x7F, static_cast<int>(canvas.at(size / 2, size / 2) & 0xFF), 1) << size;
    }
}

TEST(Raster, shouldKeepAConstantColourWhateverTheSizes) {
    for (int from : {1, 3, 7, 50})
        for (int to : {1, 2, 13, 49, 51, 120}) {
            Canvas image(from, from, 0x80402010), canvas(to, to);
            raster::draw(canvas.raster, Everything, image.raster, {{0, 0, to, to}, {0, 0, from, from}},
                         Compose::Copy, 255);
            for (uint32_t pixel : canvas.pixels)
                ASSERT_EQ(0x80402010u, pixel) << from << ' ' << to;
        }
}

TEST(Raster, shouldPaintNothingFromOutsideTheImage) {
    Canvas image(4, 4, 0xFFFFFFFF), canvas(8, 8);
    for (const Box& source : {Box{2, 2, 6, 6}, Box{-1, 0, 3, 4}, Box{3, 3, 3, 9}, Box{900, 900, 904, 904}})
        raster::draw(canvas.raster, Everything, image.raster, {{0, 0, 4, 4}, source}, Compose::Copy, 255);
    EXPECT_EQ(std::vector<uint32_t>(64, 0), canvas.pixels);
}

TEST(Raster, shouldPaintHugeTargetsInTimeOfWhatIsSeen) {
    Canvas image(1, 1, 0xFF112233), canvas(4, 4);
    constexpr int far = 1 << 28;
    for (Fit fit : {Fit::Tile, Fit::Stretch}) {
        canvas.pixels.assign(16, 0);
        raster::draw(canvas.raster, Everything, image.raster,
                     {{-far, -far, far, far}, {0, 0, 1, 1}, fit, fit}, Compose::Copy, 255);
        EXPECT_EQ(std::vector<uint32_t>(16, 0xFF112233), canvas.pixels);
    }
}

TEST(Raster, shouldRunAGradientFromOneColourToTheOther) {
    for (Direction direction : {Direction::Horizontal, Direction::Vertical}) {
        const bool vertical = direction == Direction::Vertical;
        Canvas canvas(100, 100, 0xFF000000);
        raster::gradient(canvas.raster, {10, 10, 90, 90}, {0, 0, 100, 100}, 0xFFFF0000, 0xFF0000FF, direction,
                         255);
        auto at = [&](int along, int across) {
            return vertical ? canvas.at(across, along) : canvas.at(along, across);
        };
        EXPECT_EQ(0xFF000000u, at(5, 50));
        EXPECT_EQ(at(50, 20), at(50, 80));
        EXPECT_NEAR(128, static_cast<int>(at(50, 50) >> 16 & 0xFF), 1);
        EXPECT_NEAR(127, static_cast<int>(at(50, 50) & 0xFF), 1);
        EXPECT_GT(at(10, 50) >> 16 & 0xFF, at(89, 50) >> 16 & 0xFF);
    }
    Canvas half(2, 2, 0xFF000000);
    raster::gradient(half.raster, Everything, {0, 0, 2, 2}, 0x00FFFFFF, 0xFFFFFFFF, Direction::Vertical, 127);
    EXPECT_EQ(0xFF7F7F7Fu, half.at(0, 0));
}
