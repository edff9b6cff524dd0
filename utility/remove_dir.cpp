#include "utility/files.h"
#include "utility/handles.h"
#include "utility/log.h"

#include <cwchar>
#include <string_view>
#include <vector>

namespace utility::ufile {

namespace {

constexpr std::wstring_view LongPrefix = L"\\\\?\\";
constexpr std::wstring_view LongShare = L"\\\\?\\UNC\\";

// The form of a path that has no limit of 260 characters, and in which names with
// trailing dots mean what they say.
std::wstring longForm(const std::wstring& path) {
    if (path.empty() || path.starts_with(LongPrefix))
        return path;
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    while (full.ends_with(L'\\'))
        full.pop_back();
    if (full.starts_with(L"\\\\"))
        return std::wstring(LongShare) + full.substr(2);
    return std::wstring(LongPrefix) + full;
}

std::wstring shortForm(const std::wstring& path) {
    if (path.starts_with(LongShare))
        return L"\\\\" + path.substr(LongShare.size());
    return path.starts_with(LongPrefix) ? path.substr(LongPrefix.size()) : path;
}

bool isLink(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

bool removeEmptyDir(const std::wstring& folder) {
    if (RemoveDirectoryW(folder.c_str()))
        return true;
    common::log("utility::ufile::removeDir", __LINE__, L"RemoveDirectory error = %d", GetLastError());
    return false;
}

void removeEntry(const std::wstring& folder, const WIN32_FIND_DATAW& entry,
                 std::vector<std::wstring>& folders) {
    const std::wstring path = folder + L"\\" + entry.cFileName;
    if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
        if (!DeleteFileW(path.c_str()))
            common::log("utility::ufile::removeDir", __LINE__, L"DeleteFile fileName = %s error = %d",
                        shortForm(path).c_str(), GetLastError());
    } else if (isLink(entry.dwFileAttributes)) {
        removeEmptyDir(path);
    } else {
        folders.push_back(path);
    }
}

// Deletes the files of a folder and appends its subfolders to folders.
void removeEntries(const std::wstring& folder, std::vector<std::wstring>& folders) {
    WIN32_FIND_DATAW entry;
    const FindHandle search(FindFirstFileW((folder + L"\\*.*").c_str(), &entry));
    if (!search)
        return;
    do {
        if (std::wcscmp(entry.cFileName, L".") != 0 && std::wcscmp(entry.cFileName, L"..") != 0)
            removeEntry(folder, entry, folders);
    } while (FindNextFileW(search.get(), &entry));
}

} // namespace

// Without recursion: the depth of a tree is up to whoever made it.
bool removeDir(const std::wstring& path) {
    const std::wstring root = longForm(path);
    std::vector<std::wstring> folders = {root}; // parents before their children
    // An empty path would be searched as the root of the current drive.
    if (!root.empty() && !isLink(GetFileAttributesW(root.c_str())))
        for (size_t i = 0; i < folders.size(); ++i)
            removeEntries(std::wstring(folders[i]), folders); // a copy: the list grows meanwhile
    bool removed = false;
    for (; !folders.empty(); folders.pop_back())
        removed = removeEmptyDir(folders.back());
    return removed;
}

} // namespace utility::ufile
