#include "kit/gif.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace kit {

// With 128 colours a code takes one byte until the table holds 256; clearing it before
// that keeps every code a byte.
static constexpr uint8_t ClearCode = 128, EndCode = 129;
static constexpr int CodesBetweenClears = 120;
static constexpr size_t BlockLimit = 255;

namespace {

class Writer {
public:
    void text(std::string_view characters) {
        bytes.insert(bytes.end(), characters.begin(), characters.end());
    }
    void put(std::initializer_list<int> values) {
        for (const int value : values)
            bytes.push_back(static_cast<uint8_t>(value));
    }
    void word(int value) { put({value & 255, value >> 8}); }
    void blocks(const std::vector<uint8_t>& data) {
        for (size_t at = 0; at < data.size(); at += BlockLimit) {
            const size_t size = std::min(BlockLimit, data.size() - at);
            bytes.push_back(static_cast<uint8_t>(size));
            bytes.insert(bytes.end(), data.begin() + static_cast<ptrdiff_t>(at),
                         data.begin() + static_cast<ptrdiff_t>(at + size));
        }
        bytes.push_back(0);
    }

    std::vector<uint8_t> bytes;
};

std::vector<uint8_t> codesOfPlainFrame(int pixels) {
    std::vector<uint8_t> codes;
    for (int i = 0; i < pixels; ++i) {
        if (i % CodesBetweenClears == 0)
            codes.push_back(ClearCode);
        codes.push_back(0);
    }
    codes.push_back(EndCode);
    return codes;
}

void writeFrame(Writer& out, int width, int height, const GifFrame& frame) {
    out.put({0x21, 0xF9, 4, 0});
    out.word(frame.hundredths);
    out.put({0, 0, 0x2C, 0, 0, 0, 0});
    out.word(width);
    out.word(height);
    out.put({0x86}); // a palette of its own, of 128 colours
    for (int i = 0; i < 128; ++i)
        out.put({static_cast<int>(frame.rgb >> 16 & 255), static_cast<int>(frame.rgb >> 8 & 255),
                 static_cast<int>(frame.rgb & 255)});
    out.put({7});
    out.blocks(codesOfPlainFrame(width * height));
}

} // namespace

std::vector<uint8_t> encodeGif(int width, int height, const std::vector<GifFrame>& frames) {
    Writer out;
    out.text("GIF89a");
    out.word(width);
    out.word(height);
    out.put({0, 0, 0, 0x21, 0xFF, 11});
    out.text("NETSCAPE2.0");
    out.put({3, 1, 0, 0, 0}); // without end
    for (const GifFrame& frame : frames)
        writeFrame(out, width, height, frame);
    out.put({0x3B});
    return std::move(out.bytes);
}

} // namespace kit
