#include "uilib/core/markup.h"
#include "uilib/core/skin_resources.h"
#include "utility/encoding.h"

namespace UILib {

bool CMarkup::LoadFromMem(const void* bytes, size_t size, int encoding) {
    const std::string_view content(static_cast<const char*>(bytes), size);
    switch (encoding) {
    case Utf8:
        return LoadUtf8(content);
    case Utf16:
        return LoadUtf16(content);
    case Ansi:
        return Load(utility::ansiToWide(content.data(), static_cast<int>(size)));
    default:
        Release();
        return false;
    }
}

bool CMarkup::LoadFromFile(const wchar_t* fileName, int encoding) {
    Release();
    errorMessage[0] = errorLocation[0] = 0;
    uint32_t size;
    const auto bytes = SkinResources::LoadFileBytes(fileName, size);
    return bytes && LoadFromMem(bytes.get(), size, encoding);
}

} // namespace UILib
