#include "uilib/core/attribute_table.h"

#include "uilib/core/number_text.h"

#include <cwchar>

namespace UILib {

const char* attributeKindName(AttributeKind kind) {
    static constexpr const char* Names[] = {"text", "flag", "number", "colour",
                                            "size", "rect", "image",  "attributes"};
    return Names[static_cast<size_t>(kind)];
}

const Attribute* AttributeTable::find(const wchar_t* name) const {
    for (const AttributeTable* table = this; table; table = table->base)
        for (const Attribute& row : table->rows)
            if (std::wcscmp(row.name, name) == 0)
                return &row;
    return nullptr;
}

bool readFlag(const wchar_t* value) {
    return std::wcscmp(value, L"true") == 0;
}

int readNumber(const wchar_t* value) {
    std::wstring_view text(value);
    return readCoordinate(text);
}

SIZE readSize(const wchar_t* value) {
    const Box box = readBox(value);
    return {box.left, box.top};
}

RECT readRectangle(const wchar_t* value) {
    const Box box = readBox(value);
    return {box.left, box.top, box.right, box.bottom};
}

uint32_t readColorValue(const wchar_t* value) {
    while (*value && *value <= L' ')
        ++value;
    return readColor(value);
}

} // namespace UILib
