#include "tests/utility/support.h"

#include "utility/files.h"
#include "utility/handles.h"
#include "utility/process.h"

#include <gtest/gtest.h>

namespace {

using namespace utility::process;
using utility::KernelHandle;

class ProcessTest : public testing::Test {
protected:
    // Takes the log; whether a line of it begins so.
    static bool told(const std::wstring& start) {
        for (const std::wstring& line : test::takeLog())
            if (line.starts_with(start))
                return true;
        return false;
    }

    // What a child leaves behind when it ran with its arguments whole.
    std::wstring touch(const std::wstring& name, int exitCode) {
        return L"touch \"" + folder.path + name + L"\" " + std::to_wstring(exitCode);
    }

    test::TempFolder folder;
    const std::wstring child = test::childProgram();
};

TEST_F(ProcessTest, ExecuteTellsTheExitCode) {
    EXPECT_TRUE(execute(child, touch(L"a b", 0), false, 20000));
    EXPECT_TRUE(utility::ufile::isExist(folder.path + L"a b"));
    EXPECT_TRUE(told(L"execute exitcode = 0 lastError = "));
    EXPECT_FALSE(execute(child, L"exit 3", false, 20000));
    EXPECT_TRUE(told(L"execute exitcode = 3 lastError = "));
    EXPECT_TRUE(execute(child, L"exit 3", false, 0)); // started is enough
    EXPECT_FALSE(execute(folder.path + L"none.exe", L"", false, 20000));
    const auto lines = test::takeLog();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[2], L"createProcess failed!!! lastError = 2");
    EXPECT_EQ(lines[3], L"execute failed!!! last error = 2");
}

// Children that live until the object goes, and show then that they did.
class LiveChildren {
public:
    explicit LiveChildren(const std::wstring& folder) : folder(folder) {}
    ~LiveChildren() {
        SetEvent(event.get());
        for (int child = 1; child <= count; ++child)
            EXPECT_TRUE(test::waitUntil([&] { return utility::ufile::isExist(file(child)); })) << child;
    }

    // The parameters of one more.
    std::wstring next() { return L"await " + name + L" \"" + file(++count) + L"\""; }

private:
    std::wstring file(int child) const { return folder + L"lived " + std::to_wstring(child); }

    const std::wstring folder;
    const std::wstring name = L"vyn-children-" + std::to_wstring(GetCurrentProcessId());
    const KernelHandle event{CreateEventW(nullptr, TRUE, FALSE, name.c_str())};
    int count = 0;
};

TEST_F(ProcessTest, CreateNamesTheChildThatItHandsOver) {
    LiveChildren living(folder.path);
    DWORD id = 0;
    const KernelHandle process(create(child, living.next(), false, &id));
    ASSERT_TRUE(process);
    EXPECT_EQ(GetProcessId(process.get()), id);
    EXPECT_EQ(GetProcessPath(id), child);
    EXPECT_EQ(WaitForSingleObject(process.get(), 0), DWORD(WAIT_TIMEOUT));
}

TEST_F(ProcessTest, AChildOutlivesItsTimeOutAndTheWaitThatWasNotWanted) {
    LiveChildren living(folder.path);
    EXPECT_FALSE(execute(child, living.next(), false, 50));
    EXPECT_TRUE(told(L"execute timeout!!!"));
    EXPECT_FALSE(shellEx(child, living.next(), false, false, 50));
    EXPECT_TRUE(told(L"shellEx timeout!!!"));
    EXPECT_TRUE(execute(child, living.next(), false, 0));
    EXPECT_TRUE(shellEx(child, living.next(), false, false, 0));
}

TEST_F(ProcessTest, ThePathOfAnUnknownProcessIsEmpty) {
    EXPECT_EQ(GetProcessPath(0xFFFFFFF0), L"");
    EXPECT_TRUE(test::takeLog().empty());
}

TEST_F(ProcessTest, ShellStartsWithAndWithoutElevation) {
    for (const bool runas : {false, true}) {
        const std::wstring name = runas ? L"elevated" : L"plain";
        EXPECT_TRUE(shell(child, touch(name, 0), runas, false));
        EXPECT_TRUE(test::waitUntil([&] { return utility::ufile::isExist(folder.path + name); }));
    }
    EXPECT_TRUE(told(L"shell filename = [" + child + L"], param = ["));
    EXPECT_FALSE(shell(folder.path + L"none.exe", L"", false, false));
    EXPECT_TRUE(told(L"shellEx failed!!! lastError = "));
}

