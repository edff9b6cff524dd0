#pragma once

// The alignment words of attributes as flags of DrawText. A value may hold several words;
// later ones of the list left, center, right (top, vcenter, bottom) win.

namespace UILib {

unsigned withAlign(unsigned style, const wchar_t* words);
unsigned withVAlign(unsigned style, const wchar_t* words);

} // namespace UILib
