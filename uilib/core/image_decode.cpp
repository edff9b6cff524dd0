#include "uilib/core/image_decode.h"

#include "uilib/core/jpeg_check.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace UILib {

namespace {

// The most that the decoder may take in one piece while it works on one image. Compressed
// data that unpacks to far more than its header tells of ends there.
thread_local size_t allocationLimit = 0;

void* limitedAllocate(size_t size) {
    return size <= allocationLimit ? malloc(size) : nullptr;
}

void* limitedReallocate(void* old, size_t size) {
    return size <= allocationLimit ? realloc(old, size) : nullptr;
}

} // namespace

} // namespace UILib

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#define STBI_ONLY_BMP
#define STBI_ONLY_GIF
#define STBI_NO_STDIO
#define STBI_NO_FAILURE_STRINGS
#define STBI_ASSERT(condition) static_cast<void>(condition)
#define STBI_MAX_DIMENSIONS UILib::ImageSideLimit
#define STBI_MALLOC(size) UILib::limitedAllocate(size)
#define STBI_REALLOC(old, size) UILib::limitedReallocate(old, size)
#define STBI_FREE(old) free(old)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace UILib {

namespace {

constexpr int FourChannels = 4;

// The largest piece that an honest image of this size needs: eight bytes a pixel (16-bit
// channels, coefficients of a JPEG), its blocks filled up, and its own bytes gathered.
size_t largestAllocation(int64_t width, int64_t height, size_t fileSize) {
    const int64_t pixels = (width + 64) * (height + 64);
    return static_cast<size_t>(pixels * 8) + fileSize * 2 + (size_t{1} << 20);
}

bool isSound(int width, int height) {
    return width > 0 && height > 0 && width <= ImageSideLimit && height <= ImageSideLimit &&
           int64_t{width} * height <= ImagePixelLimit;
}

} // namespace

void DecodedImage::Free::operator()(uint8_t* bytes) const {
    stbi_image_free(bytes);
}

DecodedImage decodeImage(const void* bytes, size_t size) {
    if (size == 0 || size > static_cast<size_t>(std::numeric_limits<int>::max()) ||
        !isSafeForJpegDecoder({static_cast<const char*>(bytes), size}))
        return {};
    const auto* data = static_cast<const stbi_uc*>(bytes);
    const auto length = static_cast<int>(size);
    DecodedImage image;
    int channels = 0;
    allocationLimit = largestAllocation(0, 0, size);
    if (!stbi_info_from_memory(data, length, &image.width, &image.height, &channels) ||
        !isSound(image.width, image.height))
        return {};
    allocationLimit = largestAllocation(image.width, image.height, size);
    image.rgba.reset(
        stbi_load_from_memory(data, length, &image.width, &image.height, &channels, FourChannels));
    return image;
}

bool premultiply(const uint8_t* rgba, size_t count, uint32_t* pixels, uint32_t mask) {
    bool alphaChannel = false;
    for (size_t i = 0; i < count; ++i, rgba += FourChannels) {
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
