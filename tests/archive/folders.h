#pragma once

#include <filesystem>
#include <map>
#include <string>

// Folders of the tests: the archives that make_archives.py made, and places to unpack to.

namespace archive_test {

// Below the build folder: "trees", "refused", "faults".
std::filesystem::path archives(const char* group);

// The .7z files of a group, in the order of their names.
std::map<std::string, std::filesystem::path> archivesOf(const char* group);

// A new empty folder that goes with the object, however long the paths in it are.
class TempFolder {
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    std::filesystem::path operator/(const std::string& name) const { return path / name; }

private:
    std::filesystem::path path;
};

std::string utf8(const std::wstring& text);

std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, const std::string& content);

// What stands in a folder: names in UTF-8 with '/', and the content; a folder has a name
// that ends in '/'. Empty when there is no such folder.
using Tree = std::map<std::string, std::string>;
Tree readTree(const std::filesystem::path& folder);

} // namespace archive_test
