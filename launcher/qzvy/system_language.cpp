#include "launcher/qzvy/system_language.h"

#include "utility/windows.h"

SystemLanguage languageOfIdentifier(uint16_t identifier) {
    switch (PRIMARYLANGID(identifier)) {
    case LANG_CHINESE:
        return {L"cn", L"zh_CN"};
    case LANG_VIETNAMESE:
        return {L"vn", L"vi_VN"};
    case LANG_THAI:
        return {L"th", L"th_TH"};
    case LANG_INDONESIAN:
        return {L"id", L"in_ID"};
    default:
        return {L"en", L"en_US"};
    }
}

std::wstring systemLanguageCode() {
    return languageOfIdentifier(GetUserDefaultUILanguage()).code;
}

std::wstring systemLocaleCode() {
    return languageOfIdentifier(GetUserDefaultUILanguage()).locale;
}
