#include "archive/database.h"

#include <vector>

namespace archive {

static std::wstring wide(const std::vector<UInt16>& units) {
    std::wstring text;
    text.reserve(units.size());
    for (size_t i = 0; i < units.size(); ++i) {
        const uint32_t unit = units[i];
        const bool pair = sizeof(wchar_t) > 2 && (unit & 0xFC00) == 0xD800 && i + 1 < units.size() &&
                          (units[i + 1] & 0xFC00) == 0xDC00;
        text += static_cast<wchar_t>(pair ? 0x10000 + ((unit & 0x3FF) << 10) + (units[++i] & 0x3FF) : unit);
    }
    return text;
}

std::wstring entryName(const CSzArEx& archive, uint32_t index) {
    if (!archive.FileNameOffsets)
        return {};
    std::vector<UInt16> units(SzArEx_GetFileNameUtf16(&archive, index, nullptr));
    if (units.empty())
        return {};
    SzArEx_GetFileNameUtf16(&archive, index, units.data());
    units.pop_back(); // the terminator
    return wide(units);
}

} // namespace archive
