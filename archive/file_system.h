#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// The few calls that unpacking makes on the file system, one twin for each platform.
// Results named failure are 0 or the system's error number. Nothing is logged here. A
// file object belongs to one thread at a time.

namespace archive {

#ifdef _WIN32
inline constexpr wchar_t pathSeparator = L'\\';
#else
inline constexpr wchar_t pathSeparator = L'/';
#endif

// The folder as an absolute path without trailing separator, in the form to which names
// can be added as they stand and whose length the system does not limit.
std::wstring systemPath(const std::wstring& folder);

enum class FolderState {
    Ready,  // made, or a folder that stood there
    Link,   // a link or junction stands there, whatever it leads to
    Failed, // also when something else stands there
};
FolderState makeFolder(const std::wstring& path); // the parent must exist
bool makeFolderWithParents(const std::wstring& path);

class InputFile {
public:
    InputFile() = default;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    unsigned open(const std::wstring& path, uint64_t& length);
    // size comes back as what was read, which may be less than wanted.
    unsigned readAt(uint64_t position, void* buffer, size_t& size);

private:
    intptr_t handle = -1;
};

class OutputFile {
public:
    OutputFile() = default;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile() { close(); }

    // Makes the file, or empties the one that stands there. A link is not followed and
    // not replaced: it fails.
    unsigned open(const std::wstring& path);
    unsigned write(const void* data, size_t size); // all of it, or a failure
    void close();                                  // repeatable
    bool isOpen() const { return handle != -1; }

private:
    intptr_t handle = -1;
};

} // namespace archive
