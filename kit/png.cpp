#include "kit/png.h"

#include <filesystem>
#include <fstream>

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace kit {

static uint8_t unmultiplied(uint32_t pixel, int shift) {
    const uint32_t alpha = pixel >> 24, channel = pixel >> shift & 0xFF;
    return static_cast<uint8_t>(alpha == 0 ? 0 : std::min<uint32_t>(channel * 255 / alpha, 255));
}

static void append(void* bytes, void* data, int size) {
    auto* begin = static_cast<uint8_t*>(data);
    auto* all = static_cast<std::vector<uint8_t>*>(bytes);
    all->insert(all->end(), begin, begin + size);
}

std::vector<uint8_t> encodePng(const UILib::Raster& picture, Alpha alpha) {
    const int channels = alpha == Alpha::Keep ? 4 : 3;
    std::vector<uint8_t> samples;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x) {
            const uint32_t pixel = alpha == Alpha::Keep ? picture.row(y)[x] : picture.row(y)[x] | 0xFF000000;
            for (int shift : {16, 8, 0})
                samples.push_back(unmultiplied(pixel, shift));
            if (alpha == Alpha::Keep)
                samples.push_back(static_cast<uint8_t>(pixel >> 24));
        }
    std::vector<uint8_t> bytes;
    stbi_write_png_to_func(append, &bytes, picture.width, picture.height, channels, samples.data(),
                           picture.width * channels);
    return bytes;
}

bool writeFile(const std::wstring& path, const std::vector<uint8_t>& bytes) {
    std::ofstream file(std::filesystem::path(path), std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return file.good();
}

} // namespace kit
