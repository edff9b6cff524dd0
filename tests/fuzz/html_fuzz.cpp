#include "tests/fuzz/wide_text.h"
#include "tests/uilib/render/fixed_width_device.h"

#include <cstdlib>

// Any text with tags, in any style and a rectangle of any size.

static bool isSound(const UILib::HtmlLayout& layout, std::wstring_view text) {
    const std::wstring_view dots = L"...";
    for (const UILib::HtmlRun& run : layout.runs) {
        const bool inside =
            run.text.data() >= text.data() && run.text.data() + run.text.size() <= text.data() + text.size();
        if (run.text.empty() || (!inside && run.text != dots))
            return false;
    }
    for (const UILib::HtmlPicture& picture : layout.pictures)
        if (picture.image.frame < 0 || picture.image.frame >= picture.image.frames)
            return false;
    return layout.links.size() <= 4 && layout.width >= 0 && layout.height >= 0;
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
    if (!isSound(layoutHtml(device, text, box, style, {0, 0xFF000000, 0xFF0000FF, 4}), text))
        abort();
    return 0;
}
