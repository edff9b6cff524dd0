#include "archive/file_system.h"

#include "utility/handles.h"

#include <algorithm>

namespace archive {

namespace {

constexpr intptr_t noHandle = -1; // INVALID_HANDLE_VALUE

HANDLE systemHandle(intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

std::wstring absolutePath(const std::wstring& path) {
    std::wstring result;
    DWORD units = MAX_PATH;
    // The wanted size can grow between two calls when another thread changes folder.
    do {
        result.resize(units);
        units = GetFullPathNameW(path.c_str(), static_cast<DWORD>(result.size()), result.data(), nullptr);
    } while (units > result.size());
    result.resize(units);
    return result;
}

bool startsWith(const std::wstring& text, const wchar_t* head) {
    return text.rfind(head, 0) == 0;
}

// Junctions and symbolic links, but not the placeholders of cloud folders and
// deduplicated files, which carry a reparse point as well. Wine gives links no tag.
bool isLink(DWORD attributes, DWORD reparseTag) {
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) &&
           (reparseTag == 0 || IsReparseTagNameSurrogate(reparseTag));
}

FolderState stateOfExisting(const std::wstring& path) {
    WIN32_FIND_DATAW found;
    utility::FindHandle search(FindFirstFileW(path.c_str(), &found));
    if (!search)
        return FolderState::Failed;
    if (isLink(found.dwFileAttributes, found.dwReserved0))
        return FolderState::Link;
    const bool folder = found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
    return folder ? FolderState::Ready : FolderState::Failed;
}

// Empties a file that was there before. Opening it with truncation instead would fail
// for a hidden file, and would already have destroyed the target of a link.
unsigned emptyExisting(HANDLE file) {
    FILE_ATTRIBUTE_TAG_INFO info = {};
    if (GetFileInformationByHandleEx(file, FileAttributeTagInfo, &info, sizeof info) &&
        isLink(info.FileAttributes, info.ReparseTag))
        return ERROR_CANT_ACCESS_FILE;
    return SetEndOfFile(file) ? 0 : GetLastError();
}

} // namespace

std::wstring systemPath(const std::wstring& folder) {
    std::wstring path = absolutePath(folder);
    while (!path.empty() && path.back() == pathSeparator)
        path.pop_back();
    if (path.empty() || startsWith(path, L"\\\\?\\") || startsWith(path, L"\\\\.\\"))
        return path;
    return startsWith(path, L"\\\\") ? L"\\\\?\\UNC" + path.substr(1) : L"\\\\?\\" + path;
}

FolderState makeFolder(const std::wstring& path) {
    if (CreateDirectoryW(path.c_str(), nullptr))
        return FolderState::Ready;
    return stateOfExisting(path);
}

bool makeFolderWithParents(const std::wstring& path) {
    // With its separator, because a drive without one is no folder.
    const DWORD attributes = GetFileAttributesW((path + pathSeparator).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES)
        return attributes & FILE_ATTRIBUTE_DIRECTORY;
    if (CreateDirectoryW(path.c_str(), nullptr))
        return true;
    if (GetLastError() != ERROR_PATH_NOT_FOUND)
        return GetLastError() == ERROR_ALREADY_EXISTS;
    const size_t cut = path.find_last_of(pathSeparator);
    return cut != std::wstring::npos && cut > 0 && makeFolderWithParents(path.substr(0, cut)) &&
           CreateDirectoryW(path.c_str(), nullptr);
}

InputFile::~InputFile() {
    if (handle != noHandle)
        CloseHandle(systemHandle(handle));
}

unsigned InputFile::open(const std::wstring& path, uint64_t& length) {
    handle = reinterpret_cast<intptr_t>(CreateFileW(systemPath(path).c_str(), GENERIC_READ,
                                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                    OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size = {};
    if (handle == noHandle || !GetFileSizeEx(systemHandle(handle), &size))
        return GetLastError();
    length = static_cast<uint64_t>(size.QuadPart);
    return 0;
}

unsigned InputFile::readAt(uint64_t position, void* buffer, size_t& size) {
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(position);
    place.OffsetHigh = static_cast<DWORD>(position >> 32);
    DWORD done = 0;
    const BOOL ok = ReadFile(systemHandle(handle), buffer, static_cast<DWORD>(size), &done, &place);
    size = done;
    return ok || GetLastError() == ERROR_HANDLE_EOF ? 0 : GetLastError();
}

unsigned OutputFile::open(const std::wstring& path) {
    handle = reinterpret_cast<intptr_t>(
        CreateFileW(path.c_str(), GENERIC_WRITE | FILE_READ_ATTRIBUTES, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    unsigned failure = GetLastError();
    if (handle == noHandle)
        return failure;
    if (failure != ERROR_ALREADY_EXISTS)
        return 0;
    failure = emptyExisting(systemHandle(handle));
    if (failure)
        close();
    return failure;
}

unsigned OutputFile::write(const void* data, size_t size) {
    constexpr size_t largestWrite = 16 << 20; // servers refuse much larger ones
    auto next = static_cast<const uint8_t*>(data);
    while (size > 0) {
        DWORD done = 0;
        if (!WriteFile(systemHandle(handle), next, static_cast<DWORD>(std::min(size, largestWrite)), &done,
                       nullptr))
            return GetLastError();
        if (done == 0)
            return ERROR_WRITE_FAULT;
        next += done;
        size -= done;
    }
    return 0;
}

void OutputFile::close() {
    if (handle != noHandle)
        CloseHandle(systemHandle(handle));
    handle = noHandle;
}

} // namespace archive
