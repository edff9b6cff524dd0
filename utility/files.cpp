#include "utility/files.h"

#include "utility/encoding.h"
#include "utility/handles.h"
#include "utility/log.h"

#include <shlobj.h>
#include <shlwapi.h>

namespace utility::ufile {

namespace {

bool measure(const FileOwner& file, uint64_t& size) {
    LARGE_INTEGER measured;
    if (!file || !GetFileSizeEx(file.get(), &measured))
        return false;
    size = static_cast<uint64_t>(measured.QuadPart);
    return true;
}

} // namespace

bool isExist(const std::wstring& path) {
    return PathFileExistsW(path.c_str());
}

bool getFileSize(const std::wstring& path, uint64_t& size) {
    return measure(FileOwner(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr)),
                   size);
}

uint64_t freeSpace(const std::wstring& folder) {
    ULARGE_INTEGER available;
    return GetDiskFreeSpaceExW(folder.c_str(), &available, nullptr, nullptr) ? available.QuadPart
                                                                             : UINT64_MAX;
}

bool getFileSizeA(const std::string& path, uint64_t& size) {
    return measure(FileOwner(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr)),
                   size);
}

static uint64_t sizeInFolder(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data))
        return 0;
    return (static_cast<uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

uint64_t sizeOfPartial(const std::wstring& path) {
    uint64_t size = 0;
    return getFileSize(path, size) ? size : sizeInFolder(path);
}

uint64_t sizeOfPartial(const std::string& path) {
    uint64_t size = 0;
    return getFileSizeA(path, size) ? size : sizeInFolder(ansiToWide(path));
}

std::wstring getParentDir(const std::wstring& path) {
    if (path.size() <= 1)
        return {};
    const bool closed = path.back() == L'\\' || path.back() == L'/';
    const std::wstring name = closed ? path.substr(0, path.size() - 1) : path;
    size_t separator = name.rfind(L'\\');
    if (separator == name.npos)
        separator = name.rfind(L'/');
    return separator == name.npos ? std::wstring() : name.substr(0, separator + 1);
}

std::wstring getModuleDir() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    return getParentDir(std::wstring(path, length));
}

std::wstring getAppDataDir() {
    wchar_t path[MAX_PATH];
    const HRESULT result = SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path);
    if (result == S_OK)
        return path;
    common::log("utility::ufile::getAppDataDir", __LINE__, L"get folder failed! error = %d.", result);
    return {};
}

bool makeDir(const std::wstring& path) {
    const int result = SHCreateDirectory(nullptr, path.c_str());
    if (result == ERROR_SUCCESS || result == ERROR_ALREADY_EXISTS)
        return true;
    common::log("utility::ufile::makeDir", __LINE__, L"make dir failed! error = %d.", result);
    return false;
}

bool moveFile(const std::wstring& source, const std::wstring& target, unsigned flags) {
    if (MoveFileExW(source.c_str(), target.c_str(), flags))
        return true;
    common::log("utility::ufile::moveFile", __LINE__,
                L"move file from [ %s ] to [ %s ] flag = %d failed! error = %d.", source.c_str(),
                target.c_str(), flags, GetLastError());
    return false;
}

bool copyFile(const std::wstring& source, const std::wstring& target, bool failIfExists) {
    if (CopyFileW(source.c_str(), target.c_str(), failIfExists))
        return true;
    common::log("utility::ufile::copyFile", __LINE__,
                L"copy file from [ %s ] to [ %s ] flag = %d failed! error = %d.", source.c_str(),
                target.c_str(), failIfExists, GetLastError());
    return false;
}

bool removeFile(const std::wstring& path) {
    if (DeleteFileW(path.c_str()))
        return true;
    common::log("utility::ufile::removeFile", __LINE__, L"removeFile file from [ %s ] error = %d.",
                path.c_str(), GetLastError());
    return false;
}

} // namespace utility::ufile
