#include "engine/page.h"

#include "tests/engine/page_support.h"

#include <cstdlib>

// A page from its bytes to its pixels, with a picture on it and the pointer all over it.

static void movePointer(engine::Page& page) {
    for (int x = 5; x < 200; x += 60) {
        page.pointAt(x, x / 2);
        const engine::ClickAction action = page.actionAt(x, x / 2);
        if (!action.script.empty() && !action.address.empty())
            abort();
        page.showsHand();
    }
    page.pointNowhere();
    if (page.showsHand())
        abort();
}

// What comes out as UTF-16 is sound: back and forth changes nothing.
static void checkText(std::string_view bytes) {
    const std::string once = engine::toUtf8(engine::toUtf16(engine::repairedUtf8(bytes)));
    if (engine::toUtf8(engine::toUtf16(once)) != once || once != engine::repairedUtf8(bytes))
        abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    checkText({reinterpret_cast<const char*>(data), std::min<size_t>(size, 4096)});
    SquareLetters letters;
    engine::Page page(engine::parsePage({reinterpret_cast<const char*>(data), size}), letters);
    page.resize(200, 100);
    for (const std::string& address : page.imageAddresses())
        page.addImage(address, {3, 2, std::vector<engine::Color>(6, 0x80402010)});
    std::vector<engine::Color> pixels(200 * 100);
    page.paint({pixels.data(), 200, 100}, letters, 5);
    movePointer(page);
    return 0;
}
