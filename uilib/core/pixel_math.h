#pragma once

#include <cstdint>

// Arithmetic on one pixel of four 8-bit channels, two channels at a time. Whatever keeps
// no channel above alpha in its input keeps it so in its result.

namespace UILib::pixel {

constexpr uint32_t EvenBytes = 0x00FF00FF;
constexpr uint32_t Halves = 0x00800080;

// Each channel times a / 255, rounded.
inline uint32_t scale(uint32_t pixel, uint32_t a) {
    uint32_t even = (pixel & EvenBytes) * a + Halves;
    uint32_t odd = ((pixel >> 8) & EvenBytes) * a + Halves;
    even = ((even + ((even >> 8) & EvenBytes)) >> 8) & EvenBytes;
    odd = (odd + ((odd >> 8) & EvenBytes)) & ~EvenBytes;
    return even | odd;
}

// Premultiplied source over target.
inline uint32_t over(uint32_t source, uint32_t target) {
    return source + scale(target, 255 - (source >> 24));
}

// From a at a share of 0 to b at a share of 256.
inline uint32_t mix(uint32_t a, uint32_t b, uint32_t share) {
    const uint32_t even = ((a & EvenBytes) * (256 - share) + (b & EvenBytes) * share) >> 8 & EvenBytes;
    const uint32_t odd = ((a >> 8 & EvenBytes) * (256 - share) + (b >> 8 & EvenBytes) * share) & ~EvenBytes;
    return even | odd;
}

} // namespace UILib::pixel
