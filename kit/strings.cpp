#include "kit/command.h"
#include "kit/console.h"
#include "kit/read_file.h"
#include "kit/text_fit.h"
#include "kit/text_table.h"

#include <cstdio>
#include <filesystem>

namespace kit {

extern const Command stringsCommand;

namespace {

namespace fs = std::filesystem;

struct Uses {
    std::map<std::string, std::string> asked; // key, and a file that asks for it
    std::set<std::string> known = {"font_name"};
};

void take(Uses& uses, const std::set<std::string>& keys, const fs::path& file) {
    for (const std::string& key : keys)
        uses.asked.emplace(key, toUtf8(file.wstring()));
    uses.known.insert(keys.begin(), keys.end());
}

// Calls visit with the path and the bytes of each file below a folder that has the ending.
template <typename Visit>
bool readTree(const std::wstring& folder, std::initializer_list<const wchar_t*> endings, Visit visit) {
    std::error_code error;
    for (const auto& entry : fs::recursive_directory_iterator(folder, error)) {
        const std::wstring ending = entry.path().extension().wstring();
        for (const wchar_t* wanted : endings) {
            std::string bytes;
            if (ending != wanted)
                continue;
            if (!readFile(entry.path().wstring(), bytes))
                return false;
            visit(entry.path(), bytes);
        }
    }
    if (error)
        fprintf(stderr, "vynkit: cannot read %s\n", toUtf8(folder).c_str());
    return !error;
}

bool collectUses(const Arguments& folders, Uses& uses) {
    const bool markupRead =
        readTree(folders[0], {L".xml"}, [&](const fs::path& file, const std::string& bytes) {
            take(uses, keysOfMarkup(bytes), file);
        });
    for (size_t i = 1; markupRead && i < folders.size(); ++i)
        if (!readTree(folders[i], {L".cpp", L".h"}, [&](const fs::path& file, const std::string& bytes) {
                const SourceKeys keys = keysOfSource(bytes);
                take(uses, keys.asked, file);
                uses.known.insert(keys.literals.begin(), keys.literals.end());
            }))
            return false;
    return markupRead;
}

int run(const Arguments& arguments) {
    if (arguments.size() < 2)
        return wrongUsage(stringsCommand, "the skin's folder and the folders of the sources, please");
    std::string bytes;
    Uses uses;
    if (!readFile(arguments[0] + L"/multi_language.tsv", bytes) || !collectUses(arguments, uses))
        return 1;
    Findings findings;
    const TextTable table = readTextTable(bytes, findings);
    findMissingCells(table, findings);
    findDifferentPlaceholders(table, findings);
    findLackingKeys(table, uses.asked, findings);
    if (!findTextsThatDoNotFit(arguments[0], table, findings))
        return 1;
    for (const std::string& finding : findings)
        printf("%s\n", finding.c_str());
    Findings unused;
    findUnusedKeys(table, uses.known, unused);
    for (const std::string& note : unused)
        printf("note: %s\n", note.c_str());
    printf("%zu keys in %zu languages, %zu findings, %zu notes\n", table.rows.size(), table.codes.size(),
           findings.size(), unused.size());
    return findings.empty() ? 0 : 1;
}

} // namespace

const Command stringsCommand = {
    "strings",
    "SKIN SOURCE ...",
    "check the language table against the skin and the program",
    "SKIN is the folder of multi_language.tsv and the markup, each SOURCE a folder of the program.\n"
    "Tells missing texts, keys that are used and not there, placeholders that differ between\n"
    "languages, and texts that do not fit their control at the design size of their window; then\n"
    "the exit code is 1. Notes name the keys that nobody uses, which do no harm.\n",
    run,
};

} // namespace kit
