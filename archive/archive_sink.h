#pragma once

#include "archive/byte_sink.h"
#include "archive/entry_name.h"

#include <7z.h>

#include <cstdint>
#include <string>

namespace archive {

// Walks over the archive's entries as their bytes arrive: the output of all blocks, one
// after the other, is the content of all entries with data in their order. Once error is
// set, nothing more is accepted.
class ArchiveSink : public ByteSink {
public:
    const CSzArEx* archive = nullptr; // set before the first write
    int error = 0;                    // first result code of the sink's own
    wchar_t fileName[nameUnits] = {}; // of the current entry as stored, cut if it is too long
    uint32_t fileIndex = 0;           // entry that the walk stands at
    uint64_t doneBytes = 0;
    uint64_t fileRemaining = 0; // bytes of the current entry still to come

protected:
    ~ArchiveSink() = default;

    bool isPastLastEntry() const { return fileIndex >= archive->NumFiles; }
    std::wstring takeName();    // whole, and into fileName
    void advance(size_t bytes); // moves the counters
    void fail(int result) { error = result; }
};

} // namespace archive
