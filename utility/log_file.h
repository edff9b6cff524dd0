#pragma once

#include <cstdio>
#include <memory>
#include <string>

// The file below the LogWriter, a text stream: a line that ends in CR LF in memory ends
// in CR CR LF on disk. Shared with other processes for reading and writing. Cuts itself
// back to its last TailSize bytes when it reaches SizeLimit. Failures are silent, since
// there is nowhere to tell them: the text is then lost.
//
// One thread at a time.

namespace common {

class LogFile {
public:
    static constexpr long long SizeLimit = 50 << 20; // bytes
    static constexpr size_t TailSize = 2 << 20;

    // Creates a missing file, appends to an existing one. A file in the old format,
    // UTF-16 with its mark, is emptied: UTF-8 lines behind it could not be read.
    explicit LogFile(const std::wstring& path);

    void append(const std::string& text);

private:
    struct Closer {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };
    using Stream = std::unique_ptr<std::FILE, Closer>;

    Stream open(const wchar_t* mode) const;
    bool isOldFormat() const;
    std::string readTail() const;
    void rotate();

    std::wstring path;
    Stream stream;
};

} // namespace common
