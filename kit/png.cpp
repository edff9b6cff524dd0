#include "kit/png.h"

#include "kit/console.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <vector>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace kit {

static void appendToFile(void* file, void* bytes, int size) {
    static_cast<std::ofstream*>(file)->write(static_cast<const char*>(bytes), size);
}

bool writePng(const std::wstring& path, const UILib::Raster& picture) {
    std::vector<unsigned char> rgb;
    rgb.reserve(static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height) * 3);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            for (int shift : {16, 8, 0})
                rgb.push_back(static_cast<unsigned char>(picture.row(y)[x] >> shift));
    std::ofstream file(std::filesystem::path(path), std::ios::binary);
    stbi_write_png_to_func(appendToFile, &file, picture.width, picture.height, 3, rgb.data(),
                           picture.width * 3);
    if (!file.flush()) {
        fprintf(stderr, "vynkit: cannot write %s\n", toUtf8(path).c_str());
        return false;
    }
    return true;
}

} // namespace kit
