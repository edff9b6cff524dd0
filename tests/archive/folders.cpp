#include "tests/archive/folders.h"

#include <atomic>
#include <chrono>
#include <codecvt>
#include <fstream>
#include <iterator>
#include <locale>

#ifdef _WIN32
#include "utility/files.h"
#endif

namespace fs = std::filesystem;

namespace archive_test {

fs::path archives(const char* group) {
    return fs::path(u8"" ARCHIVES_FOLDER) / group;
}

std::map<std::string, fs::path> archivesOf(const char* group) {
    std::map<std::string, fs::path> found;
    for (const auto& entry : fs::directory_iterator(archives(group)))
        if (entry.path().extension() == ".7z")
            found[entry.path().stem().string()] = entry.path();
    return found;
}

TempFolder::TempFolder() {
    static std::atomic<unsigned> count = 0;
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    path = fs::temp_directory_path() / ("vyn-archive-" + std::to_string(now) + "-" + std::to_string(count++));
    fs::create_directories(path);
}

TempFolder::~TempFolder() {
#ifdef _WIN32
    utility::ufile::removeDir(path.wstring()); // remove_all() of Wine's library never ends on long paths
#else
    fs::remove_all(path);
#endif
}

std::string utf8(const std::wstring& text) {
#ifdef _WIN32
    std::wstring_convert<std::codecvt_utf8_utf16<wchar_t>> converter;
#else
    std::wstring_convert<std::codecvt_utf8<wchar_t>> converter;
#endif
    return converter.to_bytes(text);
}

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void writeFile(const fs::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

Tree readTree(const fs::path& folder) {
    Tree tree;
    std::error_code missing;
    for (const auto& entry : fs::recursive_directory_iterator(folder, missing)) {
        const auto name = entry.path().lexically_relative(folder).generic_u8string();
        const std::string text(name.begin(), name.end());
        if (entry.is_directory())
            tree[text + "/"];
        else
            tree[text] = readFile(entry.path());
    }
    return tree;
}

} // namespace archive_test
