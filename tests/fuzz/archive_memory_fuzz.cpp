#include "archive/extract.h"
#include "archive/extraction.h"
#include "archive/memory_sink.h"

#include <cstdint>
#include <cstdlib>

// Any bytes as an archive in memory. The handler reads what it is given. What can be unpacked with
// little memory comes out the same with much.

static uint32_t seen;

static void readAll(const wchar_t* name, const void* bytes, uint32_t size) {
    while (*name)
        seen = seen * 31 + static_cast<uint32_t>(*name++);
    for (uint32_t i = 0; i < size; ++i)
        seen = seen * 31 + static_cast<const uint8_t*>(bytes)[i];
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t budget = 16 << 20; // keeps a run short, whatever the header claims
    archive::MemoryInput input(data, static_cast<uint32_t>(size));
    archive::MemorySink sink(readAll);
    seen = 0;
    const int result = archive::extract(input, sink, budget);
    if (result != archive::Ok && (result < archive::Unknown || result > archive::Cancelled))
        abort();
    const uint32_t expected = seen;
    seen = 0;
    if (result == archive::Ok &&
        (archive::extractArchiveFromMemory(data, static_cast<uint32_t>(size), readAll) != archive::Ok ||
         seen != expected))
        abort();
    return 0;
}
