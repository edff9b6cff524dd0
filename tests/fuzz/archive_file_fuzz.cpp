#include "archive/extract.h"
#include "archive/extraction.h"
#include "archive/file_sink.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
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
    void onResult(int, const wchar_t*) override {}

private:
    uint64_t done = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const Sandbox sandbox;
    constexpr size_t budget = 16 << 20; // keeps a run short, whatever the header claims
    fs::create_directories(sandbox.path / "inner");
    Limit limit;
    archive::MemoryInput input(data, static_cast<uint32_t>(size));
    {
        archive::FileSink sink((sandbox.path / "inner/target").wstring(), &limit);
        archive::extract(input, sink, budget);
    }
    fs::remove_all(sandbox.path / "inner/target");
    if (!fs::remove(sandbox.path / "inner") || !fs::is_empty(sandbox.path))
        abort(); // something was written outside
    return 0;
}
