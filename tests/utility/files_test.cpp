#include "tests/utility/support.h"

#include "utility/encoding.h"
#include "utility/files.h"
#include "utility/handles.h"

#include <gtest/gtest.h>

namespace {

using namespace utility::ufile;

class FilesTest : public testing::Test {
protected:
    test::TempFolder folder;
};

// Held so that nobody else may read, write or delete it.
utility::FileOwner lockFile(const std::wstring& path) {
    return utility::FileOwner(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST(ParentDir, IsAllUpToTheLastSeparatorButAClosingOne) {
    const struct {
        const wchar_t *path, *parent;
    } cases[] = {
        {L"", L""},       {L"\\", L""},        {L"name", L""},        {L"name\\", L""},
        {L"C:\\", L""},   {L"C:\\a", L"C:\\"}, {L"C:\\a\\", L"C:\\"}, {L"C:\\a\\b", L"C:\\a\\"},
        {L"a/b/", L"a/"}, {L"a\\b/c", L"a\\"}, {L"\\a", L"\\"},       {L"C:\\a\\\\", L"C:\\a\\"},
    };
    for (const auto& [path, parent] : cases)
        EXPECT_EQ(getParentDir(path), parent) << utility::wideToAnsi(path);
}

TEST_F(FilesTest, TellsTheFoldersOfProgramAndUser) {
    EXPECT_TRUE(getModuleDir().ends_with(L"\\"));
    EXPECT_TRUE(isExist(test::childProgram()));
    EXPECT_TRUE(isExist(getAppDataDir()));
    EXPECT_FALSE(getAppDataDir().ends_with(L"\\"));
}

TEST_F(FilesTest, MakesAllMissingParentsAndAcceptsWhatIsThere) {
    const std::wstring deep = folder.path + L"one\\two\\three";
    EXPECT_TRUE(makeDir(deep));
    EXPECT_TRUE(makeDir(deep));
    EXPECT_TRUE(isExist(deep));
    EXPECT_TRUE(test::takeLog().empty());
    test::writeFile(folder.path + L"file", "");
    EXPECT_FALSE(makeDir(folder.path + L"file\\below"));
    const auto lines = test::takeLog();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0].starts_with(L"make dir failed! error = "));
}

TEST_F(FilesTest, MeasuresWhatItMayRead) {
    const std::wstring path = folder.path + L"file";
    uint64_t size = 77;
    EXPECT_FALSE(getFileSize(path, size));
    EXPECT_EQ(size, 77u);
    test::writeFile(path, "12345");
    EXPECT_TRUE(getFileSize(path, size));
    EXPECT_EQ(size, 5u);
    const auto locked = lockFile(path);
    size = 77;
    EXPECT_FALSE(getFileSize(path, size));
    EXPECT_EQ(size, 77u);
}

TEST_F(FilesTest, MeasuresBeyondFourGigabytes) {
    const std::wstring path = folder.path + L"large";
    {
        const utility::FileOwner file(
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
        LARGE_INTEGER end;
        end.QuadPart = 5LL << 30;
        ASSERT_TRUE(SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN) && SetEndOfFile(file.get()));
    }
    uint64_t size = 0;
    EXPECT_TRUE(getFileSize(path, size));
    EXPECT_EQ(size, 5ULL << 30);
    MappedFile mapped;
    EXPECT_FALSE(mapped.open(path));
    EXPECT_EQ(mapped.getSize(), 0u);
    EXPECT_TRUE(removeFile(path)); // no handle was left behind
}

TEST_F(FilesTest, MovesCopiesAndRemovesOrTellsWhyNot) {
    const std::wstring a = folder.path + L"a", b = folder.path + L"b", c = folder.path + L"c";
    test::writeFile(a, "new");
    test::writeFile(b, "old and longer");
    EXPECT_TRUE(moveFile(a, b, MoveReplaceAndCopy));
    EXPECT_FALSE(isExist(a));
    EXPECT_TRUE(copyFile(b, c, false));
    EXPECT_TRUE(copyFile(b, c, false));
    EXPECT_EQ(test::readFile(c), "new");
    {
        const auto locked = lockFile(c);
        EXPECT_FALSE(moveFile(b, c, MoveReplaceAndCopy));
        EXPECT_FALSE(copyFile(b, c, false));
        EXPECT_FALSE(removeFile(c));
    }
    EXPECT_EQ(test::readFile(b), "new");
    EXPECT_EQ(test::readFile(c), "new");
    EXPECT_TRUE(removeFile(c));
    EXPECT_FALSE(removeFile(c));
    const auto lines = test::takeLog();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_TRUE(
        lines[0].starts_with(L"move file from [ " + b + L" ] to [ " + c + L" ] flag = 3 failed! error = "));
    EXPECT_TRUE(
        lines[1].starts_with(L"copy file from [ " + b + L" ] to [ " + c + L" ] flag = 0 failed! error = "));
    EXPECT_EQ(lines[3], L"removeFile file from [ " + c + L" ] error = 2.");
}

TEST_F(FilesTest, AFileHandleContinuesOrEmptiesAFile) {
    const std::wstring path = folder.path + L"file";
    FileHandle file;
    EXPECT_FALSE(file.open(path, false));
    ASSERT_TRUE(file.open(path, true));
    EXPECT_TRUE(file.write("abc", 3));
    ASSERT_TRUE(file.open(path, false)); // lets the first one go
    EXPECT_TRUE(file.seekToEnd());
    EXPECT_TRUE(file.write("def", 3));
    EXPECT_EQ(test::readFile(path), "abcdef"); // shared while it is open
    ASSERT_TRUE(file.create(path));
    file.close();
    file.close();
    EXPECT_EQ(test::readFile(path), "");
    EXPECT_FALSE(file.write("x", 1));
    EXPECT_EQ(test::takeLog().size(), 1u);
    const auto locked = lockFile(path);
    EXPECT_FALSE(file.open(path, true));
    EXPECT_FALSE(file.create(path));
}

TEST_F(FilesTest, MapsAWholeFile) {
    const std::wstring path = folder.path + L"file";
    MappedFile mapped;
    EXPECT_FALSE(mapped.open(path));
    test::writeFile(path, "");
    EXPECT_TRUE(mapped.open(path));
    EXPECT_EQ(mapped.data(), nullptr);
    mapped.close();
    test::writeFile(path, "content");
    ASSERT_TRUE(mapped.open(path));
    EXPECT_EQ(std::string(static_cast<const char*>(mapped.data()), mapped.getSize()), "content");
    mapped.close();
    mapped.close();
    EXPECT_EQ(mapped.data(), nullptr);
    EXPECT_EQ(mapped.getSize(), 0u);
    EXPECT_TRUE(removeFile(path));
}

} // namespace
