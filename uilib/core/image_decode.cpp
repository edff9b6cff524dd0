#include "uilib/core/image_decode.h"

#include "uilib/core/jpeg_check.h"
#include "uilib/core/stb_decoder.h"

#include <limits>
#include <string_view>

namespace UILib {

namespace {

constexpr size_t FileSizeLimit = std::numeric_limits<int>::max();

// The largest piece that an honest image of this size needs: eight bytes a pixel (16-bit
// channels, coefficients of a JPEG), its blocks filled up, and its own bytes gathered.
size_t largestAllocation(stb::Size size, size_t fileSize) {
    const int64_t pixels = (int64_t{size.width} + 64) * (size.height + 64);
    return static_cast<size_t>(pixels * 8) + fileSize * 2 + (size_t{1} << 20);
}

bool isSound(stb::Size size) {
    return size.width > 0 && size.height > 0 && size.width <= ImageSideLimit &&
           size.height <= ImageSideLimit && int64_t{size.width} * size.height <= ImagePixelLimit;
}

} // namespace

void DecodedImage::Free::operator()(uint8_t* bytes) const {
    stb::release(bytes);
}

DecodedImage decodeImage(const void* data, size_t length) {
    const std::string_view bytes(static_cast<const char*>(data), length);
    if (bytes.empty() || bytes.size() > FileSizeLimit || !isSafeForJpegDecoder(bytes))
        return {};
    const stb::Size size = stb::readSize(bytes);
    if (!isSound(size))
        return {};
    DecodedImage image;
    image.rgba.reset(stb::decode(bytes, largestAllocation(size, bytes.size())));
    image.width = size.width;
    image.height = size.height;
    return image;
}

bool premultiply(const uint8_t* rgba, size_t count, uint32_t* pixels, uint32_t mask) {
    bool alphaChannel = false;
    for (size_t i = 0; i < count; ++i, rgba += 4) {
        uint32_t red = rgba[0], green = rgba[1], blue = rgba[2];
        const uint32_t alpha = rgba[3];
        if (alpha < 255) {
            alphaChannel = true;
            red = red * alpha / 255;
            green = green * alpha / 255;
            blue = blue * alpha / 255;
        }
        pixels[i] = alpha << 24 | red << 16 | green << 8 | blue;
        if (pixels[i] == mask) {
            pixels[i] = 0;
            alphaChannel = true;
        }
    }
    return alphaChannel;
}

} // namespace UILib
