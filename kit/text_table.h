#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// The language table as its authors see it: all languages at once, each line with its place.
// The program reads one column and forgives much; the checks here forgive nothing.
// Pure: bytes in, findings out.

namespace kit {

struct TextRow {
    size_t line = 0; // from 1
    std::string kind, key;
    std::vector<std::string> texts; // one for each language, UTF-8
};

struct TextTable {
    std::vector<std::string> codes;
    std::vector<TextRow> rows; // without the line of codes
};

// One finding a line, in the words that the author of the table reads.
using Findings = std::vector<std::string>;

// Lines of a wrong shape are told as findings and left out.
TextTable readTextTable(std::string_view bytes, Findings& findings);

// A text that one language has and another lacks. Rows of the kind "url" may be empty on
// purpose: that hides the link.
void findMissingCells(const TextTable& table, Findings& findings);
// Places for values (%s, %d) that differ from those of the first language.
void findDifferentPlaceholders(const TextTable& table, Findings& findings);
// Keys that are asked for; the text says where.
void findLackingKeys(const TextTable& table, const std::map<std::string, std::string>& asked,
                     Findings& findings);
void findUnusedKeys(const TextTable& table, const std::set<std::string>& known, Findings& findings);

// The names behind the @ of a skin file's attribute values.
std::set<std::string> keysOfMarkup(std::string_view document);

struct SourceKeys {
    std::set<std::string> asked;    // literals handed to the look-up itself
    std::set<std::string> literals; // every literal: a key may travel before it is asked for
};
SourceKeys keysOfSource(std::string_view source);

} // namespace kit
