#pragma once

#include "uilib/core/geometry.h"
#include "uilib/core/image.h"
#include "uilib/core/platform.h"
#include "uilib/core/render_host.h"

#include <cstdint>
#include <memory>

// The drawing operations of all controls, on a device context in client coordinates.
//
// Colours are 32-bit ARGB, an alpha of 0 paints nothing. Rectangles leave out their right
// and bottom line. The paint rectangle is the part of the window that is being painted:
// nothing outside it is touched. Pictures, fills and gradients are written by a raster
// layer of our own over premultiplied 32-bit pixels, directly where the context belongs to
// a DibSurface; lines and text are GDI's. Nothing here reports errors to the user.
// Window thread only.

namespace UILib {

class CRenderEngine {
public:
    // -- Images.

    // Null when there is no such image or it cannot be decoded. type: null for a skin file,
    // "*COLOR*" for one pixel of the colour that the name spells, else a resource type.
    static std::shared_ptr<ImageRecord> LoadImage(const wchar_t* name, const wchar_t* type, uint32_t mask);

    // Both parse and load at the first use, and then false means that the image cannot be
    // had. Without a context nothing is drawn: that loads the image for its size.
    static bool DrawImage(HDC context, IRenderHost* manager, const RECT& rectangle, const RECT& paint,
                          DrawRecord& record);
    // The image holds four pictures side by side; state 0 to 3 picks one.
    static bool DrawStateImage(HDC context, IRenderHost* manager, const RECT& rectangle, const RECT& paint,
                               DrawRecord& record, int state);

    struct BitmapStyle {
        RECT corner = {};          // borders that are not stretched
        bool alphaChannel = false; // blend by the pixels' alpha
        uint8_t fade = 255;        // constant alpha on top
        bool hole = false;         // leave out the centre
        bool xTiled = false;       // tile the centre instead of stretching it
        bool yTiled = false;
    };
    static void DrawBitmap(HDC context, const ImageRecord& image, const RECT& rectangle, const RECT& paint,
                           const RECT& sourcePart, const BitmapStyle& style);

    // -- Fills and lines.

    // The alpha of a gradient is the mean of its two colours'.
    static void DrawColor(HDC context, const RECT& rectangle, uint32_t color);
    static void DrawGradient(HDC context, const RECT& rectangle, uint32_t first, uint32_t second,
                             Direction direction);
    // From the top left to the bottom right corner. Lines have no alpha.
    static void DrawLine(HDC context, const RECT& rectangle, int width, uint32_t color,
                         int penStyle = PS_SOLID);
    static void DrawRect(HDC context, const RECT& rectangle, int width, uint32_t color,
                         int penStyle = PS_SOLID);
    static void DrawRoundRect(HDC context, const RECT& rectangle, int width, int ellipseWidth,
                              int ellipseHeight, uint32_t color, int penStyle = PS_SOLID);

    // -- Text. A text of the form "@key" is looked up in the language table. With
    //    DT_CALCRECT nothing is drawn and the rectangle comes back with the size needed.

    static void DrawText(HDC context, IRenderHost* manager, RECT& rectangle, const wchar_t* text,
                         uint32_t color, int font, unsigned style);
    // Text with tags, see html_text.h. links: room for linkCount rectangles and names; the
    // count comes back as the number that was filled. Both may be null with a count of 0.
    static void DrawHtmlText(HDC context, IRenderHost* manager, RECT& rectangle, const wchar_t* text,
                             uint32_t color, RECT* links, CUIString* linkNames, int& linkCount, int font,
                             unsigned style);

    // -- Bitmaps.

    // 32-bit, bottom-up, zeroed; null on failure. pixels receives the address of its bits.
    static utility::Bitmap CreateARGB32Bitmap(HDC context, int width, int height, uint32_t** pixels);
    // That part of the window as a 32-bit bottom-up bitmap of its own, with the background
    // colour over it when that has an alpha. control: null for the whole tree.
    static utility::Bitmap GenerateBitmap(IRenderHost* manager, const RECT& rectangle, CControlUI* control,
                                          uint32_t backgroundColor);
};

} // namespace UILib
