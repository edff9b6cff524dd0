#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

// The log file: one background thread that appends waiting lines to it about twice a
// second and keeps it below 50 MiB by cutting it back to its last 2 MiB.
//
// Call start and stop on the window thread. At most one writer exists per process.

namespace common {

class LogWriter {
public:
    // Lines are taken while at most this many bytes wait for the file; so many wake
    // the thread at once.
    static constexpr uint32_t capacity = 10240;

    // Opens path (created if missing, appended to otherwise) on the writer's thread.
    // An empty path starts nothing; a second start while a writer exists does nothing.
    static void start(const std::wstring& path);

    // Writes what is waiting, joins the thread and drops the writer. Safe without one.
    static void stop();

    // Hands one finished UTF-8 line over; any thread. Dropped when no writer exists or
    // when too much is waiting: lines are lost rather than callers slowed.
    static void append(const char* bytes, unsigned length);

private:
    static LogWriter& instance();
    void begin(const std::wstring& path);
    void end();
    void accept(const char* bytes, unsigned length);
    void run(const std::wstring& path);

    std::mutex mutex; // guards stopping and pending, held also while the file is written
    std::condition_variable wake;
    std::thread thread;
    bool stopping = false;
    std::string pending;
    std::atomic<bool> running = false;
    std::atomic<uint32_t> waiting = 0; // size of pending, for a look without the lock
};

// The sink that startServices installs: builds the line with its header and gives it
// to the writer.
void writeLogLine(const char* function, int line, const wchar_t* text);

} // namespace common
