#include "utility/worker_thread.h"

#include "utility/log.h"

namespace common {

namespace {

constexpr DWORD ForcedExitCode = static_cast<DWORD>(-1);
constexpr DWORD TerminationMs = 100; // forced ends take effect a moment after the call

DWORD WINAPI threadBody(void* task) noexcept {
    static_cast<Runable*>(task)->run();
    return 0;
}

} // namespace

WorkerThread::~WorkerThread() {
    if (thread) {
        task.release();
        stopEvent.release();
    }
}

bool WorkerThread::start(Runable* newTask) {
    if (thread)
        return false;
    stopRequested = false;
    stopEvent.reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    task.reset(newTask);
    thread.reset(CreateThread(nullptr, 0, threadBody, newTask, 0, nullptr));
    if (thread)
        return true;
    log("common::WorkerThread::start", __LINE__, L"create thread failed! error = %d", GetLastError());
    task.release();
    stopEvent.reset();
    return false;
}

void WorkerThread::join(unsigned timeoutMs) {
    if (thread && WaitForSingleObject(thread.get(), timeoutMs) == WAIT_TIMEOUT) {
        TerminateThread(thread.get(), ForcedExitCode);
        WaitForSingleObject(thread.get(), TerminationMs); // it uses the task until it is gone
    }
    thread.reset();
    task.reset();
    stopEvent.reset();
}

void WorkerThread::requestStop() {
    stopRequested = true;
    if (stopEvent)
        SetEvent(stopEvent.get());
}

void WorkerThread::waitForStop(unsigned ms) {
    WaitForSingleObject(stopEvent.get(), ms);
}

} // namespace common
