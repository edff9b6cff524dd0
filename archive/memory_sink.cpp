#include "archive/memory_sink.h"

#include "archive/database.h"
#include "archive/decoder_memory.h"
#include "utility/log.h"

#include <7zCrc.h>

#include <algorithm>

namespace archive {

// An announced size is believed up to here; more room is made as the bytes arrive.
static constexpr uint64_t believedSize = 16 << 20;

size_t MemorySink::write(uint8_t* data, size_t length) {
    size_t taken = 0;
    while (error == Ok && taken < length) {
        if (fileRemaining == 0 && !startNextEntry())
            break;
        const auto piece = static_cast<size_t>(std::min<uint64_t>(length - taken, fileRemaining));
        content.append(reinterpret_cast<const char*>(data + taken), piece);
        advance(piece);
        taken += piece;
        if (fileRemaining == 0 && (!finishEntry() || isPastLastEntry()))
            break;
    }
    return taken;
}

bool MemorySink::startNextEntry() {
    while (!isPastLastEntry() && SzArEx_GetFileSize(archive, fileIndex) == 0)
        ++fileIndex;
    if (isPastLastEntry())
        return false;
    if (takeName().size() >= nameUnits) {
        common::log("MemorySink::startNextEntry", __LINE__, L"entry %u %s: %s", fileIndex, fileName,
                    ruleText(NameRule::TooLong));
        fail(OpenFailed);
        return false;
    }
    fileRemaining = SzArEx_GetFileSize(archive, fileIndex);
    if (fileRemaining > DecoderMemory::defaultBudget) {
        common::log("MemorySink::startNextEntry", __LINE__, L"%s is too large: %llu bytes", fileName,
                    static_cast<unsigned long long>(fileRemaining));
        fail(OutOfMemory);
        return false;
    }
    content.clear();
    content.reserve(static_cast<size_t>(std::min(fileRemaining, believedSize)));
    return true;
}

bool MemorySink::finishEntry() {
    const bool hasCrc = hasEntryCrc(*archive, fileIndex);
    if (hasCrc && CrcCalc(content.data(), content.size()) != archive->CRCs.Vals[fileIndex]) {
        common::log("MemorySink::finishEntry", __LINE__, L"%s has a wrong crc", fileName);
        fail(CrcError);
        return false;
    }
    handler(fileName, content.data(), static_cast<uint32_t>(content.size()));
    ++fileIndex;
    return true;
}

} // namespace archive
