#include "utility/log_writer.h"

#include "utility/log_file.h"

#include <chrono>
#include <system_error>

namespace common {

void LogWriter::start(const std::wstring& path) {
    if (!path.empty() && !instance().running)
        instance().begin(path);
}

void LogWriter::stop() {
    if (instance().running)
        instance().end();
}

void LogWriter::append(const char* bytes, unsigned length) {
    if (instance().running)
        instance().accept(bytes, length);
}

// Never destroyed: threads that nobody joins may log until the process is gone.
LogWriter& LogWriter::instance() {
    static LogWriter* const writer = new LogWriter;
    return *writer;
}

void LogWriter::begin(const std::wstring& path) {
    stopping = false;
    try {
        thread = std::thread(&LogWriter::run, this, path);
        running = true;
    } catch (const std::system_error&) {
        // No thread to be had: the program goes on without a log.
    }
}

void LogWriter::end() {
    {
        const std::lock_guard lock(mutex);
        stopping = true;
    }
    wake.notify_all();
    thread.join();
    const std::lock_guard lock(mutex);
    running = false;
    pending.clear();
    waiting = 0;
}

void LogWriter::accept(const char* bytes, unsigned length) {
    if (waiting > capacity)
        return;
    bool full;
    {
        const std::lock_guard lock(mutex);
        if (!running || pending.size() > capacity) // either may have changed since the first look
            return;
        pending.append(bytes, length);
        waiting = static_cast<uint32_t>(pending.size());
        full = pending.size() >= capacity;
    }
    if (full)
        wake.notify_all();
}

void LogWriter::run(const std::wstring& path) {
    LogFile file(path);
    std::unique_lock lock(mutex);
    for (bool last = false; !last;) {
        wake.wait_for(lock, std::chrono::milliseconds(500),
                      [this] { return stopping || pending.size() >= capacity; });
        if (!pending.empty()) {
            file.append(pending);
            pending.clear();
            waiting = 0;
        }
        last = stopping;
        // Callers that wait for the lock get their turn before the next round takes it.
        lock.unlock();
        if (!last)
            lock.lock();
    }
}

} // namespace common
