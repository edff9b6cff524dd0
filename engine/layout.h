#pragma once

#include "engine/document.h"
#include "engine/geometry.h"
#include "engine/style.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// From a document and its styles to a tree of boxes with places. Blocks stand below each
// other at the full width, text and what flows with it fills lines, the children of a row
// (display: flex) stand beside each other, and positioned elements stand where they are
// told within the nearest positioned ancestor. Margins do not collapse.
//
// Pure: text is measured and pictures are known through what is handed in.

namespace engine {

struct Font {
    int size = 16; // of the em, in pixels
    int weight = 400;
    bool italic = false;
    bool underline = false;
    auto operator<=>(const Font&) const = default;
};

Font fontOf(const Style& style);

struct FontMetrics {
    int ascent = 0;
    int descent = 0;
};

class TextMeasurer {
public:
    virtual int width(const Font& font, std::u16string_view text) = 0;
    virtual FontMetrics metrics(const Font& font) = 0;

protected:
    ~TextMeasurer() = default;
};

// A run of text in one line. rect is relative to its box's border edge.
struct Fragment {
    int node; // the text
    std::u16string text;
    Rect rect;    // of the letters, not of the line
    int baseline; // from the top of rect
};

struct Box {
    int node = NoNode;
    Rect rect; // border edges, relative to those of the parent
    std::vector<Box> children;
    std::vector<Fragment> fragments;
    std::vector<int> positioned; // elements that are placed within this box, after all else
    bool isImage = false;
};

struct ImageSize {
    int width;
    int height;
};

// The size of the picture of an element; nothing while it is not there.
using ImageSizeOf = std::function<std::optional<ImageSize>(int node)>;

struct Layout {
    Box root;   // as wide as the viewport, at least as high
    int height; // of the whole page, at most limits::PageHeight
};

namespace limits {
inline constexpr int PageHeight = 20000;
} // namespace limits

Layout layOut(const Document& document, const std::vector<Style>& styles, const ImageSizeOf& imageSize,
              TextMeasurer& measurer, int viewportWidth, int viewportHeight);

// The innermost element or text at a place of the page, NoNode if there is none. What was
// painted last wins.
int nodeAt(const Layout& layout, const std::vector<Style>& styles, int x, int y);

} // namespace engine
