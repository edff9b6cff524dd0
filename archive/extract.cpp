#include "archive/extract.h"

#include "archive/block_pump.h"
#include "archive/database.h"
#include "archive/extraction.h"
#include "archive/file_sink.h"
#include "archive/input_stream.h"
#include "archive/memory_sink.h"
#include "archive/status.h"
#include "utility/log.h"

#include <7zCrc.h>

#include <exception>
#include <optional>

namespace archive {

namespace {

// The decoder's look-ahead stream with its window.
class LookAhead {
public:
    explicit LookAhead(const InputStream& input) {
        LookToRead2_CreateVTable(&stream, False);
        stream.realStream = input.calls();
        stream.buf = window;
        stream.bufSize = sizeof window;
        LookToRead2_INIT(&stream);
    }

    ILookInStreamPtr calls() const { return &stream.vt; }

private:
    CLookToRead2 stream;
    Byte window[16384];
};

SRes pumpArchive(const InputStream& input, ArchiveSink& sink, size_t memoryBudget) {
    static const bool tablesReady = (CrcGenerateTable(), true);
    (void)tablesReady;
    DecoderMemory memory(memoryBudget);
    LookAhead look(input);
    Database database(memory);
    const SRes opened = database.open(look.calls());
    if (opened != SZ_OK)
        return opened;
    sink.archive = &database.get();
    return BlockPump(database.get(), look.calls(), sink, memory).run();
}

// Runs a step of ours; the library's containers throw when memory is out.
template <class Step>
int guarded(const char* function, Step step) {
    try {
        return step();
    } catch (const std::exception&) {
        common::log(function, __LINE__, L"out of memory");
        return OutOfMemory;
    }
}

} // namespace

int extract(const InputStream& input, ArchiveSink& sink, size_t memoryBudget) {
    const int result =
        guarded("extract", [&] { return resultOfStatus(pumpArchive(input, sink, memoryBudget)); });
    return sink.error != Ok ? sink.error : result;
}

int extractArchive(const std::wstring& archivePath, const std::wstring& directory,
                   SzExtractCallback* callback) {
    std::optional<FileSink> sink;
    const int result = guarded("extractArchive", [&]() -> int {
        sink.emplace(directory, callback);
        FileInput input;
        return input.open(archivePath) ? extract(input, *sink, DecoderMemory::defaultBudget) : InputEnd;
    });
    if (callback)
        callback->onResult(result, sink ? sink->fileName : L"");
    return result;
}

int extractArchiveFromMemory(const void* bytes, uint32_t size, ExtractFileHandler handler) {
    return guarded("extractArchiveFromMemory", [&] {
        MemoryInput input(bytes, size);
        MemorySink sink(handler);
        return extract(input, sink, DecoderMemory::defaultBudget);
    });
}

} // namespace archive
