#include "tests/utility/support.h"

#include "utility/log.h"
#include "utility/worker_thread.h"

#include <gtest/gtest.h>

namespace {

using common::WorkerThread;
using test::Counted;

template <class Lambda>
common::Runable* task(Lambda lambda) {
    return new common::FunctionRunable<Lambda>(std::move(lambda));
}

class WorkerThreadTest : public testing::Test {
protected:
    WorkerThreadTest() { Counted::alive = 0; }

    WorkerThread worker;
    std::atomic<bool> ran = false;
};

TEST_F(WorkerThreadTest, RunsOneTaskAtATimeAndIsIdleOnlyAfterJoin) {
    ASSERT_TRUE(worker.start(task([this, counted = Counted()] { ran = true; })));
    EXPECT_TRUE(test::waitUntil([&] { return ran.load(); }));
    const std::unique_ptr<common::Runable> refused(task([] {}));
    EXPECT_FALSE(worker.start(refused.get())); // ended, but not joined
    EXPECT_EQ(Counted::alive, 1);
    worker.join(test::Patience / std::chrono::milliseconds(1));
    EXPECT_EQ(Counted::alive, 0);
    worker.join(0);
    ran = false;
    ASSERT_TRUE(worker.start(task([this] { ran = true; })));
    worker.join(20000);
    EXPECT_TRUE(ran);
}

TEST_F(WorkerThreadTest, AStopWakesASleepingWorkerAndLastsUntilTheNextStart) {
    worker.requestStop(); // of nobody: the next start forgets it
    ASSERT_TRUE(worker.start(task([this] {
        EXPECT_FALSE(worker.isStopRequested());
        ran = true;
        worker.waitForStop(60000);
        EXPECT_TRUE(worker.isStopRequested());
    })));
    EXPECT_TRUE(test::waitUntil([&] { return ran.load(); }));
    const DWORD begin = GetTickCount();
    worker.requestStop();
    worker.join(20000);
    EXPECT_LT(GetTickCount() - begin, 15000u);
}

TEST_F(WorkerThreadTest, JoinEndsAThreadThatDoesNotEndByItself) {
    std::atomic<unsigned> beats = 0;
    ASSERT_TRUE(worker.start(task([&beats, counted = Counted()] {
        for (;;) {
            ++beats;
            Sleep(1);
        }
    })));
    EXPECT_TRUE(test::waitUntil([&] { return beats > 0; }));
    worker.join(20);
    EXPECT_EQ(Counted::alive, 0);
    const unsigned stopped = beats;
    Sleep(20);
    EXPECT_EQ(beats, stopped);
    ASSERT_TRUE(worker.start(task([this] { ran = true; })));
    worker.join(20000);
    EXPECT_TRUE(ran);
}

TEST_F(WorkerThreadTest, AThreadOutlivesAHolderThatDoesNotJoin) {
    std::atomic<bool> go = false;
    {
        WorkerThread holder;
        ASSERT_TRUE(holder.start(task([this, &go, counted = Counted()] {
            while (!go)
                Sleep(1);
            ran = Counted::alive == 1;
        })));
    }
    go = true;
    EXPECT_TRUE(test::waitUntil([&] { return ran.load(); }));
}

} // namespace
