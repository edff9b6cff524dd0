#pragma once

#include "uilib/core/ui_string.h"

#include <map>
#include <string_view>
#include <vector>

// The table of visible texts: UTF-8 lines of tab-separated fields, the note for
// translators first, then the key, then one text for each language. Only the chosen
// language's column is kept. Pure: bytes in, table out.

namespace UILib {

struct LanguageTable {
    std::vector<CUIString> codes; // the whole first line
    std::vector<CUIString> names; // the whole second line
    std::map<CUIString, CUIString> texts;

    int languageCount() const;
};

// Index of the first field that holds the code. A code that the line lacks gets the
// first language.
size_t languageColumn(const std::vector<CUIString>& codes, const CUIString& code);

// Reads one line from position on and returns where it ended. Blank lines and leading
// tabs are passed over, so a line with an empty first field loses that field.
size_t readLanguageLine(std::string_view bytes, size_t position, std::vector<CUIString>& fields);

// Replaces what the table held. Wrong header lines leave it without texts.
void parseLanguageTable(std::string_view bytes, const CUIString& code, LanguageTable& table);

} // namespace UILib
