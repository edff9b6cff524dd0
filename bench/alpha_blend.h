#pragma once

#include <benchmark/benchmark.h>

// The yardstick of everything that paints: the system's AlphaBlend of a whole buffer.

// Adds the counter "of_blend": the time of one iteration in its ratio to that of one
// AlphaBlend of this size, which is measured once a run.
void compareWithAlphaBlend(benchmark::State& state, int width, int height);
