#include "uilib/core/image_decode.h"

#include <cstdlib>
#include <vector>

// Any bytes as an image file.

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const UILib::DecodedImage image = UILib::decodeImage(data, size);
    if (!image)
        return 0;
    if (image.width <= 0 || image.height <= 0 || int64_t{image.width} * image.height > UILib::ImagePixelLimit)
        abort();
    std::vector<uint32_t> pixels(static_cast<size_t>(image.width) * static_cast<size_t>(image.height));
    UILib::premultiply(image.rgba.get(), pixels.size(), pixels.data(), 0xFFFF00FF);
    for (uint32_t pixel : pixels)
        for (int shift = 0; shift < 24; shift += 8)
            if ((pixel >> shift & 0xFF) > pixel >> 24)
                abort();
    return 0;
}
