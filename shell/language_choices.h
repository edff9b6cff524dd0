#pragma once

#include <string>
#include <vector>

// The languages that the settings offer. The launcher has texts in more than its markets
// were released for.

struct LanguageChoice {
    std::wstring code; // "en_US"
    std::wstring name; // in the language itself

    bool operator==(const LanguageChoice&) const = default;
};

// Those of the table that are released, in its order, but the present one first.
std::vector<LanguageChoice> releasedLanguages(const std::vector<LanguageChoice>& table,
                                              const std::wstring& present);
