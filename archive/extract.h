#pragma once

#include <cstdint>
#include <string>

// Unpacking of 7z archives in one sequential pass: a file into a folder, or bytes in
// memory to a callback. Blocks are streamed, so that the memory needed is the decoder's
// dictionary and a few buffers, whatever the size of the archive.
//
// Both calls run to the end on the calling thread, and so do all callbacks. Nothing
// throws, nothing is shared between calls. What was written before a failure stays.
//
// An archive is hostile until read: a name that would leave the destination, or that
// Windows would fold into another name, ends the extraction with OpenFailed before
// anything is written for it.

namespace archive {

enum Result : int {
    Ok = 0,
    Unknown = 1000,
    DataError = 1001,
    OutOfMemory = 1002,
    Unsupported = 1003,
    BadParameter = 1004,
    CrcError = 1005,  // of a block, of the header, or of one entry
    InputEnd = 1006,  // also when the archive file cannot be opened
    OutputEnd = 1007, // the sink stopped taking data
    ReadError = 1008,
    WriteError = 1009,
    ProgressStop = 1010,
    Inconsistent = 1011,
    ThreadError = 1012,
    BadArchive = 1013,
    NoArchive = 1014,
    OpenFailed = 1015, // an entry's output file could not be opened, or its name is refused
    WriteFailed = 1016,
    Cancelled = 1017,
};

// "ok", "crc error" and so on, for tools and tests.
const char* resultName(int result);

class SzExtractCallback {
public:
    // Asked before each piece of work, at most 256 KiB of output apart; false cancels.
    virtual bool isContinue() = 0;

    // After each piece written. Bytes and counts are those of the whole extraction.
    virtual void onProgress(const wchar_t* fileName, uint64_t fileIndex, uint64_t fileCount,
                            uint64_t doneBytes, uint64_t totalBytes) = 0;

    // Once at the end, on success too, with the name of the entry reached last.
    virtual void onResult(int result, const wchar_t* fileName) = 0;

protected:
    ~SzExtractCallback() = default;
};

// Receives one whole entry; the bytes are valid during the call only.
using ExtractFileHandler = void (*)(const wchar_t* fileName, const void* bytes, uint32_t size);

// callback may be null. Existing files are replaced; folders are made as needed.
int extractArchive(const std::wstring& archivePath, const std::wstring& directory,
                   SzExtractCallback* callback);

// Entries without data and folders are passed over. The bytes stay the caller's.
int extractArchiveFromMemory(const void* bytes, uint32_t size, ExtractFileHandler handler);

} // namespace archive
