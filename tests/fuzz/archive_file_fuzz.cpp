#include "archive/extract.h"
#include "archive/extraction.h"
#include "archive/file_sink.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

// Any bytes as an archive that is unpacked into a folder: whatever its names are,
// nothing may appear beside the folder.

namespace fs = std::filesystem;

namespace {

struct Sandbox {
    Sandbox() : path(fs::temp_directory_path() / ("vyn-fuzz-" + std::to_string(getpid()))) {}
    ~Sandbox() { fs::remove_all(path); }
    fs::path path;
};

// Stops what would fill the disk.
class Limit final : public archive::SzExtractCallback {
public:
    bool isContinue() override { return done < 1 << 20; }
    void onProgress(const wchar_t*, uint64_t, uint64_t, uint64_t doneBytes, uint64_t) override {
        done = doneBytes;
    }
    void onResult(int code, const wchar_t*) override { result = code; }
    int result = -1;

private:
    uint64_t done = 0;
};

// What unpacks with little memory does so by the way that the program goes, over what is
// there, and in memory.
void unpackFromFile(const fs::path& folder, const uint8_t* data, size_t size) {
    const fs::path archive = folder / "archive";
    std::ofstream(archive, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    Limit limit;
    const int result =
        archive::extractArchive(archive.wstring().c_str(), (folder / "target").wstring().c_str(), &limit);
    fs::remove(archive);
    const int inMemory = archive::extractArchiveFromMemory(data, static_cast<uint32_t>(size),
                                                           [](const wchar_t*, const void*, uint32_t) {});
    if (result != archive::Ok || limit.result != result || inMemory != archive::Ok)
        abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const Sandbox sandbox;
    constexpr size_t budget = 16 << 20; // keeps a run short, whatever the header claims
    fs::create_directories(sandbox.path / "inner");
    Limit limit;
    archive::MemoryInput input(data, static_cast<uint32_t>(size));
    {
        archive::FileSink sink((sandbox.path / "inner/target").wstring(), &limit);
        if (archive::extract(input, sink, budget) == archive::Ok)
            unpackFromFile(sandbox.path / "inner", data, size);
    }
    fs::remove_all(sandbox.path / "inner/target");
    if (!fs::remove(sandbox.path / "inner") || !fs::is_empty(sandbox.path))
        abort(); // something was written outside
    return 0;
}
