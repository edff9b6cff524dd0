#include "uilib/core/jpeg_check.h"

namespace UILib {

namespace {

constexpr int MostScans = 32;
constexpr size_t MostCodes = 256;
constexpr size_t CountsLength = 16; // of codes by their length in bits

enum Marker : uint8_t {
    DefineHuffmanTables = 0xC4,
    StartOfScan = 0xDA,
};

uint8_t byteAt(std::string_view bytes, size_t at) {
    return at < bytes.size() ? static_cast<uint8_t>(bytes[at]) : 0;
}

size_t lengthAt(std::string_view bytes, size_t at) {
    return static_cast<size_t>(byteAt(bytes, at) << 8 | byteAt(bytes, at + 1));
}

bool standsAlone(uint8_t marker) { // without a length behind it
    return marker == 0 || marker == 1 || (marker >= 0xD0 && marker <= 0xD9);
}

// Tables behind a marker, each a class, the counts and the symbols.
bool areTablesSafe(std::string_view bytes, size_t at) {
    const size_t end = at + lengthAt(bytes, at);
    for (at += 2; at < end;) {
        size_t codes = 0;
        for (size_t i = 1; i <= CountsLength; ++i)
            codes += byteAt(bytes, at + i);
        if (codes > MostCodes)
            return false;
        at += 1 + CountsLength + codes;
    }
    return true;
}

} // namespace

bool isSafeForJpegDecoder(std::string_view bytes) {
    if (byteAt(bytes, 0) != 0xFF) // no other format begins so
        return true;
    int scans = 0;
    // Up to the first scan whole segments are passed over; behind it every pair of bytes
    // that could be a marker counts, since only a decoder knows where a scan ends.
    for (size_t at = 0; at + 1 < bytes.size();) {
        const uint8_t marker = byteAt(bytes, at + 1);
        if (byteAt(bytes, at) != 0xFF || marker == 0xFF) {
            ++at;
            continue;
        }
        at += 2;
        if (marker == DefineHuffmanTables && !areTablesSafe(bytes, at))
            return false;
        if (marker == StartOfScan && ++scans > MostScans)
            return false;
        if (scans == 0 && !standsAlone(marker))
            at += lengthAt(bytes, at);
    }
    return true;
}

} // namespace UILib
