#include "engine/line_break.h"

namespace engine {

namespace {

bool isSpace(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\f';
}

bool isIdeographic(char16_t c) {
    return (c >= 0x2E80 && c <= 0x9FFF) || (c >= 0xAC00 && c <= 0xD7A3) || (c >= 0xF900 && c <= 0xFAFF) ||
           (c >= 0xFF01 && c <= 0xFF60) || (c >= 0xD840 && c <= 0xD87F); // lead units of the rarer letters
}

bool mayNotBegin(char16_t c) {
    return std::u16string_view(
               u"、。，．・：；？！）］｝」』】〉》〕ーァィゥェォッャュョぁぃぅぇぉっゃゅょ々…,.!?:;)%")
               .find(c) != std::u16string_view::npos;
}

bool mayNotEnd(char16_t c) {
    return std::u16string_view(u"（［｛「『【〈《〔([").find(c) != std::u16string_view::npos;
}

bool isThai(char16_t c) {
    return c >= 0x0E00 && c <= 0x0E7F;
}

// A vowel that is written before its consonant begins a syllable for certain.
bool beginsThaiSyllable(char16_t c) {
    return c >= 0x0E40 && c <= 0x0E44;
}

bool isLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

bool mayBreakBetween(char16_t before, char16_t after) {
    if (isLowSurrogate(after) || mayNotBegin(after) || mayNotEnd(before))
        return false;
    if (isThai(before) && isThai(after))
        return beginsThaiSyllable(after);
    if (before == u'-' && !isSpace(after))
        return true;
    return isIdeographic(before) || isIdeographic(after);
}

} // namespace

std::vector<Segment> splitText(std::u16string_view text, bool& trailingSpace) {
    std::vector<Segment> out;
    bool space = false;
    for (size_t at = 0; at < text.size();) {
        if (isSpace(text[at])) {
            space = true;
            at++;
            continue;
        }
        size_t end = at + 1;
        while (end < text.size() && !isSpace(text[end]) && !mayBreakBetween(text[end - 1], text[end]))
            end++;
        out.push_back({text.substr(at, end - at), space, space || at > 0});
        space = false;
        at = end;
    }
    trailingSpace = space;
    return out;
}

} // namespace engine
