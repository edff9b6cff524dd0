#include "uilib/controls/text_style.h"

#include "uilib/core/platform.h"

#include <cwchar>

namespace UILib {

namespace {

struct Word {
    const wchar_t* name;
    unsigned flag;
};

// Each word that is found anywhere in the text wins over those before it.
unsigned withWords(unsigned style, const wchar_t* text, const Word (&words)[3]) {
    for (const Word& word : words)
        if (std::wcsstr(text, word.name))
            style = (style & ~(words[0].flag | words[1].flag | words[2].flag)) | word.flag;
    return style;
}

} // namespace

unsigned withAlign(unsigned style, const wchar_t* words) {
    return withWords(style, words, {{L"left", DT_LEFT}, {L"center", DT_CENTER}, {L"right", DT_RIGHT}});
}

unsigned withVAlign(unsigned style, const wchar_t* words) {
    return withWords(style, words, {{L"top", DT_TOP}, {L"vcenter", DT_VCENTER}, {L"bottom", DT_BOTTOM}});
}

} // namespace UILib
