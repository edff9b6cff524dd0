#include "archive/file_system.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace archive {

namespace {

// Half of a surrogate pair, which a hostile name may hold, becomes three bytes as well,
// so that different names stay different.
std::string narrow(const std::wstring& text) {
    std::string bytes;
    auto add = [&](uint32_t value) { bytes += static_cast<char>(value); };
    for (wchar_t unit : text) {
        const auto c = static_cast<uint32_t>(unit);
        if (c < 0x80) {
            add(c);
        } else if (c < 0x800) {
            add(0xC0 | c >> 6), add(0x80 | (c & 63));
        } else if (c < 0x10000) {
            add(0xE0 | c >> 12), add(0x80 | (c >> 6 & 63)), add(0x80 | (c & 63));
        } else {
            add(0xF0 | c >> 18), add(0x80 | (c >> 12 & 63)), add(0x80 | (c >> 6 & 63)), add(0x80 | (c & 63));
        }
    }
    return bytes;
}

unsigned lastError() {
    return static_cast<unsigned>(errno);
}

} // namespace

std::wstring systemPath(const std::wstring& folder) {
    std::wstring path = folder;
    while (!path.empty() && path.back() == pathSeparator)
        path.pop_back();
    return path;
}

FolderState makeFolder(const std::wstring& path) {
    const std::string name = narrow(path);
    if (mkdir(name.c_str(), 0777) == 0)
        return FolderState::Ready;
    struct stat info = {};
    if (lstat(name.c_str(), &info) != 0)
        return FolderState::Failed;
    if (S_ISLNK(info.st_mode))
        return FolderState::Link;
    return S_ISDIR(info.st_mode) ? FolderState::Ready : FolderState::Failed;
}

bool makeFolderWithParents(const std::wstring& path) {
    std::error_code failure;
    std::filesystem::create_directories(narrow(path), failure);
    return !failure;
}

InputFile::~InputFile() {
    if (handle != -1)
        ::close(static_cast<int>(handle));
}

unsigned InputFile::open(const std::wstring& path, uint64_t& length) {
    handle = ::open(narrow(path).c_str(), O_RDONLY | O_CLOEXEC);
    struct stat info = {};
    if (handle == -1 || fstat(static_cast<int>(handle), &info) != 0)
        return lastError();
    length = static_cast<uint64_t>(info.st_size);
    return 0;
}

unsigned InputFile::readAt(uint64_t position, void* buffer, size_t& size) {
    const ssize_t done = pread(static_cast<int>(handle), buffer, size, static_cast<off_t>(position));
    size = done < 0 ? 0 : static_cast<size_t>(done);
    return done < 0 ? lastError() : 0;
}

unsigned OutputFile::open(const std::wstring& path) {
    handle = ::open(narrow(path).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0666);
    return handle == -1 ? lastError() : 0;
}

unsigned OutputFile::write(const void* data, size_t size) {
    auto next = static_cast<const uint8_t*>(data);
    while (size > 0) {
        const ssize_t done = ::write(static_cast<int>(handle), next, size);
        if (done < 0)
            return lastError();
        next += done;
        size -= static_cast<size_t>(done);
    }
    return 0;
}

void OutputFile::close() {
    if (handle != -1)
        ::close(static_cast<int>(handle));
    handle = -1;
}

} // namespace archive
