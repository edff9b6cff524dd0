#pragma once

#include "utility/runable.h"

#include <atomic>

// The holder of one worker thread that runs a Runable, with a stop flag and a stop
// event. Idle, running, or ended but not joined: only join() brings it back to idle.
//
// start and join belong to the owner's thread; the stop operations to any.

namespace common {

class WorkerThread {
public:
    WorkerThread() = default;
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;

    // False, and task stays with the caller, while an earlier thread is not joined.
    bool start(Runable* task);

    // Waits at most timeoutMs, then ends the thread by force; releases the task.
    // Does not ask the thread to stop.
    void join(unsigned timeoutMs);

    void requestStop();
    bool isStopRequested() const { return stopRequested; }

    // Sleeps at most ms milliseconds, less when a stop is requested meanwhile.
    void waitForStop(unsigned ms);

private:
    Runable* task = nullptr;
    void* thread = nullptr;
    void* stopEvent = nullptr;
    std::atomic<bool> stopRequested = false;
};

} // namespace common
