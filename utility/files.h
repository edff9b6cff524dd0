#pragma once

#include <cstdint>
#include <string>

// File operations: each wraps one system call and gives a bool, true for success. What
// changes the disk logs its failure with the system's last error; questions and opening
// leave that to the caller. No state; any thread. A handle object belongs to one thread
// at a time. Paths are wide unless said otherwise.

namespace utility::ufile {

bool isExist(const std::wstring& path);

// False, with size untouched, when the file cannot be opened or measured.
bool getFileSize(const std::wstring& path, uint64_t& size);
bool getFileSizeA(const std::string& path, uint64_t& size); // system code page

// Of what a download has got so far; 0 without a file. A worker that was ended by force
// leaves its handle open for writing, and the file then cannot be opened to be measured:
// this asks the folder instead.
uint64_t sizeOfPartial(const std::wstring& path);
uint64_t sizeOfPartial(const std::string& path); // system code page

// Bytes that this user may still write to the disk of an existing folder; the largest
// number when that cannot be told.
uint64_t freeSpace(const std::wstring& folder);

// The folder part with its trailing separator; the last component goes whether or not
// the path ends in a separator. Empty when there is no folder part.
std::wstring getParentDir(const std::wstring& path);

std::wstring getModuleDir();  // of the running program, ends in a backslash
std::wstring getAppDataDir(); // roaming, no trailing backslash; empty on failure

bool makeDir(const std::wstring& path); // with all missing parents; existing is success

inline constexpr unsigned MoveReplaceAndCopy = 3; // replace an existing target, cross volumes
bool moveFile(const std::wstring& source, const std::wstring& target, unsigned flags);
bool copyFile(const std::wstring& source, const std::wstring& target, bool failIfExists);
bool removeFile(const std::wstring& path);

// Removes a folder with all that is in it; what cannot be removed is logged and passed
// over, and the result is then false. A link to a folder is removed, not followed.
bool removeDir(const std::wstring& path);

// One open file for reading and writing, shared with others for both. The user closes
// it; it does not close itself.
class FileHandle {
public:
    FileHandle() = default;
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    bool open(const std::wstring& path, bool createIfMissing);
    bool openA(const std::string& path, bool createIfMissing); // system code page
    bool create(const std::wstring& path);                     // empties an existing file
    bool write(const void* data, uint32_t length);             // true only if all was written
    bool seekToEnd();
    bool seekTo(uint64_t offset);
    uint64_t size() const; // 0 when it cannot be measured
    void close();          // repeatable

private:
    void* handle = reinterpret_cast<void*>(-1);
};

// A read-only view of a whole file of less than 4 GiB. An empty file is open with no
// view.
class MappedFile {
public:
    MappedFile() = default;
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile() { close(); }

    bool open(const std::wstring& path);
    void close(); // repeatable
    const void* data() const { return view; }
    uint32_t getSize() const { return size; }

private:
    void* file = reinterpret_cast<void*>(-1);
    void* mapping = nullptr;
    const void* view = nullptr;
    uint32_t size = 0;
};

} // namespace utility::ufile
