#pragma once

#include "engine/layout.h"
#include "engine/raster.h"

#include <functional>

// Draws a laid-out page: backgrounds, borders, pictures and texts, parents before children.

namespace engine {

class TextPainter {
public:
    // The letters' top left corner at a pixel of the bitmap; nothing outside of clip.
    virtual void draw(const Font& font, std::u16string_view text, int x, int y, Color color,
                      const Rect& clip) = 0;

protected:
    ~TextPainter() = default;
};

// The picture of an element: of an img, or of its background. Null while it is not there.
using ImageOf = std::function<const Image*(int node)>;

// scroll: the first row of the page that is shown.
void paintPage(const Bitmap& target, const Document& document, const Layout& layout,
               const std::vector<Style>& styles, const ImageOf& imageOf, TextPainter& texts, int scroll);

} // namespace engine
