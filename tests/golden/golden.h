#pragma once

#include "uilib/core/raster.h"

#include <gtest/gtest.h>

#include <string>

// Compares what was painted with the picture of that name in this folder. On a mismatch the
// new picture and the difference are left in build/.../golden: NAME.png beside NAME.old.png
// and NAME.difference.png. tools/renew-golden paints all pictures anew; look at them before
// they are committed.
//
// Everything but the letters is drawn by the framework itself, the same on every machine, and
// is held to the rounding. Letters come from the system, whose version decides how their edges
// are smoothed. So whole windows are painted twice, with and without their texts: where the two
// differ there is text, and there only the means of small blocks are compared. A mean hardly
// feels the smoothing, but a missing, moved or recoloured word changes it by far more.

namespace golden {

// The most that a channel may differ: rounding, not shapes.
constexpr int Tolerance = 2;

// The side of a block of text, in pixels, and the most that the mean of a channel may differ.
constexpr int TextBlock = 4;
constexpr int TextTolerance = 20;

// The alpha does not count: text leaves it undefined.
testing::AssertionResult matches(const UILib::Raster& painted, const std::string& name);
testing::AssertionResult matches(const UILib::Raster& painted, const UILib::Raster& withoutTexts,
                                 const std::string& name);

} // namespace golden
