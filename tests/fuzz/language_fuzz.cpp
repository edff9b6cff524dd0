#include "uilib/core/language_table.h"

#include <cstdlib>

// Any bytes as a table, behind a sound head and without one.

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const char* head : {"", " \tlanguage_code\ten_US\tko_KR\nL\tlanguage_name\tE\tK\n"}) {
        UILib::LanguageTable table;
        UILib::parseLanguageTable(head + bytes, L"ko_KR", table);
        if (table.texts.size() > size || table.languageCount() > static_cast<int>(size + 4))
            abort();
        for (const auto& [key, text] : table.texts)
            if (key.GetLength() > 511 || text.GetLength() > 511)
                abort();
    }
    return 0;
}
