#include "engine/image.h"

#include <memory>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_NO_STDIO
#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#define STBI_ONLY_GIF
#define STBI_ONLY_BMP
#define STBI_MAX_DIMENSIONS 4096
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace engine {

namespace {

static_assert(STBI_MAX_DIMENSIONS == limits::ImageSide);

Color premultiplied(const stbi_uc* rgba) {
    const uint32_t alpha = rgba[3];
    const auto scale = [&](uint32_t channel) { return (channel * alpha + 127) / 255; };
    return alpha << 24 | scale(rgba[0]) << 16 | scale(rgba[1]) << 8 | scale(rgba[2]);
}

} // namespace

std::optional<Image> decodeImage(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > limits::ImageBytes)
        return std::nullopt;
    const auto* data = reinterpret_cast<const stbi_uc*>(bytes.data());
    const int length = static_cast<int>(bytes.size());
    int width = 0, height = 0, channels = 0;
    if (!stbi_info_from_memory(data, length, &width, &height, &channels) || width <= 0 || height <= 0 ||
        width > limits::ImageSide || height > limits::ImageSide ||
        static_cast<size_t>(width) * static_cast<size_t>(height) > limits::ImagePixels)
        return std::nullopt;
    const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> rgba(
        stbi_load_from_memory(data, length, &width, &height, &channels, 4), stbi_image_free);
    if (!rgba)
        return std::nullopt;
    Image image{width, height, {}};
    image.pixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
    for (size_t i = 0; i < image.pixels.size(); i++)
        image.pixels[i] = premultiplied(rgba.get() + 4 * i);
    return image;
}

} // namespace engine
