#include "uilib/core/image_decode.h"

#include "kit/png.h"
#include "uilib/core/jpeg_check.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace UILib;

namespace {

DecodedImage decode(const std::vector<uint8_t>& bytes) {
    return decodeImage(bytes.data(), bytes.size());
}

std::vector<uint8_t> samplePng(int width, int height) {
    std::vector<uint32_t> pixels;
    for (int i = 0; i < width * height; ++i)
        pixels.push_back(0xFF000000u | static_cast<uint32_t>(i * 2654435761u >> 8));
    return kit::encodePng({pixels.data(), width, height, width}, kit::Alpha::Keep);
}

void appendNumber(std::vector<uint8_t>& bytes, uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<uint8_t>(value >> shift));
}

// A PNG of that size in its header, with those compressed bytes. Sums are not checked.
std::vector<uint8_t> pngOf(uint32_t width, uint32_t height, const std::string& compressed) {
    std::vector<uint8_t> bytes = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    auto chunk = [&](const std::string& name, const std::vector<uint8_t>& content) {
        appendNumber(bytes, static_cast<uint32_t>(content.size()));
        bytes.insert(bytes.end(), name.begin(), name.end());
        bytes.insert(bytes.end(), content.begin(), content.end());
        appendNumber(bytes, 0);
    };
    std::vector<uint8_t> header;
    appendNumber(header, width);
    appendNumber(header, height);
    header.insert(header.end(), {8, 6, 0, 0, 0});
    chunk("IHDR", header);
    chunk("IDAT", {compressed.begin(), compressed.end()});
    chunk("IEND", {});
    return bytes;
}

// Deflated zeros: one literal, then repetitions of 258 in a fixed-code block, which give
// about 170 times their size.
std::string deflatedZeros(size_t bytes) {
    std::string out = "\x78\x01";
    uint32_t bits = 0;
    int count = 0;
    auto put = [&](uint32_t value, int length) {
        for (int i = 0; i < length; ++i) {
            bits |= (value >> i & 1) << count;
            if (++count == 8) {
                out.push_back(static_cast<char>(bits));
                bits = 0;
                count = 0;
            }
        }
    };
    put(1, 1);    // last block
    put(1, 2);    // fixed codes
    put(0x0C, 8); // literal 0: code 00110000, first bit first
    for (size_t done = 1; done < bytes; done += 258) {
        put(0xA3, 8); // length 258: code 11000101
        put(0, 5);    // distance 1
    }
    put(0, 7); // end of block
    put(0, 7); // fill the byte
    return out;
}

} // namespace

TEST(ImageDecode, shouldGiveRowsFromTheTop) {
    const DecodedImage image = decode(samplePng(5, 3));
    ASSERT_TRUE(image);
    EXPECT_EQ(5, image.width);
    EXPECT_EQ(3, image.height);
    const uint8_t* last = image.rgba.get() + 4 * 14;
    const auto expected = static_cast<uint32_t>(14 * 2654435761u >> 8);
    EXPECT_EQ(expected & 0xFFFFFF, static_cast<uint32_t>(last[0] << 16 | last[1] << 8 | last[2]));
    EXPECT_EQ(255, last[3]);
}

TEST(ImageDecode, shouldRefuseBombsByTheirHeader) {
    struct {
        uint32_t width, height;
    } sizes[] = {{60000, 60000}, {16384, 16384}, {16385, 1}, {1, 0x7FFFFFFF}, {0, 5}, {5000, 4000}};
    for (const auto& size : sizes)
        EXPECT_FALSE(decode(pngOf(size.width, size.height, deflatedZeros(100))))
            << size.width << ' ' << size.height;
}

TEST(ImageDecode, shouldStopDataThatUnpacksToMoreThanItsHeaderTells) {
    EXPECT_TRUE(decode(pngOf(16, 16, deflatedZeros(16 * (16 * 4 + 1)))));
    const std::vector<uint8_t> bomb = pngOf(16, 16, deflatedZeros(400u << 20));
    ASSERT_LT(bomb.size(), 4u << 20);
    EXPECT_FALSE(decode(bomb));
}

TEST(ImageDecode, shouldSurviveEveryTruncationAndManyDamages) {
    const std::vector<uint8_t> whole = samplePng(9, 7);
    for (size_t size = 0; size < whole.size(); ++size)
        decodeImage(whole.data(), size);
    int refused = 0;
    for (size_t at = 0; at < whole.size(); ++at) {
        std::vector<uint8_t> damaged = whole;
        damaged[at] ^= 0x55;
        refused += !decode(damaged);
    }
    EXPECT_GT(refused, 30);
    EXPECT_FALSE(decode({}));
    EXPECT_FALSE(decode(std::vector<uint8_t>(1000, 'x')));
}

TEST(JpegCheck, shouldRefuseTooManyScansAndTooLargeTables) {
    auto segment = [](char marker, const std::string& content) {
        const size_t length = content.size() + 2;
        return std::string{'\xFF', marker, static_cast<char>(length >> 8), static_cast<char>(length)} +
               content;
    };
    const std::string start = "\xFF\xD8", scan = segment('\xDA', std::string(6, '\1'));
    const std::string small = '\0' + std::string(16, '\x10') + std::string(256, '\0');
    const std::string large = '\0' + std::string(15, '\x10') + '\x11' + std::string(257, '\0');
    std::string scans = start;
    for (int i = 0; i < 32; ++i)
        scans += scan;
    EXPECT_TRUE(isSafeForJpegDecoder(scans));
    EXPECT_FALSE(isSafeForJpegDecoder(scans + scan));
    EXPECT_TRUE(isSafeForJpegDecoder(start + segment('\xC4', small + small)));
    EXPECT_FALSE(isSafeForJpegDecoder(start + segment('\xC4', small + large)));
    EXPECT_FALSE(isSafeForJpegDecoder(start + scan + "entropy" + segment('\xC4', large)));
    EXPECT_FALSE(isSafeForJpegDecoder(start + "padding\xFF" + segment('\xC4', large)));
    EXPECT_TRUE(isSafeForJpegDecoder(start + segment('\xE1', segment('\xC4', large)))); // a thumbnail
    EXPECT_FALSE(isSafeForJpegDecoder("\xFF" + start + segment('\xC4', large)));        // filled up in front
    EXPECT_TRUE(isSafeForJpegDecoder("x" + segment('\xC4', large)));
    EXPECT_TRUE(isSafeForJpegDecoder(start + "\xFF\xC4"));
}

TEST(ImageDecode, shouldPremultiplyAndMask) {
    const uint8_t rgba[] = {200, 100, 50, 255, 200, 100, 50, 128, 9, 9, 9, 0, 255, 0, 255, 255};
    uint32_t pixels[4];
    EXPECT_FALSE(premultiply(rgba, 1, pixels, 0));
    EXPECT_TRUE(premultiply(rgba, 4, pixels, 0xFFFF00FF));
    EXPECT_EQ(0xFFC86432u, pixels[0]);
    EXPECT_EQ(0x80643219u, pixels[1]);
    EXPECT_EQ(0u, pixels[2]);
    EXPECT_EQ(0u, pixels[3]);
    EXPECT_TRUE(premultiply(rgba, 1, pixels, 0xFFC86432)); // an opaque image gets a hole
    EXPECT_EQ(0u, pixels[0]);
}
