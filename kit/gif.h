#pragma once

#include <cstdint>
#include <vector>

// Animated GIF files for the gallery and the tests: one plain colour a frame.

namespace kit {

struct GifFrame {
    uint32_t rgb;
    uint16_t hundredths; // how long it stays, 1/100 s
};

std::vector<uint8_t> encodeGif(int width, int height, const std::vector<GifFrame>& frames);

} // namespace kit
