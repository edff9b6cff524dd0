#pragma once

#include "uilib/core/ui_string.h"
#include "utility/handles.h"

#include <cstdint>
#include <memory>

// Images as the render engine holds them. An image record owns one decoded picture; the
// tables of a manager share it with the draw records of the controls, so that a picture
// that is replaced lives on for as long as a control still draws it. Window thread only.

namespace UILib {

struct ImageRecord {
    utility::Bitmap bitmap;                   // 32-bit DIB section, top-down, premultiplied BGRA
    uint32_t* pixels = nullptr;               // the bitmap's own
    std::unique_ptr<uint32_t[]> sourcePixels; // private copy, only when asked for
    int width = 0;
    int height = 0;
    bool alphaChannel = false; // a pixel is not opaque
    bool keepSource = false;
    CUIString resourceType;
    uint32_t mask = 0; // colour that was made transparent
};

using ImagePtr = std::shared_ptr<const ImageRecord>;

// What one image attribute of a control says, parsed at the first use. The owner calls
// Clear() and stores the new text whenever the attribute changes.
struct DrawRecord {
    CUIString drawString;    // the attribute's text
    CUIString imageName;     // file or colour that it names
    CUIString enlargeString; // text of the attribute for enlarged displays
    bool loaded = false;     // parsing was tried; a failed image is not tried again
    ImagePtr image;          // null until loaded and after a failure
    RECT destOffset = {};    // relative to the drawing rectangle; all 0: fill it
    RECT sourcePart = {};    // all 0: the whole image
    RECT corner = {};        // widths of the borders that are not stretched
    uint8_t fade = 255;
    bool hole = false; // the centre stays unpainted
    bool xTiled = false;
    bool yTiled = false;

    void Clear() { *this = DrawRecord(); }
};

} // namespace UILib
