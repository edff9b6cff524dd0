#include "uilib/core/utf8.h"

#include <cstdint>
#include <cstring>

namespace UILib {

namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr bool Units16 = sizeof(wchar_t) == 2;

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// What the second byte may be: it decides over forms longer than needed, surrogates and
// what lies above the last code point.
struct Range {
    unsigned char first, last;
};
Range secondByte(unsigned char lead) {
    switch (lead) {
    case 0xE0:
        return {0xA0, 0xBF};
    case 0xED:
        return {0x80, 0x9F};
    case 0xF0:
        return {0x90, 0xBF};
    case 0xF4:
        return {0x80, 0x8F};
    default:
        return {0x80, 0xBF};
    }
}

// Decodes one sequence of two or more bytes at the front and says how long it is, or how
// much of one there is.
char32_t decodeSequence(const unsigned char* at, const unsigned char* end, int& length) {
    const unsigned char lead = *at;
    const int wanted = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    length = 1;
    if (lead < 0xC2 || lead > 0xF4)
        return Replacement;
    char32_t value = lead & (0xFF >> (wanted + 1));
    const Range second = secondByte(lead);
    for (; length < wanted; ++length) {
        if (end - at <= length || !isContinuation(at[length]))
            return Replacement;
        if (length == 1 && (at[1] < second.first || at[1] > second.last))
            return Replacement;
        value = value << 6 | (at[length] & 0x3F);
    }
    return value;
}

wchar_t* put(char32_t value, wchar_t* target) {
    if (Units16 && value >= 0x10000) {
        *target++ = static_cast<wchar_t>(0xD800 + ((value - 0x10000) >> 10));
        *target++ = static_cast<wchar_t>(0xDC00 + (value & 0x3FF));
    } else {
        *target++ = static_cast<wchar_t>(value);
    }
    return target;
}

bool eightAscii(const unsigned char* at) {
    uint64_t block;
    std::memcpy(&block, at, sizeof block);
    return (block & 0x8080808080808080u) == 0;
}

char32_t takeCodePoint(std::wstring_view text, size_t& at) {
    const auto unit = static_cast<char32_t>(text[at++]);
    if (!Units16 || unit < 0xD800 || unit >= 0xE000)
        return unit > 0x10FFFF || (unit >= 0xD800 && unit < 0xE000) ? Replacement : unit;
    if (unit >= 0xDC00 || at == text.size())
        return Replacement;
    const auto low = static_cast<char32_t>(text[at]);
    if (low < 0xDC00 || low >= 0xE000)
        return Replacement;
    ++at;
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

} // namespace

char32_t takeUtf8(const char*& at, const char* end) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(at);
    int length = 1;
    const char32_t value =
        *bytes < 0x80 ? *bytes : decodeSequence(bytes, reinterpret_cast<const unsigned char*>(end), length);
    at += length;
    return value;
}

wchar_t* decodeUtf8(std::string_view bytes, wchar_t* target) {
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* end = at + bytes.size();
    while (at < end) {
        for (; end - at >= 8 && eightAscii(at); at += 8, target += 8)
            for (int i = 0; i < 8; ++i)
                target[i] = at[i];
        if (at == end)
            break;
        if (*at < 0x80) {
            *target++ = *at++;
            continue;
        }
        int length;
        target = put(decodeSequence(at, end, length), target);
        at += length;
    }
    return target;
}

std::wstring wideFromUtf8(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    text.resize(static_cast<size_t>(decodeUtf8(bytes, text.data()) - text.data()));
    return text;
}

std::string utf8FromWide(std::wstring_view text) {
    std::string bytes;
    for (size_t at = 0; at < text.size();) {
        const char32_t value = takeCodePoint(text, at);
        const auto tail = [&](int shift) { bytes += static_cast<char>(0x80 | (value >> shift & 0x3F)); };
        if (value < 0x80) {
            bytes += static_cast<char>(value);
        } else if (value < 0x800) {
            bytes += static_cast<char>(0xC0 | value >> 6);
            tail(0);
        } else if (value < 0x10000) {
            bytes += static_cast<char>(0xE0 | value >> 12);
            tail(6), tail(0);
        } else {
            bytes += static_cast<char>(0xF0 | value >> 18);
            tail(12), tail(6), tail(0);
        }
    }
    return bytes;
}

} // namespace UILib
