#include "uilib/core/html_layout.h"

#include "uilib/core/html_typesetter.h"

namespace UILib {

namespace {

// A single line is measured with as much room as no window has.
constexpr int EndlessWidth = 9999;
constexpr int SingleLineHeight = 100;

HtmlStyle leftTop(HtmlStyle style) {
    style.center = style.right = style.middle = style.bottom = false;
    return style;
}

// Where in box a block of that size goes.
Box aligned(Box box, const HtmlStyle& style, int width, int height) {
    const bool cutAtEnd = style.endEllipsis && width > box.width();
    if (style.singleLine && (style.center || style.right) && !cutAtEnd) {
        const int room = box.width() - width;
        box.left += style.center ? room / 2 : room;
        box.right = box.left + width;
    }
    if (style.middle || style.bottom) {
        const int room = box.height() - height;
        box.top += style.middle ? room / 2 : room;
        box.bottom = box.top + height;
    }
    return box;
}

void move(Box& box, int dx, int dy) {
    box = {box.left + dx, box.top + dy, box.right + dx, box.bottom + dy};
}

void move(HtmlLayout& layout, int dx, int dy) {
    for (HtmlRun& run : layout.runs) {
        run.x += dx;
        run.y += dy;
    }
    for (HtmlPicture& picture : layout.pictures)
        move(picture.box, dx, dy);
    for (HtmlLink& link : layout.links)
        move(link.box, dx, dy);
}

// Whether setting the text again where it belongs would break it into the same lines.
bool staysTheSame(const HtmlLayout& layout, const Box& box, const HtmlStyle& style) {
    if (!layout.movable)
        return false;
    return style.singleLine ? layout.width <= box.width()
                            : layout.height <= box.height() && !style.endEllipsis;
}

} // namespace

HtmlLayout measureHtml(HtmlDevice& device, std::wstring_view text, const Box& box, HtmlStyle style,
                       const HtmlDefaults& defaults) {
    return HtmlTypesetter(device, box, leftTop(style), defaults).set(text);
}

HtmlLayout layoutHtml(HtmlDevice& device, std::wstring_view text, const Box& box, const HtmlStyle& style,
                      const HtmlDefaults& defaults) {
    if (!style.center && !style.right && !style.middle && !style.bottom)
        return HtmlTypesetter(device, box, style, defaults).set(text);
    Box probe = box;
    if (style.singleLine) {
        probe.right = box.left + EndlessWidth;
        probe.bottom = box.top + SingleLineHeight;
    }
    HtmlLayout first = HtmlTypesetter(device, probe, style, defaults).set(text);
    const Box place = aligned(box, style, first.width, first.height);
    if (!staysTheSame(first, box, style))
        return HtmlTypesetter(device, place, style, defaults).set(text);
    move(first, place.left - box.left, place.top - box.top);
    return first;
}

} // namespace UILib
