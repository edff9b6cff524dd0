#pragma once

#include "archive/file_system.h"

#include <7zTypes.h>

#include <cstdint>

namespace archive {

// What an archive is read from: bytes at positions. A position past the end reads as
// nothing, which the decoder takes for an early end of the input. One thread.
class InputStream {
public:
    InputStream();
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    // For the decoder's look-ahead stream; valid as long as this object.
    ISeekInStreamPtr calls() const { return &table.calls; }

protected:
    ~InputStream() = default;

    virtual uint64_t size() const = 0;
    // size comes back as what was read, at least one byte before the end. False when
    // reading failed.
    virtual bool readAt(uint64_t position, void* buffer, size_t& size) = 0;

private:
    struct Table {
        ISeekInStream calls; // first, so that the decoder's pointer leads back here
        InputStream* owner;
    };

    static SRes onRead(ISeekInStreamPtr calls, void* buffer, size_t* size);
    static SRes onSeek(ISeekInStreamPtr calls, Int64* position, ESzSeek origin);
    SRes read(void* buffer, size_t& size);
    SRes seek(Int64& position, ESzSeek origin);

    Table table;
    uint64_t position = 0;
};

// The bytes stay the caller's.
class MemoryInput final : public InputStream {
public:
    MemoryInput(const void* bytes, uint32_t count);

private:
    uint64_t size() const override { return count; }
    bool readAt(uint64_t position, void* buffer, size_t& size) override;

    const uint8_t* bytes;
    uint32_t count;
};

class FileInput final : public InputStream {
public:
    bool open(const std::wstring& path); // logs a failure

private:
    uint64_t size() const override { return length; }
    bool readAt(uint64_t position, void* buffer, size_t& size) override;

    InputFile file;
    uint64_t length = 0;
};

} // namespace archive
