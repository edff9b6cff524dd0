#include "utility/encoding.h"

#include "utility/windows.h"

namespace utility {

namespace {

std::wstring toWide(UINT codePage, const char* text, int length) {
    if (!text || length < -1)
        return {};
    const int size = MultiByteToWideChar(codePage, 0, text, length, nullptr, 0);
    if (size == 0)
        return {};
    std::wstring wide(size, L'\0');
    MultiByteToWideChar(codePage, 0, text, length, wide.data(), size);
    if (length == -1)
        wide.pop_back(); // the terminator was counted
    return wide;
}

} // namespace

std::wstring ansiToWide(const char* text, int length) {
    return toWide(CP_ACP, text, length);
}

std::wstring utf8ToWide(const char* text, int length) {
    return toWide(CP_UTF8, text, length);
}

std::string wideToAnsi(const wchar_t* text, int length) {
    if (!text || length < -1)
        return {};
    const int size = WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
    if (size == 0)
        return {};
    std::string narrow(size, '\0');
    WideCharToMultiByte(CP_ACP, 0, text, length, narrow.data(), size, nullptr, nullptr);
    if (length == -1)
        narrow.pop_back();
    return narrow;
}

} // namespace utility
