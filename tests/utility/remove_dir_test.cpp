#include "tests/support/host_program.h"
#include "tests/utility/support.h"

#include "utility/encoding.h"
#include "utility/files.h"
#include "utility/handles.h"

#include <gtest/gtest.h>

namespace {

using namespace utility::ufile;

class RemoveDirTest : public testing::Test {
protected:
    test::TempFolder folder;
    const std::wstring tree = folder.path + L"tree";
};

TEST_F(RemoveDirTest, RemovesATreeDeeperThanAPathMayBe) {
    const std::wstring name(60, L'\xAC00');
    std::wstring path = L"\\\\?\\" + tree;
    ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
    for (int depth = 0; depth < 12; ++depth) {
        test::writeFile(path + L"\\file", "x");
        path += L"\\" + name;
        ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr)) << depth;
    }
    EXPECT_TRUE(removeDir(tree));
    EXPECT_FALSE(isExist(tree));
}

TEST_F(RemoveDirTest, PassesOverWhatItCannotRemove) {
    ASSERT_TRUE(makeDir(tree + L"\\inner\\other"));
    for (const wchar_t* name : {L"\\a", L"\\inner\\locked", L"\\inner\\other\\b", L"\\z"})
        test::writeFile(tree + name, "x");
    const std::wstring path = tree + L"\\inner\\locked";
    {
        const utility::FileOwner locked(
            CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(locked);
        EXPECT_FALSE(removeDir(tree));
    }
    EXPECT_TRUE(isExist(path));
    for (const wchar_t* name : {L"\\a", L"\\inner\\other", L"\\z"})
        EXPECT_FALSE(isExist(tree + name));
    const auto lines = test::takeLog();
    ASSERT_EQ(lines.size(), 3u); // the file, its folder, the top
    EXPECT_EQ(lines[0], L"DeleteFile fileName = " + path + L" error = 32");
    EXPECT_EQ(lines[1], L"RemoveDirectory error = 145");
    EXPECT_TRUE(removeDir(tree + L"\\"));
}

TEST_F(RemoveDirTest, TellsOfAMissingFolderAndOfNoFolder) {
    EXPECT_FALSE(removeDir(tree));
    EXPECT_FALSE(removeDir(L""));
    test::writeFile(tree, "x");
    EXPECT_FALSE(removeDir(tree));
    EXPECT_EQ(test::readFile(tree), "x");
    const auto lines = test::takeLog();
    ASSERT_EQ(lines.size(), 3u);
    for (const std::wstring& line : lines)
        EXPECT_TRUE(line.starts_with(L"RemoveDirectory error = "));
}

using HostPath = char*(CDECL*)(const wchar_t*);

HostPath hostPathFunction() {
    return reinterpret_cast<HostPath>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name"));
}

// A path as Wine's host names it, the last component not looked at.
std::wstring hostPath(const std::wstring& path) {
    const std::wstring folder = getParentDir(path);
    char* const name = hostPathFunction()(folder.c_str());
    const std::wstring wide = utility::utf8ToWide(name);
    HeapFree(GetProcessHeap(), 0, name);
    return wide + L"/" + path.substr(folder.size());
}

// Wine claims to make and to remove symbolic links and does not. Links of its host read
// as reparse points, so the host's own programs do it there.
class Link {
public:
    Link(const std::wstring& path, const std::wstring& target) : path(path) {
        if (hostPathFunction())
            test::runOnHost(L"Z:\\bin\\ln -s \"" + hostPath(target) + L"\" \"" + hostPath(path) + L"\"");
        else
            CreateSymbolicLinkW(path.c_str(), target.c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY);
        EXPECT_TRUE(test::waitUntil([&] { return isExist(path); }));
    }
    ~Link() {
        if (hostPathFunction())
            test::runOnHost(L"Z:\\bin\\rm -f \"" + hostPath(path) + L"\"");
        EXPECT_TRUE(test::waitUntil([&] { return !isExist(path); }));
    }

private:
    const std::wstring path;
};

TEST_F(RemoveDirTest, DoesNotFollowALink) {
    const std::wstring outside = folder.path + L"outside";
    ASSERT_TRUE(makeDir(outside + L"\\inner") && makeDir(tree));
    test::writeFile(outside + L"\\kept", "x");
    {
        const Link inside(tree + L"\\link", outside), top(folder.path + L"link", outside);
        removeDir(tree);
        removeDir(folder.path + L"link");
    }
    EXPECT_EQ(test::readFile(outside + L"\\kept"), "x");
    EXPECT_TRUE(isExist(outside + L"\\inner"));
    test::takeLog(); // that Wine does not remove the link itself
}

} // namespace
