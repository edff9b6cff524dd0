#pragma once

#include "archive/archive_sink.h"
#include "archive/extract.h"

#include <string>

namespace archive {

// Collects each entry and hands it to a function. Folders and entries without data are
// passed over.
class MemorySink final : public ArchiveSink {
public:
    explicit MemorySink(ExtractFileHandler handler) : handler(handler) {}

    size_t write(uint8_t* data, size_t length) override;

private:
    bool startNextEntry(); // false past the last entry, or with error set
    bool finishEntry();    // false when the CRC is wrong

    ExtractFileHandler handler;
    std::string content;
};

} // namespace archive
