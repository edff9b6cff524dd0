#include "uilib/controls/text_style.h"

#include "uilib/core/platform.h"

#include <cwchar>

namespace UILib {

unsigned withAlign(unsigned style, const wchar_t* words) {
    constexpr unsigned Flags = DT_CENTER | DT_RIGHT;
    if (std::wcsstr(words, L"left"))
        style &= ~Flags;
    if (std::wcsstr(words, L"center"))
        style = (style & ~Flags) | DT_CENTER;
    if (std::wcsstr(words, L"right"))
        style = (style & ~Flags) | DT_RIGHT;
    return style;
}

unsigned withVAlign(unsigned style, const wchar_t* words) {
    constexpr unsigned Flags = DT_VCENTER | DT_BOTTOM;
    if (std::wcsstr(words, L"top"))
        style &= ~Flags;
    if (std::wcsstr(words, L"vcenter"))
        style = (style & ~Flags) | DT_VCENTER;
    if (std::wcsstr(words, L"bottom"))
        style = (style & ~Flags) | DT_BOTTOM;
    return style;
}

} // namespace UILib
