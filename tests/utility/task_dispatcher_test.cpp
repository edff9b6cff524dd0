#include "tests/utility/support.h"

#include "utility/task_dispatcher.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using common::FunctionRunable;
using common::postToWindowThread;
using common::TaskTimer;
using test::Counted;

template <class Lambda>
common::Runable* task(Lambda lambda) {
    return new FunctionRunable<Lambda>(std::move(lambda));
}

class TaskDispatcherTest : public testing::Test {
protected:
    TaskDispatcherTest() {
        common::startServices();
        test::watchLog();
        Counted::alive = 0;
    }
    ~TaskDispatcherTest() override {
        common::stopServices();
        EXPECT_EQ(Counted::alive, 0);
    }
};

TEST_F(TaskDispatcherTest, RunsTasksOfAllPostersInTheOrderOfThePosts) {
    common::TaskPoster poster;
    std::string order;
    const DWORD windowThread = GetCurrentThreadId();
    const auto step = [&order, windowThread, counted = Counted()](char name) {
        EXPECT_EQ(GetCurrentThreadId(), windowThread);
        order += name;
    };
    std::thread worker([&] {
        EXPECT_TRUE(postToWindowThread([step] { step('a'); }));
        EXPECT_TRUE(poster.post(task([step] { step('b'); })));
        EXPECT_TRUE(poster.post(task([step] { step('c'); })));
    });
    worker.join();
    postToWindowThread([&order, step] {
        postToWindowThread([step] { step('f'); });
        order += "(d)";
    });
    postToWindowThread([step] { step('e'); });
    EXPECT_EQ(order, ""); // a post from the window thread does not run in the poster either
    EXPECT_TRUE(test::pumpUntil([&] { return order.size() >= 8; }));
    EXPECT_EQ(order, "abc(d)ef");
}

TEST_F(TaskDispatcherTest, DeliversInsideANestedLoop) {
    bool inner = false, nested = false, ticked = false;
    TaskTimer timer;
    postToWindowThread([&] {
        timer.start(1, task([&] { ticked = true; }));
        postToWindowThread([&] { inner = true; });
        EXPECT_TRUE(test::pumpUntil([&] { return inner && ticked; }));
        nested = true;
    });
    EXPECT_TRUE(test::pumpUntil([&] { return nested; }));
    timer.stop();
}

TEST_F(TaskDispatcherTest, ReleasesWhatItRefusesOrCannotRunAnyMore) {
    bool ran = false;
    EXPECT_TRUE(postToWindowThread([&ran, counted = Counted()] { ran = true; }));
    EXPECT_EQ(Counted::alive, 1);
    common::stopServices();
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_FALSE(postToWindowThread([&ran, counted = Counted()] { ran = true; }));
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_FALSE(ran);
    TaskTimer timer;
    const std::unique_ptr<common::Runable> mine(task([] {}));
    EXPECT_FALSE(timer.start(1, mine.get()));
}

TEST_F(TaskDispatcherTest, WorkersMayPostWhileServicesComeAndGo) {
    std::atomic<bool> done = false;
    std::atomic<int> posted = 0, refused = 0;
    std::vector<std::thread> workers;
    for (int i = 0; i < 2; ++i)
        workers.emplace_back([&] {
            while (!done) {
                ++(postToWindowThread([counted = Counted()] {}) ? posted : refused);
                Sleep(0); // not to starve the window thread
            }
        });
    for (int i = 0; i < 30; ++i) {
        common::stopServices();
        const int before = refused;
        EXPECT_TRUE(test::waitUntil([&] { return refused > before; }));
        common::startServices();
        test::watchLog();
        const int accepted = posted;
        EXPECT_TRUE(test::pumpUntil([&] { return posted > accepted; }));
    }
    done = true;
    for (std::thread& worker : workers)
        worker.join();
}

TEST_F(TaskDispatcherTest, TimersRepeatUntilTheyAreStopped) {
    int ticks = 0;
    TaskTimer timer;
    EXPECT_TRUE(timer.start(1, task([&ticks, counted = Counted()] { ++ticks; })));
    EXPECT_TRUE(timer.isRunning());
    EXPECT_TRUE(test::pumpUntil([&] { return ticks >= 3; }));
    timer.stop();
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_FALSE(timer.isRunning());
    timer.stop();
    const int before = ticks;
    TaskTimer other;
    int otherTicks = 0;
    EXPECT_TRUE(other.start(1, task([&] { ++otherTicks; })));
    EXPECT_TRUE(test::pumpUntil([&] { return otherTicks >= 3; }));
    EXPECT_EQ(ticks, before);
    other.stop();
}

TEST_F(TaskDispatcherTest, ATimerRefusesNoIntervalAndNoTask) {
    TaskTimer timer;
    const std::unique_ptr<common::Runable> mine(task([] {}));
    EXPECT_FALSE(timer.start(0, mine.get()));
    EXPECT_FALSE(timer.start(10, nullptr));
    EXPECT_FALSE(timer.isRunning());
}

TEST_F(TaskDispatcherTest, ATimerTaskMayStopItsOwnTimer) {
    TaskTimer timer;
    int aliveAfterStop = 0;
    timer.start(1, task([&timer, &aliveAfterStop, counted = Counted()] {
                    timer.stop();
                    aliveAfterStop = Counted::alive; // this very task, still whole
                }));
    EXPECT_TRUE(test::pumpUntil([&] { return aliveAfterStop != 0; }));
    EXPECT_EQ(aliveAfterStop, 1);
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(TaskDispatcherTest, StopKillsTimersThatStillRun) {
    TaskTimer first, second;
    first.start(1, task([counted = Counted()] {}));
    second.start(1, task([counted = Counted()] {}));
    common::stopServices();
    EXPECT_EQ(Counted::alive, 0);
    first.stop();
    EXPECT_FALSE(first.isRunning());
}

} // namespace
