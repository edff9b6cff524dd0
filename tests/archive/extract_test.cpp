#include "archive/extract.h"
#include "archive/file_system.h"
#include "tests/archive/folders.h"
#include "tests/archive/recorder.h"
#include "tests/support/log_watch.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include "kit/process_counts.h"
#include "utility/handles.h"
#else
#include <csignal>
#include <sys/resource.h>
#endif

// What the disk and the caller do to an extraction.

namespace fs = std::filesystem;
using namespace archive_test;

namespace {

fs::path treeArchive(const char* name) {
    return archives("trees") / name;
}

int extract(const fs::path& archivePath, const fs::path& target, Recorder& recorder) {
    return archive::extractArchive(archivePath.wstring(), target.wstring(), &recorder);
}

// Takes the log: one line, that this file failed with an error of the system.
void expectErrorOf(const std::wstring& name) {
    const auto lines = test::takeLog();
    ASSERT_EQ(lines.size(), 1u);
    const size_t place = lines[0].find(name + L" error ");
    ASSERT_NE(place, std::wstring::npos) << utf8(lines[0]);
    EXPECT_NE(std::stoi(lines[0].substr(place + name.size() + 7)), 0);
}

} // namespace

TEST(Extract, aMissingArchiveIsAnEarlyEndOfInput) {
    TempFolder temp;
    Recorder recorder;
    EXPECT_EQ(extract(temp / "none.7z", temp / "out", recorder), archive::InputEnd);
    expectErrorOf(L"none.7z");
    EXPECT_EQ(recorder.results, std::vector<int>{archive::InputEnd});
    EXPECT_EQ(recorder.lastName, L"");
    EXPECT_TRUE(readTree(temp / "").empty());
}

TEST(Extract, cancelBeforeTheFirstByteMakesNothing) {
    TempFolder temp;
    Recorder recorder;
    recorder.stopAfter = 0;
    EXPECT_EQ(extract(treeArchive("lzma2.7z"), temp / "out", recorder), archive::Cancelled);
    EXPECT_EQ(recorder.results, std::vector<int>{archive::Cancelled});
    EXPECT_TRUE(readTree(temp / "").empty());
}

TEST(Extract, cancelStopsAPieceLater) {
    for (const char* name : {"copy.7z", "x86.7z", "lzma.7z"}) {
        TempFolder temp;
        Recorder recorder;
        recorder.stopAfter = 500000;
        EXPECT_EQ(extract(treeArchive(name), temp / "out", recorder), archive::Cancelled);
        EXPECT_LE(recorder.steps.back().done, recorder.stopAfter + (256 << 10)) << name;
        EXPECT_EQ(recorder.lastName, recorder.steps.back().name);
    }
}

TEST(Extract, existingFilesAreReplacedAndOthersStay) {
    TempFolder temp;
    writeFile(temp / "good.txt", std::string(5000, 'x'));
    writeFile(temp / "mine.txt", "mine");
    Recorder recorder;
    EXPECT_EQ(extract(treeArchive("between.7z"), temp / "", recorder), archive::Ok);
    EXPECT_EQ(readFile(temp / "good.txt"), "good content");
    EXPECT_EQ(readFile(temp / "mine.txt"), "mine");
}

TEST(Extract, aFolderInTheFilesPlaceStopsIt) {
    TempFolder temp;
    fs::create_directory(temp / "good.txt");
    Recorder recorder;
    EXPECT_EQ(extract(treeArchive("between.7z"), temp / "", recorder), archive::OpenFailed);
    EXPECT_EQ(recorder.lastName, L"good.txt");
    expectErrorOf(L"good.txt");
}

TEST(Extract, aFileInTheFoldersPlaceStopsIt) {
    TempFolder temp;
    writeFile(temp / "z", "mine");
    Recorder recorder;
    EXPECT_EQ(extract(treeArchive("between.7z"), temp / "", recorder), archive::OpenFailed);
    EXPECT_EQ(recorder.lastName, L"z/more.txt");
    expectErrorOf(L"more.txt");
    EXPECT_EQ(readFile(temp / "z"), "mine");
}

