#pragma once

#include "uilib/core/geometry.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Places formatted text line by line in a rectangle: from a text with tags to runs of plain
// text, inline pictures and links at their places, by way of a device that measures. Free
// of Windows.
//
//   a NAME     link               n        line break           u      underline
//   b          bold               p N      paragraph, spacing   v TYPE vertical alignment
//   c RRGGBB   text colour        r        raw, without tags    x N    pen right by N
//   f FONT     font               s        selected background  y N    height of this line
//   i          italic             i IMAGE  inline picture       h, z N pen to x = N

namespace UILib {

enum class FontTrait { Bold, Underline, Italic };

struct HtmlFont {
    std::wstring_view faceName;
    int size = 10;
    bool bold = false;
    bool underline = false;
    bool italic = false;
};

struct HtmlImage {
    std::wstring name;
    std::wstring type;
    int frames = 1; // side by side in the image
    int frame = 0;  // the one that is shown
};

struct ImageSize {
    int width = 0;
    int height = 0;
};

// Fonts are ids of the resource tables; sizes are pixels.
class HtmlDevice {
public:
    struct Metrics {
        int height = 0;
        int externalLeading = 0;
    };

    struct Fit {
        size_t count = 0; // characters from the start that have room
        int width = 0;    // of the whole text, room or not
    };

    virtual Metrics metrics(int font) = 0;
    virtual int width(int font, std::wstring_view text) = 0;
    virtual Fit fit(int font, std::wstring_view text, int room) = 0;
    virtual int twin(int font, FontTrait trait) = 0; // the same font with that trait as well
    virtual int find(const HtmlFont& font, int fallback) = 0;
    virtual int italicOverhang(int font) = 0;           // room behind slanted text; 0 upright
    virtual ImageSize size(const HtmlImage& image) = 0; // of the whole image; 0 when it is missing

protected:
    ~HtmlDevice() = default;
};

struct HtmlStyle {
    bool center = false;
    bool right = false;
    bool middle = false; // vertically
    bool bottom = false;
    bool singleLine = false;
    bool wordBreak = false;
    bool endEllipsis = false;
};

struct HtmlDefaults {
    int font = 0;
    uint32_t color = 0;
    uint32_t linkColor = 0;
    int linkLimit = 0; // rectangles wanted at the most
};

struct HtmlRun {
    int x = 0;
    int y = 0;
    std::wstring_view text;
    int font = 0;
    uint32_t color = 0;
    bool inLinkColor = false; // the colour is that of the link around
    bool selected = false;    // on the selected background
    std::wstring_view linkName;
};

struct HtmlPicture {
    Box box;
    HtmlImage image;
};

struct HtmlLink {
    Box box; // a link that goes over two lines has two
    std::wstring_view name;
};

// The views point into the text that was laid out.
struct HtmlLayout {
    std::vector<HtmlRun> runs;
    std::vector<HtmlPicture> pictures;
    std::vector<HtmlLink> links;
    int width = 0; // used
    int height = 0;
    bool movable = true; // no tag has asked for a place of its own
};

// Aligned in the rectangle as the style wants it.
HtmlLayout layoutHtml(HtmlDevice& device, std::wstring_view text, const Box& box, const HtmlStyle& style,
                      const HtmlDefaults& defaults);

// The size that the text needs in a rectangle, from its top left; alignment does not count.
HtmlLayout measureHtml(HtmlDevice& device, std::wstring_view text, const Box& box, HtmlStyle style,
                       const HtmlDefaults& defaults);

} // namespace UILib
