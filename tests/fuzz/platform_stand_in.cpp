#include "uilib/core/utf8.h"
#include "utility/encoding.h"
#include "utility/endpoints.h"

// What the readers of documents ask Windows for, without Windows.

std::wstring utility::utf8ToWide(const char* text, int length) {
    return UILib::wideFromUtf8({text, static_cast<size_t>(length)});
}

std::wstring utility::endpoints::cdn() {
    return L"http://cdn";
}