TEST(Extract, pathsLongerThanTheOldLimitWork) {
    TempFolder temp;
    fs::path target = temp / "long";
    for (int i = 0; i < 6; ++i)
        target /= std::string(50, static_cast<char>('a' + i));
    Recorder recorder;
    ASSERT_EQ(extract(treeArchive("between.7z"), target, recorder), archive::Ok);
    archive::InputFile file;
    uint64_t length = 0;
    EXPECT_EQ(file.open((target / "z" / "more.txt").wstring(), length), 0u);
    EXPECT_EQ(length, 4u);
}

namespace {

unsigned openHandles() {
#ifdef _WIN32
    kit::ProcessCounts counts;
    EXPECT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), counts));
    return counts.handles;
#else
    return static_cast<unsigned>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
#endif
}

} // namespace

TEST(Extract, noHandleStaysOpenWhateverTheEnd) {
    TempFolder temp;
    auto unpackAll = [&] {
        Recorder recorder;
        extract(treeArchive("between.7z"), temp / "out", recorder);
        extract(archives("refused") / "climbs.7z", temp / "out", recorder);
        for (const auto& [name, path] : archivesOf("faults"))
            extract(path, temp / "out", recorder);
        recorder.stopAfter = 100;
        extract(treeArchive("x86.7z"), temp / "out", recorder);
    };
    unpackAll();
    openHandles(); // the first look opens handles itself
    const unsigned before = openHandles();
    for (int i = 0; i < 3; ++i)
        unpackAll();
    EXPECT_GT(before, 0u);
    EXPECT_EQ(openHandles(), before);
}

#ifdef _WIN32
TEST(Extract, aFileInUseStopsIt) {
    TempFolder temp;
    writeFile(temp / "good.txt", "mine");
    utility::FileOwner inUse(
        CreateFileW((temp / "good.txt").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(inUse);
    Recorder recorder;
    EXPECT_EQ(extract(treeArchive("between.7z"), temp / "", recorder), archive::OpenFailed);
    expectErrorOf(L"good.txt");
    inUse.reset();
    EXPECT_EQ(readFile(temp / "good.txt"), "mine");
}

TEST(Extract, aHiddenFileIsReplacedLikeAnyOther) {
    TempFolder temp;
    writeFile(temp / "good.txt", "a longer text than the new one");
    SetFileAttributesW((temp / "good.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
    Recorder recorder;
    EXPECT_EQ(extract(treeArchive("between.7z"), temp / "", recorder), archive::Ok);
    EXPECT_EQ(readFile(temp / "good.txt"), "good content");
}
#else
// Links are made by the system's own means, which Wine's stand-in does not have.
TEST(Extract, linksInsideTheDestinationAreNotFollowed) {
    TempFolder temp;
    Recorder recorder;
    fs::create_directories(temp / "outside");
    writeFile(temp / "outside/file.txt", "mine");
    fs::create_directories(temp / "folder_link");
    fs::create_directory_symlink(temp / "outside", temp / "folder_link/z");
    EXPECT_EQ(extract(treeArchive("between.7z"), temp / "folder_link", recorder), archive::OpenFailed);
    fs::create_directories(temp / "file_link");
    fs::create_symlink(temp / "outside/file.txt", temp / "file_link/good.txt");
    test::takeLog();
    EXPECT_EQ(extract(treeArchive("between.7z"), temp / "file_link", recorder), archive::OpenFailed);
    expectErrorOf(L"good.txt");
    EXPECT_EQ(readTree(temp / "outside"), (Tree{{"file.txt", "mine"}}));
    // The destination itself is the user's choice.
    fs::create_directory_symlink(temp / "outside", temp / "chosen");
    EXPECT_EQ(extract(treeArchive("between.7z"), temp / "chosen", recorder), archive::Ok);
    EXPECT_EQ(readFile(temp / "outside/good.txt"), "good content");
}

TEST(Extract, aFailedWriteStopsItAndKeepsWhatStands) {
    TempFolder temp;
    Recorder recorder;
    rlimit old = {};
    getrlimit(RLIMIT_FSIZE, &old);
    auto oldHandler = signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {100000, old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const int result = extract(treeArchive("lzma2.7z"), temp / "out", recorder);
    setrlimit(RLIMIT_FSIZE, &old);
    signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(result, archive::WriteFailed);
    expectErrorOf(recorder.lastName);
    EXPECT_EQ(fs::file_size(temp / "out" / recorder.lastName), 100000u);
}
#endif
