#include "archive/decoder_memory.h"
#include "archive/extract.h"
#include "archive/extraction.h"
#include "archive/input_stream.h"
#include "archive/memory_sink.h"
#include "tests/archive/folders.h"
#include "tests/archive/recorder.h"
#include "tests/support/log_watch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

// Sizes, positions and memory at their limits, and input that fails.

using namespace archive_test;

namespace {

constexpr uint64_t Gap = uint64_t(5) << 30;
constexpr size_t StartHeader = 32;

std::string content;

void keep(const wchar_t*, const void* bytes, uint32_t size) {
    content.append(static_cast<const char*>(bytes), size);
}

// Gives a few bytes at a time, as it may, and none from some position on.
class AwkwardInput final : public archive::InputStream {
public:
    explicit AwkwardInput(std::string bytes, uint64_t failsAt = UINT64_MAX)
        : bytes(std::move(bytes)), failsAt(failsAt) {}

private:
    uint64_t size() const override { return bytes.size(); }
    bool readAt(uint64_t position, void* buffer, size_t& size) override {
        if (position >= failsAt)
            return false;
        size = static_cast<size_t>(std::min<uint64_t>({size, 7, failsAt - position}));
        bytes.copy(static_cast<char*>(buffer), size, static_cast<size_t>(position));
        return true;
    }

    const std::string bytes;
    const uint64_t failsAt;
};

int unpack(const AwkwardInput& input, size_t budget = archive::DecoderMemory::defaultBudget) {
    archive::MemorySink sink(keep);
    content.clear();
    return archive::extract(input, sink, budget);
}

} // namespace

TEST(Limits, anArchiveMayReachBeyondFourGigabytes) {
    const std::string bytes = readFile(archives("limits") / "far.7z");
    TempFolder temp;
    {
        std::ofstream file(temp / "far.7z", std::ios::binary);
        file.write(bytes.data(), StartHeader);
        file.seekp(static_cast<std::streamoff>(StartHeader + Gap));
        file.write(bytes.data() + StartHeader, static_cast<std::streamsize>(bytes.size() - StartHeader));
        ASSERT_TRUE(file.flush());
    }
    Recorder recorder;
    EXPECT_EQ(archive::extractArchive((temp / "far.7z").wstring(), (temp / "out").wstring(), &recorder),
              archive::Ok);
    EXPECT_EQ(readTree(temp / "out"), (Tree{{"good.txt", "good content"}, {"more.txt", "more"}}));
}

TEST(Limits, memoryTakesEntriesUpToAGigabyte) {
    for (const auto& [name, code] :
         {std::pair("claim_0.7z", archive::DataError), {"claim_1.7z", archive::OutOfMemory}}) {
        const std::string bytes = readFile(archives("limits") / name);
        EXPECT_EQ(archive::extractArchiveFromMemory(bytes.data(), static_cast<uint32_t>(bytes.size()), keep),
                  code);
        EXPECT_EQ(test::logged(L"huge.bin is too large: 1073741825 bytes"), code == archive::OutOfMemory);
    }
}

TEST(Limits, inputMayComeInAnyStepsAndFailAnywhere) {
    for (const char* name : {"between.7z", "x86_short.7z"}) {
        const std::string whole = readFile(archives("trees") / name);
        ASSERT_EQ(unpack(AwkwardInput(whole)), archive::Ok) << name;
        ASSERT_NE(content, "");
        for (size_t at = 0; at < whole.size(); ++at)
            EXPECT_EQ(unpack(AwkwardInput(whole, at)), archive::ReadError) << name << " at " << at;
    }
}

TEST(Limits, memoryIsEitherEnoughOrOut) {
    constexpr size_t dictionary = 1 << 16; // of this archive
    const std::string near = readFile(archives("trees") / "without_crc.7z");
    size_t tooLittle = 0, enough = 64 * dictionary;
    ASSERT_EQ(unpack(AwkwardInput(near), enough), archive::Ok);
    const std::string expected = content;
    while (enough - tooLittle > 1) {
        const size_t budget = (tooLittle + enough) / 2;
        const int result = unpack(AwkwardInput(near), budget);
        EXPECT_TRUE(result == archive::Ok || result == archive::OutOfMemory) << budget << ": " << result;
        EXPECT_EQ(content == expected, result == archive::Ok) << budget;
        (result == archive::Ok ? enough : tooLittle) = budget;
    }
    EXPECT_GT(enough, dictionary);
    for (size_t budget = 0; budget < enough; budget += 499)
        EXPECT_EQ(unpack(AwkwardInput(near), budget), archive::OutOfMemory) << budget;
}
