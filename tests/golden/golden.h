#pragma once

#include "uilib/core/raster.h"

#include <gtest/gtest.h>

#include <string>

// Compares what was painted with the picture of that name in this folder. On a mismatch the
// new picture and the difference are left in build/.../golden: NAME.png beside NAME.old.png
// and NAME.difference.png. tools/renew-golden paints all pictures anew; look at them before
// they are committed.

namespace golden {

// The most that a channel may differ: rounding, not shapes.
constexpr int Tolerance = 2;

// The alpha does not count: text leaves it undefined.
testing::AssertionResult matches(const UILib::Raster& painted, const std::string& name);

} // namespace golden
