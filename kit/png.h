#pragma once

#include "uilib/core/raster.h"

#include <string>

namespace kit {

// Writes premultiplied pixels as an opaque picture over the colours they carry. A failure
// is told on the error output.
bool writePng(const std::wstring& path, const UILib::Raster& picture);

} // namespace kit
