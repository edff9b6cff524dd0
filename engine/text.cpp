#include "engine/text.h"

#include <algorithm>
#include <cstdint>

namespace engine {

namespace {

constexpr char32_t Replacement = 0xFFFD;

int trailCount(unsigned char lead) {
    if (lead < 0x80)
        return 0;
    if (lead >= 0xC2 && lead < 0xE0)
        return 1;
    if (lead >= 0xE0 && lead < 0xF0)
        return 2;
    return lead >= 0xF0 && lead < 0xF5 ? 3 : -1;
}

bool isScalar(char32_t code, int trails) {
    constexpr char32_t smallest[] = {1, 0x80, 0x800, 0x10000};
    return code >= smallest[trails] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

// Takes one character off the front; a wrong byte goes alone.
char32_t takeUtf8(std::string_view& rest) {
    const auto lead = static_cast<unsigned char>(rest[0]);
    rest.remove_prefix(1);
    const int trails = trailCount(lead);
    if (trails < 0 || rest.size() < static_cast<size_t>(trails))
        return Replacement;
    char32_t code = trails == 0 ? lead : lead & (0x3F >> trails);
    for (int i = 0; i < trails; i++) {
        if ((rest[i] & 0xC0) != 0x80)
            return Replacement;
        code = code << 6 | (rest[i] & 0x3F);
    }
    if (!isScalar(code, trails))
        return Replacement;
    rest.remove_prefix(trails);
    return code;
}

char32_t takeUtf16(std::u16string_view& rest) {
    const char16_t unit = rest[0];
    rest.remove_prefix(1);
    if (unit < 0xD800 || unit > 0xDFFF)
        return unit;
    if (unit > 0xDBFF || rest.empty() || rest[0] < 0xDC00 || rest[0] > 0xDFFF)
        return Replacement;
    const char16_t low = rest[0];
    rest.remove_prefix(1);
    return 0x10000 + ((unit - 0xD800u) << 10) + (low - 0xDC00u);
}

void appendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
        return;
    }
    const int trails = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    const uint8_t leads[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(leads[trails] | code >> (6 * trails));
    for (int i = trails - 1; i >= 0; i--)
        out += static_cast<char>(0x80 | (code >> (6 * i) & 0x3F));
}

} // namespace

std::string repairedUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    while (!bytes.empty())
        appendUtf8(out, takeUtf8(bytes));
    return out;
}

std::u16string toUtf16(std::string_view utf8) {
    std::u16string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t code = takeUtf8(utf8);
        if (code < 0x10000) {
            out += static_cast<char16_t>(code);
            continue;
        }
        out += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
        out += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    }
    return out;
}

std::string toUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty())
        appendUtf8(out, takeUtf16(text));
    return out;
}

bool isBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r' || letter == '\f';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string lowered(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](char letter) { return letter >= 'A' && letter <= 'Z' ? char(letter + 32) : letter; });
    return out;
}

} // namespace engine
