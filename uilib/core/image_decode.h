#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

// Raster images from bytes that may be hostile. PNG, JPEG, BMP and GIF (its first frame).
// Free of Windows, any thread.

namespace UILib {

// Larger images are refused by their header, before anything is decoded.
constexpr int ImageSideLimit = 16384;                  // pixels
constexpr int64_t ImagePixelLimit = int64_t{16} << 20; // 64 MiB of four channels

struct DecodedImage {
    struct Free {
        void operator()(uint8_t* bytes) const;
    };

    std::unique_ptr<uint8_t, Free> rgba; // rows from the top, four bytes a pixel; null: not decoded
    int width = 0;
    int height = 0;

    explicit operator bool() const { return rgba != nullptr; }
};

DecodedImage decodeImage(const void* data, size_t length);

// Writes count premultiplied BGRA pixels from as many of four bytes. A finished pixel that
// equals mask becomes 0. True when a pixel is not opaque afterwards.
bool premultiply(const uint8_t* rgba, size_t count, uint32_t* pixels, uint32_t mask);

} // namespace UILib
