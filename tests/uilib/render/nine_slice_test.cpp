#include "uilib/core/nine_slice.h"

#include <gtest/gtest.h>

#include <random>

using namespace UILib;

namespace {

const Box Everything = {-1000, -1000, 1000, 1000};

std::vector<Box> targets(const NineSlice& image, const Box& paint = Everything) {
    std::vector<Box> boxes;
    for (const Slice& slice : cut(image, paint))
        boxes.push_back(slice.target);
    return boxes;
}

const NineSlice Frame = {{100, 200, 150, 260}, {0, 0, 20, 20}, {4, 5, 6, 7}};

} // namespace

TEST(NineSlice, shouldCutTheCentreFirstAndThenTheEdgesInReadingOrder) {
    const std::vector<Box> expected = {{104, 205, 144, 253}, {100, 200, 104, 205}, {104, 200, 144, 205},
                                       {144, 200, 150, 205}, {100, 205, 104, 253}, {144, 205, 150, 253},
                                       {100, 253, 104, 260}, {104, 253, 144, 260}, {144, 253, 150, 260}};
    EXPECT_EQ(expected, targets(Frame));
    const std::vector<Slice> slices = cut(Frame, Everything);
    EXPECT_EQ((Box{4, 5, 14, 13}), slices[0].source);
    EXPECT_EQ((Box{14, 13, 20, 20}), slices[8].source);
}

TEST(NineSlice, shouldLeaveOutWhatIsNotPainted) {
    EXPECT_EQ((std::vector<Box>{{100, 200, 104, 205}}), targets(Frame, {0, 0, 103, 203}));
    NineSlice hollow = Frame;
    hollow.hole = true;
    EXPECT_TRUE(targets(hollow, {110, 210, 120, 220}).empty());
    EXPECT_EQ(8u, targets(hollow).size());
    EXPECT_TRUE(targets(Frame, {}).empty());
}

TEST(NineSlice, shouldBeOnePieceWithoutCorners) {
    NineSlice plain = Frame;
    plain.corner = {};
    EXPECT_EQ((std::vector<Box>{plain.target}), targets(plain));
    plain.corner = {-3, -3, -3, -3};
    EXPECT_EQ((std::vector<Box>{plain.target}), targets(plain));
}

TEST(NineSlice, shouldTileTheCentreOnly) {
    NineSlice tiled = Frame;
    tiled.xTiled = true;
    const std::vector<Slice> slices = cut(tiled, Everything);
    EXPECT_EQ(Fit::Tile, slices[0].horizontal);
    EXPECT_EQ(Fit::Stretch, slices[0].vertical);
    EXPECT_EQ(Fit::Stretch, slices[2].horizontal);
}

TEST(NineSlice, shouldPaintNoMiddleWhenTheCornersAreWiderThanTheTarget) {
    NineSlice narrow = Frame;
    narrow.target = {0, 0, 8, 60};
    for (const Slice& slice : cut(narrow, Everything))
        EXPECT_TRUE(slice.target.left == 0 || slice.target.right == 8);
    narrow.corner = {50, 50, 50, 50}; // wider than the image as well
    for (const Slice& slice : cut(narrow, Everything))
        EXPECT_FALSE(slice.target.isEmpty() || slice.source.isEmpty());
}

namespace {

// Whether a place along one axis belongs to a border, by the definition.
bool isBorder(int at, int length, int before, int after) {
    return at < before || at >= length - after;
}

struct Case {
    NineSlice image;
    Box paint;
};

Case randomCase(std::mt19937& random) {
    const auto upTo = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    Case made;
    NineSlice& n = made.image;
    n.target = {upTo(50), upTo(50), 0, 0};
    n.target.right = n.target.left + upTo(60);
    n.target.bottom = n.target.top + upTo(60);
    n.source = {0, 0, 1 + upTo(40), 1 + upTo(40)};
    n.corner = {upTo(20), upTo(20), upTo(20), upTo(20)};
    n.hole = upTo(3) == 0;
    n.xTiled = upTo(1);
    n.yTiled = upTo(1);
    made.paint = {upTo(80), upTo(80), 40 + upTo(80), 40 + upTo(80)};
    return made;
}

} // namespace

// Where the borders do not overlap every pixel belongs to exactly one piece; a border keeps the
// size it has in the image; a part gets those pieces of the whole that meet it.
TEST(NineSlice, shouldCoverEveryPixelOnceWithPiecesOfTheRightKind) {
    std::mt19937 random(9);
    for (int round = 0; round < 700; ++round) {
        const auto [n, paint] = randomCase(random);
        const std::vector<Slice> whole = cut(n, Everything);
        const Box& c = n.corner;
        std::vector<Box> met;
        for (const Slice& slice : whole)
            if (meets(slice.target, paint))
                met.push_back(slice.target);
        ASSERT_EQ(met, targets(n, paint));
        if (c.left + c.right > std::min(n.target.width(), n.source.width() - 1) ||
            c.top + c.bottom > std::min(n.target.height(), n.source.height() - 1))
            continue;
        for (int y = n.target.top; y < n.target.bottom; ++y)
            for (int x = n.target.left; x < n.target.right; ++x) {
                const bool inX = !isBorder(x - n.target.left, n.target.width(), c.left, c.right);
                const bool inY = !isBorder(y - n.target.top, n.target.height(), c.top, c.bottom);
                int pieces = 0;
                for (const Slice& s : whole) {
                    if (!s.target.contains(x, y))
                        continue;
                    ++pieces;
                    ASSERT_TRUE(inX || s.source.width() == s.target.width());
                    ASSERT_TRUE(inY || s.source.height() == s.target.height());
                    const bool centre = inX && inY;
                    ASSERT_EQ(s.horizontal == Fit::Tile, centre && n.xTiled);
                    ASSERT_EQ(s.vertical == Fit::Tile, centre && n.yTiled);
                }
                ASSERT_EQ(pieces, inX && inY && n.hole ? 0 : 1) << x << "," << y;
            }
    }
}
