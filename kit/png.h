#pragma once

#include "uilib/core/raster.h"

#include <cstdint>
#include <string>
#include <vector>

// Pictures as PNG files, for the workbench and the tests.

namespace kit {

enum class Alpha {
    Drop, // as a window shows the pixels: opaque
    Keep,
};

std::vector<uint8_t> encodePng(const UILib::Raster& picture, Alpha alpha);
bool writeFile(const std::wstring& path, const std::vector<uint8_t>& bytes);

} // namespace kit
