#include "kit/text_table.h"

#include <algorithm>

namespace kit {

namespace {

constexpr size_t FirstText = 2; // behind the note for translators and the key

std::vector<std::string> split(std::string_view line) {
    std::vector<std::string> fields;
    for (size_t start = 0;;) {
        const size_t tab = line.find('\t', start);
        fields.emplace_back(line.substr(start, tab == line.npos ? tab : tab - start));
        if (tab == line.npos)
            return fields;
        start = tab + 1;
    }
}

std::string place(const TextRow& row) {
    return "line " + std::to_string(row.line) + ", " + row.key + ": ";
}

// The conversions in the order in which values are put in.
std::vector<std::string> placeholders(const std::string& text) {
    std::vector<std::string> found;
    for (size_t at = text.find('%'); at != text.npos; at = text.find('%', at)) {
        const size_t end = text.find_first_not_of("0123456789.+-# lhI", at + 1);
        if (end == text.npos)
            break;
        if (text[end] != '%')
            found.push_back(text.substr(at, end - at + 1));
        at = end + 1;
    }
    return found;
}

// Reads a literal from behind its opening quote; at comes to stand behind the closing one.
std::string readLiteral(std::string_view source, size_t& at) {
    std::string literal;
    for (; at < source.size() && source[at] != '"' && source[at] != '\n'; ++at) {
        if (source[at] == '\\' && at + 1 < source.size())
            ++at;
        literal += source[at];
    }
    ++at;
    return literal;
}

bool endsWith(std::string_view text, std::string_view tail) {
    return text.size() >= tail.size() && text.substr(text.size() - tail.size()) == tail;
}

// Whether what stands before a literal's quote is the call that looks a key up.
bool asksForText(std::string_view before) {
    if (endsWith(before, "L"))
        before.remove_suffix(1);
    return endsWith(before, "anguageText(");
}

void readRow(std::vector<std::string>&& fields, size_t line, size_t width, TextTable& table,
             Findings& findings) {
    const std::string where = "line " + std::to_string(line) + ": ";
    if (fields.size() != width)
        findings.push_back(where + std::to_string(fields.size()) + " fields, not " + std::to_string(width));
    else if (fields[0].empty())
        findings.push_back(where + "an empty first field, so the line loses its key");
    else if (std::any_of(table.rows.begin(), table.rows.end(),
                         [&](const TextRow& row) { return row.key == fields[1]; }))
        findings.push_back(where + fields[1] + " for the second time");
    else
        table.rows.push_back({line, fields[0], fields[1], {fields.begin() + FirstText, fields.end()}});
}

} // namespace

TextTable readTextTable(std::string_view bytes, Findings& findings) {
    TextTable table;
    size_t width = 0, number = 0;
    for (size_t start = 0; start < bytes.size();) {
        const size_t end = std::min(bytes.find('\n', start), bytes.size());
        std::string_view line = bytes.substr(start, end - start);
        start = end + 1;
        ++number;
        if (!endsWith(line, "\r"))
            findings.push_back("line " + std::to_string(number) + ": no CR LF at its end");
        else
            line.remove_suffix(1);
        std::vector<std::string> fields = split(line);
        if (number == 1) {
            width = fields.size();
            if (width <= FirstText || fields[1] != "language_code")
                findings.push_back("line 1: not the line of language codes");
            else
                table.codes.assign(fields.begin() + FirstText, fields.end());
        } else
            readRow(std::move(fields), number, width, table, findings);
    }
    return table;
}

void findMissingCells(const TextTable& table, Findings& findings) {
    for (const TextRow& row : table.rows) {
        for (size_t i = 0; i < row.texts.size(); ++i)
            if (row.texts[i].find_first_not_of(' ') == std::string::npos && row.kind != "url")
                findings.push_back(place(row) + "no text for " + table.codes[i]);
        if (!row.texts.empty() && row.texts.back().empty())
            findings.push_back(place(row) +
                               "its last cell is empty, so the key would show; put a blank there");
    }
}

void findDifferentPlaceholders(const TextTable& table, Findings& findings) {
    for (const TextRow& row : table.rows) {
        if (row.kind == "url" || row.kind == "Link") // there a % spells a character
            continue;
        for (size_t i = 1; i < row.texts.size(); ++i)
            if (placeholders(row.texts[i]) != placeholders(row.texts[0]))
                findings.push_back(place(row) + table.codes[i] + " has other placeholders than " +
                                   table.codes[0]);
    }
}

void findLackingKeys(const TextTable& table, const std::map<std::string, std::string>& asked,
                     Findings& findings) {
    for (const auto& [key, where] : asked)
        if (std::none_of(table.rows.begin(), table.rows.end(),
                         [&key = key](const TextRow& row) { return row.key == key; }))
            findings.push_back(where + ": the table lacks " + key);
}

void findUnusedKeys(const TextTable& table, const std::set<std::string>& known, Findings& findings) {
    for (const TextRow& row : table.rows)
        if (!known.count(row.key) && row.key != "language_name")
            findings.push_back(place(row) + "nobody uses it");
}

std::set<std::string> keysOfMarkup(std::string_view document) {
    std::set<std::string> keys;
    for (size_t at = document.find("\"@"); at != document.npos; at = document.find("\"@", at)) {
        at += 2;
        const size_t end = std::min(document.find('"', at), document.size());
        if (end > at)
            keys.emplace(document.substr(at, end - at));
    }
    return keys;
}

SourceKeys keysOfSource(std::string_view source) {
    SourceKeys keys;
    for (size_t at = source.find('"'); at != source.npos; at = source.find('"', at)) {
        const std::string_view before = source.substr(0, at++);
        std::string literal = readLiteral(source, at);
        if (asksForText(before))
            keys.asked.insert(literal);
        keys.literals.insert(std::move(literal));
        at = std::min(at, source.size());
    }
    return keys;
}

} // namespace kit
