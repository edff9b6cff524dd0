#pragma once

#include "engine/css_value.h"

#include <optional>
#include <string_view>
#include <vector>

// Pictures of a page, decoded by stb_image: PNG, JPEG, GIF (its first frame) and BMP. Any
// thread.

namespace engine {

struct Image {
    int width = 0;
    int height = 0;
    std::vector<Color> pixels; // row by row from the top, premultiplied
};

namespace limits {
inline constexpr size_t ImageBytes = 4 * 1024 * 1024; // as it comes from the server
inline constexpr int ImageSide = 4096;
inline constexpr size_t ImagePixels = 4 * 1024 * 1024; // of one picture
inline constexpr size_t Images = 32;                   // of one page
inline constexpr size_t PagePixels = 8 * 1024 * 1024;  // of all pictures of a page
} // namespace limits

// Nothing for what is no picture, or too large a one; the size is read before any pixel.
std::optional<Image> decodeImage(std::string_view bytes);

} // namespace engine
