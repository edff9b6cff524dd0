#include "utility/task_dispatcher.h"

#include "utility/log.h"
#include "utility/log_writer.h"
#include "utility/windows.h"

#include <map>
#include <memory>
#include <utility>

namespace common {

namespace {

constexpr UINT TaskMessage = 8888; // wParam: owner token, lParam: the task

class SharedGuard {
public:
    explicit SharedGuard(SRWLOCK& lock) : lock(lock) { AcquireSRWLockShared(&lock); }
    ~SharedGuard() { ReleaseSRWLockShared(&lock); }
    SharedGuard(const SharedGuard&) = delete;

private:
    SRWLOCK& lock;
};

class ExclusiveGuard {
public:
    explicit ExclusiveGuard(SRWLOCK& lock) : lock(lock) { AcquireSRWLockExclusive(&lock); }
    ~ExclusiveGuard() { ReleaseSRWLockExclusive(&lock); }
    ExclusiveGuard(const ExclusiveGuard&) = delete;

private:
    SRWLOCK& lock;
};

class TaskDispatcher {
public:
    bool start(); // false if the hidden window cannot be made
    void stop();

    bool post(const void* owner, Runable* task); // takes the task only when true
    unsigned addTimer(unsigned intervalMs, Runable* task);
    void removeTimer(unsigned id);

    const DWORD windowThread = GetCurrentThreadId();

private:
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void deliver(const void* owner, Runable* task);
    void tick(unsigned id);
    void count(const void* owner, int change);
    bool takeDelivery(const void* owner);
    void dropWaitingTasks();

    SRWLOCK lock = SRWLOCK_INIT; // guards pending only
    HWND window = nullptr;
    // Shared with a tick that is under way: its task may stop the timer.
    std::map<unsigned, std::shared_ptr<Runable>> timers;
    unsigned nextTimerId = 0;
    std::map<const void*, int> pending; // tasks posted and not yet delivered, by owner
};

// Null before startServices and after stopServices. Posters hold the gate shared for the
// length of a post, so that the dispatcher does not go away under them; the window thread
// holds it only to change the pointer, and needs no gate to read it.
SRWLOCK gate = SRWLOCK_INIT;
TaskDispatcher* dispatcher = nullptr;

TaskPoster processWidePoster;

bool TaskDispatcher::start() {
    window =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    if (!window)
        return false;
    SetWindowLongW(window, GWL_WNDPROC, reinterpret_cast<LONG>(&TaskDispatcher::windowProc));
    return true;
}

void TaskDispatcher::stop() {
    for (const auto& [id, task] : timers)
        KillTimer(window, id);
    timers.clear();
    dropWaitingTasks();
    DestroyWindow(window);
    window = nullptr;
}

void TaskDispatcher::dropWaitingTasks() {
    MSG message;
    while (PeekMessageW(&message, window, TaskMessage, TaskMessage, PM_REMOVE))
        reinterpret_cast<Runable*>(message.lParam)->release();
}

LRESULT CALLBACK TaskDispatcher::windowProc(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) noexcept {
    if (message == TaskMessage && dispatcher) {
        dispatcher->deliver(reinterpret_cast<const void*>(wParam), reinterpret_cast<Runable*>(lParam));
        return 0;
    }
    if (message == WM_TIMER && dispatcher) {
        dispatcher->tick(static_cast<unsigned>(wParam));
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

bool TaskDispatcher::post(const void* owner, Runable* task) {
    count(owner, 1);
    if (PostMessageW(window, TaskMessage, reinterpret_cast<WPARAM>(owner), reinterpret_cast<LPARAM>(task)))
        return true; // the task may be gone already
    log("common::TaskDispatcher::post", __LINE__, L"post task failed! error = %d", GetLastError());
    count(owner, -1);
    return false;
}

void TaskDispatcher::count(const void* owner, int change) {
    const ExclusiveGuard guard(lock);
    pending[owner] += change;
}

bool TaskDispatcher::takeDelivery(const void* owner) {
    const ExclusiveGuard guard(lock);
    const auto entry = pending.find(owner);
    if (entry == pending.end() || entry->second < 0)
        return false;
    --entry->second;
    return true;
}

void TaskDispatcher::deliver(const void* owner, Runable* task) {
    const RunableOwner keeper(task);
    if (takeDelivery(owner))
        task->run();
}

unsigned TaskDispatcher::addTimer(unsigned intervalMs, Runable* task) {
    const auto id = static_cast<unsigned>(SetTimer(window, ++nextTimerId, intervalMs, nullptr));
    if (id != 0)
        timers[id] = std::shared_ptr<Runable>(task, RunableRelease());
    return id;
}

void TaskDispatcher::tick(unsigned id) {
    const auto entry = timers.find(id);
    if (entry == timers.end())
        return;
    const std::shared_ptr<Runable> task = entry->second;
    task->run();
}

void TaskDispatcher::removeTimer(unsigned id) {
    const auto entry = timers.find(id);
    if (entry == timers.end())
        return;
    const std::shared_ptr<Runable> task = std::move(entry->second);
    timers.erase(entry);
    KillTimer(window, id);
}

} // namespace

void startServices() {
    setLogSink(writeLogLine);
    if (dispatcher)
        return;
    auto created = std::make_unique<TaskDispatcher>();
    if (!created->start()) {
        log("common::startServices", __LINE__, L"create task window failed! error = %d", GetLastError());
        return;
    }
    const ExclusiveGuard guard(gate);
    dispatcher = created.release();
}

void stopServices() {
    if (!dispatcher)
        return;
    checkWindowThread();
    std::unique_ptr<TaskDispatcher> leaving;
    {
        const ExclusiveGuard guard(gate);
        leaving.reset(std::exchange(dispatcher, nullptr));
    }
    leaving->stop();
    LogWriter::stop();
}

#ifdef VYN_CHECKED
void checkWindowThread() {
    if (dispatcher && dispatcher->windowThread != GetCurrentThreadId()) {
        log("common::checkWindowThread", __LINE__, L"called on thread %d", GetCurrentThreadId());
        __builtin_trap();
    }
}
#endif

bool TaskPoster::post(Runable* task) {
    bool posted;
    {
        const SharedGuard guard(gate);
        posted = dispatcher && dispatcher->post(this, task);
    }
    if (!posted)
        task->release(); // outside the gate: its end may post
    return posted;
}

bool postToWindowThread(Runable* task) {
    return processWidePoster.post(task);
}

bool TaskTimer::start(unsigned intervalMs, Runable* task) {
    checkWindowThread();
    if (intervalMs == 0 || !task || !dispatcher)
        return false;
    id = dispatcher->addTimer(intervalMs, task);
    return id != 0;
}

void TaskTimer::stop() {
    checkWindowThread();
    if (id != 0 && dispatcher)
        dispatcher->removeTimer(id);
    id = 0;
}

} // namespace common
