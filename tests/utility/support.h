#pragma once

#include "kit/process_counts.h"
#include "tests/support/log_watch.h"
#include "utility/windows.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

// What the tests of this folder share.

namespace test {

// A folder of its own below the temporary folder, gone with the object. The path has
// blanks and letters outside any code page of the tests; it ends in a backslash.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();

    const std::wstring path;
};

std::string readFile(const std::wstring& path);
void writeFile(const std::wstring& path, const std::string& bytes);

std::wstring childProgram();

// What this program holds now.
kit::ProcessCounts counts();

// Fails the test when the rounds leave handles, threads or windows behind.
void expectNoLeak(int rounds, const std::function<void()>& round);

// Counts the living ones; captured in a task it tells when the task is freed.
class Counted {
public:
    Counted() { ++alive; }
    Counted(const Counted&) { ++alive; }
    ~Counted() { --alive; }
    static inline std::atomic<int> alive = 0;
};

constexpr std::chrono::seconds Patience{20};

// False when the condition did not come true in time.
template <class Condition>
bool waitUntil(Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + Patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        Sleep(1);
    }
    return true;
}

// Runs the message loop until the condition holds.
template <class Condition>
bool pumpUntil(Condition condition) {
    return waitUntil([&] {
        MSG message;
        while (!condition() && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        return condition();
    });
}

} // namespace test
