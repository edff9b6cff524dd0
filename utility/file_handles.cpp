#include "utility/files.h"
#include "utility/log.h"
#include "utility/windows.h"

namespace utility::ufile {

namespace {

constexpr DWORD ReadWrite = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD ShareReadWrite = FILE_SHARE_READ | FILE_SHARE_WRITE;

} // namespace

bool FileHandle::open(const std::wstring& path, bool createIfMissing) {
    close();
    handle = CreateFileW(path.c_str(), ReadWrite, ShareReadWrite, nullptr,
                         createIfMissing ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return handle != INVALID_HANDLE_VALUE;
}

bool FileHandle::openA(const std::string& path, bool createIfMissing) {
    close();
    handle = CreateFileA(path.c_str(), ReadWrite, ShareReadWrite, nullptr,
                         createIfMissing ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return handle != INVALID_HANDLE_VALUE;
}

bool FileHandle::create(const std::wstring& path) {
    close();
    handle = CreateFileW(path.c_str(), ReadWrite, ShareReadWrite, nullptr, CREATE_ALWAYS,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
    return handle != INVALID_HANDLE_VALUE;
}

bool FileHandle::write(const void* data, uint32_t length) {
    DWORD written = 0;
    if (WriteFile(handle, data, length, &written, nullptr) && written == length)
        return true;
    common::log("utility::ufile::FileHandle::write", __LINE__, L"write %d of %d bytes, error = %d.", written,
                length, GetLastError());
    return false;
}

bool FileHandle::seekToEnd() {
    LARGE_INTEGER end = {};
    return SetFilePointerEx(handle, end, nullptr, FILE_END);
}

bool FileHandle::seekTo(uint64_t offset) {
    LARGE_INTEGER target = {};
    target.QuadPart = static_cast<LONGLONG>(offset);
    return SetFilePointerEx(handle, target, nullptr, FILE_BEGIN);
}

uint64_t FileHandle::size() const {
    LARGE_INTEGER size = {};
    return GetFileSizeEx(handle, &size) ? static_cast<uint64_t>(size.QuadPart) : 0;
}

void FileHandle::close() {
    if (handle != INVALID_HANDLE_VALUE)
        CloseHandle(handle);
    handle = INVALID_HANDLE_VALUE;
}

bool MappedFile::open(const std::wstring& path) {
    close();
    file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    LARGE_INTEGER length;
    const bool measured = GetFileSizeEx(file, &length);
    if (measured && length.QuadPart == 0)
        return true; // an empty file cannot be mapped
    if (measured && length.HighPart == 0)
        mapping = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (mapping)
        view = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    if (!view) {
        close();
        return false;
    }
    size = length.LowPart;
    return true;
}

void MappedFile::close() {
    size = 0;
    if (view)
        UnmapViewOfFile(view);
    if (mapping)
        CloseHandle(mapping);
    if (file != INVALID_HANDLE_VALUE)
        CloseHandle(file);
    view = nullptr;
    mapping = nullptr;
    file = INVALID_HANDLE_VALUE;
}

} // namespace utility::ufile
