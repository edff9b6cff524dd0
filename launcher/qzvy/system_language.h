#pragma once

#include <cstdint>
#include <string>

// The language of the system's user interface in the launcher's own codes. Only five
// languages are taken from the system; every other one reads as English.

struct SystemLanguage {
    const wchar_t* code;   // "cn"
    const wchar_t* locale; // "zh_CN"
};

SystemLanguage languageOfIdentifier(uint16_t identifier); // a LANGID

std::wstring systemLanguageCode();
std::wstring systemLocaleCode();
