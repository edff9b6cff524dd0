#pragma once

#include "archive/archive_sink.h"
#include "archive/extract.h"
#include "archive/file_system.h"
#include "archive/target_folder.h"

namespace archive {

// Writes the entries as files below a folder. Judges each name before anything is made
// for it, checks each entry's CRC, and asks the callback before each piece.
class FileSink final : public ArchiveSink {
public:
    FileSink(const std::wstring& directory, SzExtractCallback* callback)
        : callback(callback), folder(directory) {}

    size_t write(uint8_t* data, size_t length) override;

private:
    bool openNextEntry(); // false past the last entry, or with error set
    bool makeEntry(const std::wstring& path, EntryKind kind);
    bool openFile(const std::wstring& path);
    bool writePiece(const uint8_t* data, size_t length);
    bool finishEntry(); // false when the CRC is wrong
    bool refuse(const wchar_t* reason);

    SzExtractCallback* callback; // may be null
    TargetFolder folder;
    OutputFile file;
    uint32_t crc = 0;
    uint32_t expectedCrc = 0; // 0 when the entry has none
};

} // namespace archive
