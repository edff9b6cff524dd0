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
    const HtmlLayout size = measureHtml(device, text, probe, style, defaults);
    return HtmlTypesetter(device, aligned(box, style, size.width, size.height), style, defaults).set(text);
}

} // namespace UILib
