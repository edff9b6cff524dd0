#pragma once

#include "utility/handles.h"
#include "utility/runable.h"

#include <atomic>

// The holder of one worker thread that runs a Runable, with a stop flag and a stop
// event. Idle, running, or ended but not joined: only join() brings it back to idle.
//
// start and join belong to the owner's thread; the stop operations to any, as long as
// the owner is not in join.

namespace common {

class WorkerThread {
public:
    WorkerThread() = default;
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;

    // A holder that is destroyed without join leaves the thread alone: task and event
    // are then left to it, and end with the process.
    ~WorkerThread();

    // False, and task stays with the caller, while an earlier thread is not joined or
    // when the system gives no thread.
    bool start(Runable* task);

    // Waits at most timeoutMs, then ends the thread by force; releases the task.
    // Does not ask the thread to stop.
    void join(unsigned timeoutMs);

    void requestStop();
    bool isStopRequested() const { return stopRequested; }

    // Sleeps at most ms milliseconds, less when a stop is requested meanwhile.
    void waitForStop(unsigned ms);

private:
    RunableOwner task;
    utility::KernelHandle thread;
    utility::KernelHandle stopEvent; // auto-reset
    std::atomic<bool> stopRequested = false;
};

} // namespace common
