#include "tests/utility/support.h"

#include "utility/files.h"
#include "utility/handles.h"
#include "utility/log.h"
#include "utility/log_writer.h"
#include "utility/registry.h"
#include "utility/task_dispatcher.h"
#include "utility/worker_thread.h"

#include <gtest/gtest.h>

namespace {

using test::counts;
using test::expectNoLeak;

TEST(Leaks, TheCounterSeesHandles) {
    counts(); // the first one makes this a program with windows
    const unsigned before = counts().handles;
    const utility::KernelHandle event(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    EXPECT_EQ(counts().handles, before + 1);
}

TEST(Leaks, WorkersThatEndAndWorkersThatAreEnded) {
    common::WorkerThread worker;
    expectNoLeak(30, [&] {
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
    expectNoLeak(30, [&] {
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
    expectNoLeak(30, [&] {
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

} // namespace
