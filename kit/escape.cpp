#include "kit/escape.h"

namespace kit {

static bool isControl(wchar_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

std::wstring escaped(const wchar_t* text) {
    std::wstring result;
    for (; *text; ++text) {
        if (*text == L'\\' || *text == L'"') {
            result += L'\\';
            result += *text;
        } else if (isControl(*text)) {
            static constexpr wchar_t Digits[] = L"0123456789ABCDEF";
            result += {L'\\', L'x', Digits[*text >> 4 & 15], Digits[*text & 15]};
        } else {
            result += *text;
        }
    }
    return result;
}

} // namespace kit
