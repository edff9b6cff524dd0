#pragma once

#include "utility/runable.h"

#include <concepts>

// The only road back to the window thread, and its repeating timers.
//
// The thread that calls startServices() becomes the window thread. Posted tasks and
// timer ticks arrive as messages of a hidden window, so they run inside the ordinary
// message loop, one at a time, tasks in the order of their posts.

namespace common {

// Window thread. Makes log() work, then starts the dispatcher on the calling thread.
void startServices();

// Window thread, at the end of the program. Tasks still waiting are dropped, running
// timers killed; last, the log is stopped. Posts from here on are refused, also those
// of a worker that is in the middle of one.
void stopServices();

// Ends a checked build at once when the caller is not on the window thread; nothing
// elsewhere. Before startServices every thread passes.
#ifdef VYN_CHECKED
void checkWindowThread();
#else
inline void checkWindowThread() {}
#endif

// Identifies by its address on whose behalf tasks are posted.
class TaskPoster {
public:
    // Any thread. Takes ownership of task in every case. False if the task was refused
    // (no dispatcher, or a full queue): it has been released without running.
    bool post(Runable* task);
};

// post() on the process-wide poster.
bool postToWindowThread(Runable* task);

template <std::invocable Lambda>
bool postToWindowThread(Lambda lambda) {
    return postToWindowThread(static_cast<Runable*>(new FunctionRunable<Lambda>(std::move(lambda))));
}

// Handle of one repeating timer of the window thread, embedded in its owner, who stops
// it: it does not stop itself on destruction. All operations: window thread.
class TaskTimer {
public:
    // False and nothing done for an interval of 0 milliseconds or a null task; false
    // also when the platform refuses, the task then stays with the caller. Does not
    // look at a timer that already runs in this handle: stop() it first.
    bool start(unsigned intervalMs, Runable* task);
    void stop();
    bool isRunning() const { return id != 0; }

private:
    unsigned id = 0;
};

} // namespace common
