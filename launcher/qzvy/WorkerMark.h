#pragma once

#include <atomic>

// Tells the owner of a worker, by a flag that the owner set before the start, when the
// worker has done its last work and posted its last task.
class WorkerMark {
public:
    explicit WorkerMark(std::atomic<bool>& alive) : alive(alive) {}
    WorkerMark(const WorkerMark&) = delete;
    WorkerMark& operator=(const WorkerMark&) = delete;
    ~WorkerMark() { alive = false; }

private:
    std::atomic<bool>& alive;
};
