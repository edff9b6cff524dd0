#include "uilib/core/language_table.h"

#include "uilib/core/utf8.h"

#include <algorithm>

namespace UILib {

namespace {

constexpr size_t FirstLanguage = 2; // behind the note and the key
constexpr size_t FieldLimit = 511;  // units; a longer text is taken for damage and left empty

CUIString fieldText(std::string_view bytes) {
    if (bytes.size() > FieldLimit * 4)
        return {};
    const std::wstring text = wideFromUtf8(bytes);
    return text.size() > FieldLimit ? CUIString() : CUIString(text);
}

bool isHeader(const std::vector<CUIString>& row, const wchar_t* key) {
    return row.size() >= 2 && row[1] == key;
}

} // namespace

int LanguageTable::languageCount() const {
    return codes.size() > FirstLanguage ? static_cast<int>(codes.size() - FirstLanguage) : 0;
}

size_t languageColumn(const std::vector<CUIString>& codes, const CUIString& code) {
    const auto hit = std::find(codes.begin(), codes.end(), code);
    return hit == codes.end() ? FirstLanguage : static_cast<size_t>(hit - codes.begin());
}

size_t readLanguageLine(std::string_view bytes, size_t position, std::vector<CUIString>& fields) {
    fields.clear();
    position = std::min(bytes.find_first_not_of("\t\r\n", position), bytes.size());
    const size_t end = std::min(bytes.find_first_of("\r\n", position), bytes.size());
    while (position < end) {
        const size_t tab = std::min(bytes.find('\t', position), end);
        fields.push_back(fieldText(bytes.substr(position, tab - position)));
        position = tab + 1;
    }
    return end;
}

void parseLanguageTable(std::string_view bytes, const CUIString& code, LanguageTable& table) {
    table.texts.clear();
    size_t position = readLanguageLine(bytes, 0, table.codes);
    position = readLanguageLine(bytes, position, table.names);
    if (!isHeader(table.codes, L"language_code") || !isHeader(table.names, L"language_name"))
        return;
    const size_t column = languageColumn(table.codes, code);
    std::vector<CUIString> fields;
    while (position < bytes.size()) {
        position = std::min(bytes.find_first_not_of("\t\r\n", position), bytes.size());
        if (position < bytes.size() && bytes[position] == '\0')
            break;
        position = readLanguageLine(bytes, position, fields);
        if (fields.size() > column && fields.size() > 1)
            table.texts[fields[1]] = fields[column];
    }
}

} // namespace UILib
