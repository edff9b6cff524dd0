#include "engine/page.h"

#include "tests/engine/page_support.h"

// A page from its bytes to its pixels, with a picture and the pointer on it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    SquareLetters letters;
    engine::Page page(engine::parsePage({reinterpret_cast<const char*>(data), size}), letters);
    page.resize(200, 100);
    for (const std::string& address : page.imageAddresses())
        page.addImage(address, {3, 2, std::vector<engine::Color>(6, 0x80402010)});
    page.pointAt(10, 10);
    std::vector<engine::Color> pixels(200 * 100);
    page.paint({pixels.data(), 200, 100}, letters, 5);
    page.actionAt(10, 10);
    return 0;
}
