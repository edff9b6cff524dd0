#include "archive/extract.h"
#include "tests/archive/folders.h"
#include "tests/archive/recorder.h"

#include <gtest/gtest.h>

// Each archive of the group "trees" beside what the reference tool makes of it.

namespace fs = std::filesystem;
using namespace archive_test;

namespace {

Tree collected;

void collect(const wchar_t* name, const void* bytes, uint32_t size) {
    collected[utf8(name)].assign(static_cast<const char*>(bytes), size);
}

Tree entriesWithData(Tree tree) {
    std::erase_if(tree, [](const auto& entry) { return entry.second.empty(); });
    return tree;
}

} // namespace

class Trees : public testing::TestWithParam<std::pair<const std::string, fs::path>> {
protected:
    fs::path archivePath = GetParam().second;
    Tree expected = readTree(archives("trees") / GetParam().first);
    TempFolder temp;
};

TEST_P(Trees, filesAreThoseOfTheReferenceTool) {
    Recorder recorder;
    const int result =
        archive::extractArchive(archivePath.wstring(), (temp / "new/folder").wstring(), &recorder);
    EXPECT_EQ(result, archive::Ok);
    EXPECT_EQ(recorder.results, std::vector<int>{archive::Ok});
    const Tree made = readTree(temp / "new/folder");
    EXPECT_TRUE(made == expected) << made.size() << " entries, not " << expected.size();
}

TEST_P(Trees, memoryGivesEachEntryWithData) {
    const std::string bytes = readFile(archivePath);
    collected.clear();
    const int result =
        archive::extractArchiveFromMemory(bytes.data(), static_cast<uint32_t>(bytes.size()), collect);
    EXPECT_EQ(result, archive::Ok);
    EXPECT_TRUE(collected == entriesWithData(expected)) << collected.size() << " entries";
}

TEST_P(Trees, progressAddsUpAndNamesTheEntries) {
    Recorder recorder;
    archive::extractArchive(archivePath.wstring(), (temp / "out").wstring(), &recorder);
    const Tree made = readTree(temp / "out");
    uint64_t done = 0;
    for (const auto& step : recorder.steps) {
        EXPECT_GT(step.done, done);
        EXPECT_LT(step.index, step.count);
        EXPECT_EQ(made.count(utf8(step.name)), 1u);
        done = step.done;
    }
    EXPECT_EQ(done, recorder.steps.empty() ? 0 : recorder.steps.back().total);
}

INSTANTIATE_TEST_SUITE_P(All, Trees, testing::ValuesIn(archivesOf("trees")),
                         [](const auto& info) { return info.param.first; });
