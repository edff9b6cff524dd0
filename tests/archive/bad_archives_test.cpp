#include "archive/extract.h"
#include "tests/archive/folders.h"
#include "tests/archive/recorder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;
using namespace archive_test;

namespace {

uint64_t handled;

void countBytes(const wchar_t*, const void*, uint32_t size) {
    handled += size;
}

int extractMemory(const std::string& bytes) {
    return archive::extractArchiveFromMemory(bytes.data(), static_cast<uint32_t>(bytes.size()), countBytes);
}

} // namespace

class Refused : public testing::TestWithParam<std::pair<const std::string, fs::path>> {};

TEST_P(Refused, nothingIsMadeForABadName) {
    TempFolder temp;
    Recorder recorder;
    archive::extractArchive(GetParam().second.wstring(), (temp / "deep/er/target").wstring(), &recorder);
    EXPECT_EQ(recorder.results, std::vector<int>{archive::OpenFailed});
    Tree expected = {{"deep/", ""}, {"deep/er/", ""}, {"deep/er/target/", ""}};
    expected["deep/er/target/good.txt"] = "good content";
    EXPECT_EQ(readTree(temp / ""), expected);
}

INSTANTIATE_TEST_SUITE_P(All, Refused, testing::ValuesIn(archivesOf("refused")),
                         [](const auto& info) { return info.param.first; });

class Faults : public testing::TestWithParam<std::pair<const std::string, fs::path>> {
protected:
    int expected = std::stoi(GetParam().first);
};

TEST_P(Faults, fileAndMemoryGiveTheCode) {
    TempFolder temp;
    Recorder recorder;
    const std::wstring target = (temp / "target").wstring();
    EXPECT_EQ(archive::extractArchive(GetParam().second.wstring(), target, &recorder), expected);
    EXPECT_EQ(recorder.results, std::vector<int>{expected});
    EXPECT_EQ(extractMemory(readFile(GetParam().second)), expected);
}

INSTANTIATE_TEST_SUITE_P(All, Faults, testing::ValuesIn(archivesOf("faults")),
                         [](const auto& info) { return "code" + info.param.first; });

TEST(BadArchives, aWrongEntryLeavesTheOnesBeforeItAndItself) {
    TempFolder temp;
    Recorder recorder;
    archive::extractArchive((archives("faults") / "1005_entry.7z").wstring(), (temp / "").wstring(),
                            &recorder);
    const Tree made = readTree(temp / "");
    EXPECT_EQ(made.size(), 2u);
    EXPECT_EQ(made.count("good.txt"), 1u);
    EXPECT_EQ(made.at("bad.txt"), "Changed");
    EXPECT_EQ(recorder.lastName, L"bad.txt");
}

TEST(BadArchives, everyCutIsAFailure) {
    for (const char* name : {"between.7z", "x86_short.7z", "without_crc.7z"}) {
        const std::string whole = readFile(archives("trees") / name);
        ASSERT_EQ(extractMemory(whole), archive::Ok);
        for (size_t length = 0; length < whole.size(); ++length)
            EXPECT_NE(extractMemory(whole.substr(0, length)), archive::Ok) << name << " cut to " << length;
    }
}

TEST(BadArchives, aFlippedByteChangesNoContentUnseen) {
    const std::string whole = readFile(archives("trees") / "between.7z");
    handled = 0;
    extractMemory(whole);
    const uint64_t content = handled;
    for (size_t at = 0; at < whole.size(); ++at) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string flipped = whole;
            flipped[at] = static_cast<char>(flipped[at] ^ 1 << bit);
            handled = 0;
            // The two version bytes are all that no CRC guards.
            if (extractMemory(flipped) == archive::Ok) {
                EXPECT_TRUE(at == 6 || at == 7) << "byte " << at;
                EXPECT_EQ(handled, content);
            }
        }
    }
}