TEST_F(ProcessTest, ShellExWaitsForAnExitCodeOfZero) {
    EXPECT_TRUE(shellEx(child, L"exit 0", true, false, 20000));
    EXPECT_FALSE(shellEx(child, L"exit 3", false, false, 20000));
    EXPECT_TRUE(told(L"shellEx exitcode = 0"));
    EXPECT_TRUE(shellEx(child, L"exit 3", false, false, 0));
    EXPECT_FALSE(shellEx(folder.path + L"none.exe", L"", false, false, 20000));
    EXPECT_TRUE(told(L"shellEx failed!!! lastError = "));
}

// A program in the place of the desktop's shell. Wine runs its own from the system folder,
// also when the one in the Windows folder is asked for, unless that is a foreign program.
class DesktopShell {
public:
    DesktopShell() {
        // There already when an earlier run was killed in the middle.
        EXPECT_TRUE(utility::ufile::isExist(aside) || MoveFileW(path.c_str(), aside.c_str()));
        EXPECT_TRUE(CopyFileW(test::childProgram().c_str(), path.c_str(), FALSE));
        process.reset(utility::process::create(path, L"await " + name + L" none", false));
        EXPECT_TRUE(process);
    }
    ~DesktopShell() {
        TerminateProcess(process.get(), 0);
        WaitForSingleObject(process.get(), 20000);
        EXPECT_TRUE(MoveFileExW(aside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING));
    }

private:
    static std::wstring inWindowsFolder(const wchar_t* name) {
        wchar_t folder[MAX_PATH] = {};
        GetWindowsDirectoryW(folder, MAX_PATH);
        return std::wstring(folder) + name;
    }

    const std::wstring path = inWindowsFolder(L"\\explorer.exe");
    const std::wstring aside = inWindowsFolder(L"\\explorer.exe.aside");
    const std::wstring name = L"vyn-shell-" + std::to_wstring(GetCurrentProcessId());
    const KernelHandle never{CreateEventW(nullptr, TRUE, FALSE, name.c_str())};
    KernelHandle process;
};

TEST_F(ProcessTest, CreateAsUserStartsWithTheRightsOfTheDesktopShell) {
    const DesktopShell shell;
    const std::wstring parameters = touch(L"a b", 3);
    EXPECT_EQ(createAsUser(child, parameters.c_str(), true), 0); // the exit code is not looked at
    EXPECT_TRUE(utility::ufile::isExist(folder.path + L"a b"));
    EXPECT_EQ(createAsUser(folder.path + L"none.exe", L"", true), -1);
    EXPECT_EQ(createAsUser(child, nullptr, true), 0);
    LiveChildren living(folder.path);
    EXPECT_EQ(createAsUser(child, living.next().c_str(), false), 0);
}

TEST_F(ProcessTest, NoStartKeepsAHandle) {
    const DesktopShell shell;
    const std::wstring none = folder.path + L"none.exe";
    test::expectNoLeak(1, [&] {
        EXPECT_TRUE(execute(child, L"exit 0", false, 20000));
        EXPECT_TRUE(shellEx(child, L"exit 0", false, false, 20000));
        EXPECT_EQ(createAsUser(child, L"exit 0", true), 0);
        EXPECT_EQ(GetProcessPath(GetCurrentProcessId()).find(L'\0'), std::wstring::npos);
        EXPECT_FALSE(execute(none, L"", false, 0));
        EXPECT_FALSE(shellEx(none, L"", false, false, 0));
        EXPECT_EQ(createAsUser(none, L"", true), -1);
    });
    test::takeLog();
}

TEST_F(ProcessTest, CreateAsUserRefusesALineBeyondItsBufferSoThatShellTakesOver) {
    const DesktopShell shell;
    const std::wstring shortest = L"\"" + child + L"\" exit 0";
    const std::wstring fits = L"exit 0" + std::wstring(259 - shortest.size(), L' ');
    EXPECT_EQ(createAsUser(child, fits.c_str(), true), 0);
    EXPECT_EQ(createAsUser(child, (fits + L" ").c_str(), true), -1);
    EXPECT_TRUE(shellEx(child, fits + L" ", false, false, 20000));
    EXPECT_TRUE(told(L"shellEx filename = "));
}

} // namespace
