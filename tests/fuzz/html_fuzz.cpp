#include "tests/fuzz/wide_text.h"
#include "tests/uilib/render/fixed_width_device.h"

#include <cstdlib>

// Any text with tags, in any style and a rectangle of any size: what comes out is a part of the
// text in its order, and a line ends where its room ends.

static const UILib::HtmlDefaults defaults = {0, 0xFF000000, 0xFF0000FF, 4};

static bool isInOrder(const UILib::HtmlLayout& layout, std::wstring_view text) {
    const wchar_t* end = text.data();
    for (const UILib::HtmlRun& run : layout.runs) {
        if (run.text == L"..." &&
            (run.text.data() < text.data() || run.text.data() > text.data() + text.size()))
            continue;
        if (run.text.empty() || run.text.data() < end)
            return false;
        end = run.text.data() + run.text.size();
    }
    return end <= text.data() + text.size();
}

// Where no tag moves the pen, only a character that has no room anywhere sticks out.
static bool staysInside(const UILib::HtmlLayout& layout, const UILib::Box& box) {
    if (!layout.movable)
        return true;
    for (const UILib::HtmlRun& run : layout.runs)
        if (run.x < box.left ||
            (run.text.size() > 2 &&
             run.x + FixedWidthDevice::Character * static_cast<int>(run.text.size()) > box.right))
            return false;
    return true;
}

static bool isSound(const UILib::HtmlLayout& layout) {
    for (const UILib::HtmlPicture& picture : layout.pictures)
        if (picture.image.frame < 0 || picture.image.frame >= picture.image.frames ||
            picture.box.width() <= 0 || picture.box.height() <= 0)
            return false;
    for (const UILib::HtmlLink& link : layout.links)
        if (link.box.height() < 0)
            return false;
    return static_cast<int>(layout.links.size()) <= defaults.linkLimit && layout.width >= 0 &&
           layout.height >= 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 3)
        return 0;
    const std::wstring text = wideText(data + 3, size - 3);
    const uint8_t bits = data[0];
    const UILib::HtmlStyle style = {(bits & 1) != 0,  (bits & 2) != 0,  (bits & 4) != 0, (bits & 8) != 0,
                                    (bits & 16) != 0, (bits & 32) != 0, (bits & 64) != 0};
    const UILib::Box box = {0, 0, data[1] * 4 - 20, data[2] * 4 - 20};
    FixedWidthDevice device;
    const UILib::HtmlLayout layout = layoutHtml(device, text, box, style, defaults);
    const UILib::HtmlLayout measured = measureHtml(device, text, box, style, defaults);
    const bool plain = !style.center && !style.right && !style.middle && !style.bottom;
    if (!isSound(layout) || !isSound(measured) || !isInOrder(layout, text) || !isInOrder(measured, text) ||
        (!style.endEllipsis && !staysInside(measured, box)) ||
        (plain && (layout.width != measured.width || layout.height != measured.height)))
        abort();
    return 0;
}
