#pragma once

#include "archive/decoder_memory.h"

#include <7z.h>

#include <string>

namespace archive {

// Owner of an archive's tables of blocks and entries.
class Database {
public:
    explicit Database(DecoderMemory& memory) : memory(memory) { SzArEx_Init(&tables); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database() { SzArEx_Free(&tables, memory.calls()); }

    SRes open(ILookInStreamPtr input) { return SzArEx_Open(&tables, input, memory.calls(), memory.calls()); }
    const CSzArEx& get() const { return tables; }

private:
    DecoderMemory& memory;
    CSzArEx tables;
};

// The entry's name as stored, UTF-16 (full characters where wchar_t has 32 bits). Empty
// where the archive stores no names.
std::wstring entryName(const CSzArEx& archive, uint32_t index);

inline bool hasEntryCrc(const CSzArEx& archive, uint32_t index) {
    return SzBitWithVals_Check(&archive.CRCs, index);
}

} // namespace archive
