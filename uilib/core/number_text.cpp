#include "uilib/core/number_text.h"

#include <limits>

namespace UILib {

namespace {

struct Magnitude {
    bool found = false;
    bool negative = false;
    uint64_t value = 0; // stops growing beyond 32 bits
};

bool isSpace(wchar_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

int digitOf(wchar_t c) {
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    if (c >= L'a' && c <= L'z')
        return c - L'a' + 10;
    if (c >= L'A' && c <= L'Z')
        return c - L'A' + 10;
    return 99;
}

bool hasDigit(std::wstring_view text, size_t at, int base) {
    return at < text.size() && digitOf(text[at]) < base;
}

size_t skipHexPrefix(std::wstring_view text, size_t at) {
    bool prefix = at + 1 < text.size() && text[at] == L'0' && (text[at + 1] | 0x20) == L'x';
    return prefix && hasDigit(text, at + 2, 16) ? at + 2 : at;
}

Magnitude takeNumber(std::wstring_view& text, int base) {
    Magnitude number;
    size_t at = 0;
    while (at < text.size() && isSpace(text[at]))
        ++at;
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+'))
        number.negative = text[at++] == L'-';
    if (base == 16)
        at = skipHexPrefix(text, at);
    for (; hasDigit(text, at, base); ++at) {
        number.found = true;
        if (number.value <= std::numeric_limits<uint32_t>::max())
            number.value =
                number.value * static_cast<unsigned>(base) + static_cast<unsigned>(digitOf(text[at]));
    }
    if (number.found)
        text.remove_prefix(at);
    return number;
}

} // namespace

int32_t readInteger(std::wstring_view& text, int base) {
    Magnitude number = takeNumber(text, base);
    constexpr uint64_t highest = std::numeric_limits<int32_t>::max();
    if (number.negative)
        return static_cast<int32_t>(-static_cast<int64_t>(std::min(number.value, highest + 1)));
    return static_cast<int32_t>(std::min(number.value, highest));
}

uint32_t readUnsigned(std::wstring_view& text, int base) {
    Magnitude number = takeNumber(text, base);
    constexpr uint64_t highest = std::numeric_limits<uint32_t>::max();
    if (number.value > highest)
        return static_cast<uint32_t>(highest);
    auto value = static_cast<uint32_t>(number.value);
    return number.negative ? 0u - value : value;
}

int readCoordinate(std::wstring_view& text) {
    return std::clamp<int>(readInteger(text), -CoordinateLimit, CoordinateLimit);
}

Box readBox(std::wstring_view text) {
    int numbers[4] = {};
    for (int& number : numbers) {
        number = readCoordinate(text);
        if (!text.empty())
            text.remove_prefix(1);
    }
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

uint32_t readColor(std::wstring_view text) {
    if (!text.empty() && text.front() == L'#')
        text.remove_prefix(1);
    return readUnsigned(text, 16);
}

} // namespace UILib
