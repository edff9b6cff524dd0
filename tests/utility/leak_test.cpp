#include "tests/utility/support.h"

#include "kit/process_counts.h"
#include "utility/files.h"
#include "utility/handles.h"
#include "utility/log.h"
#include "utility/log_writer.h"
#include "utility/process.h"
#include "utility/registry.h"
#include "utility/task_dispatcher.h"
#include "utility/worker_thread.h"

#include <gtest/gtest.h>

namespace {

kit::ProcessCounts counts() {
    kit::ProcessCounts now;
    EXPECT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), now));
    return now;
}

// The first rounds may load what stays for good.
template <class Cycle>
void expectNoLeak(Cycle cycle) {
    for (int i = 0; i < 5; ++i)
        cycle();
    counts();
    const kit::ProcessCounts before = counts();
    for (int i = 0; i < 100; ++i)
        cycle();
    const kit::ProcessCounts after = counts();
    EXPECT_LE(after.handles, before.handles);
    EXPECT_LE(after.threads, before.threads);
    EXPECT_LE(after.windows, before.windows);
}

TEST(Leaks, TheCounterSeesHandles) {
    counts(); // the first one makes this a program with windows
    const unsigned before = counts().handles;
    const utility::KernelHandle event(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    EXPECT_EQ(counts().handles, before + 1);
}

TEST(Leaks, WorkersThatEndAndWorkersThatAreEnded) {
    common::WorkerThread worker;
    expectNoLeak([&] {
        worker.start(new common::FunctionRunable([&] { worker.waitForStop(1); }));
        worker.join(20000);
        std::atomic<bool> asleep = false;
        worker.start(new common::FunctionRunable([&] {
            asleep = true;
            Sleep(60000);
        }));
        EXPECT_TRUE(test::waitUntil([&] { return asleep.load(); })); // ended in a known place
        worker.join(0);
    });
}

TEST(Leaks, ServicesWithTimerTasksAndLog) {
    const test::TempFolder folder;
    expectNoLeak([&] {
        common::startServices();
        common::LogWriter::start(folder.path + L"main.log");
        common::log("test", 1, L"line");
        common::TaskTimer timer;
        timer.start(1, new common::FunctionRunable([] {}));
        common::postToWindowThread([] {});
        common::stopServices();
    });
    test::watchLog();
}

TEST(Leaks, FilesAndKeys) {
    const test::TempFolder folder;
    const std::wstring path = folder.path + L"file", subkey = L"Software\\vyn-leak-test";
    test::writeFile(path, "content");
    expectNoLeak([&] {
        uint64_t size;
        utility::ufile::MappedFile mapped;
        EXPECT_TRUE(mapped.open(path) && mapped.open(path));
        EXPECT_TRUE(utility::ufile::getFileSize(path, size));
        utility::RegKeyEx key;
        EXPECT_EQ(key.RegCreate(HKEY_CURRENT_USER, subkey), 0);
        EXPECT_EQ(key.RegRegOpen(HKEY_CURRENT_USER, subkey, KEY_READ), 0);
        EXPECT_TRUE(utility::ufile::makeDir(folder.path + L"inner\\other"));
        EXPECT_TRUE(utility::ufile::removeDir(folder.path + L"inner"));
    });
    RegDeleteKeyW(HKEY_CURRENT_USER, subkey.c_str());
}

TEST(Leaks, ChildProcesses) {
    test::allowErrors(L"execute exitcode = 0");
    expectNoLeak(
        [] { EXPECT_TRUE(utility::process::execute(test::childProgram(), L"exit 0", false, 20000)); });
}

} // namespace
