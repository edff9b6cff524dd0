#include "uilib/core/nine_slice.h"

#include <gtest/gtest.h>

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
