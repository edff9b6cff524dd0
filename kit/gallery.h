#pragma once

#include "uilib/core/dib_surface.h"

namespace kit {

// The sheet of every control in every state.
SIZE gallerySize();
bool drawGallery(const UILib::DibSurface& sheet); // of at least that size; false when a sample is damaged

} // namespace kit
