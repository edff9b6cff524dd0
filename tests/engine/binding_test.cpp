#include "utility/wke/wke.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

namespace {

// Answers message boxes of this process and keeps their captions and texts.
class BoxAnswerer {
public:
    BoxAnswerer() : thread([this] { answer(); }) {}
    ~BoxAnswerer() { stop(); }
    std::string stop() {
        done = true;
        if (thread.joinable())
            thread.join();
        return seen;
    }

private:
    void answer() {
        while (!done) {
            if (const HWND box = FindWindowExW(nullptr, nullptr, L"#32770", nullptr); box && isOurs(box)) {
                char caption[128] = {};
                GetWindowTextA(box, caption, sizeof(caption));
                seen += std::string(caption) + ";";
                PostMessageW(box, WM_COMMAND, IDOK, 0);
                while (!done && IsWindow(box))
                    std::this_thread::yield();
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }
    static bool isOurs(HWND box) {
        DWORD process = 0;
        GetWindowThreadProcessId(box, &process);
        return process == GetCurrentProcessId() && IsWindowVisible(box);
    }

    std::string seen;
    std::atomic<bool> done = false;
    std::thread thread;
};

std::wstring beside(const wchar_t* name) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program = path;
    return program.substr(0, program.rfind(L'\\') + 1) + L"\\" + name;
}

} // namespace

// One test, since a process binds once: a missing library can be followed by another, a
// bound one cannot.
TEST(Binding, failsQuietlyAndTellsWhatALibraryLacks) {
    BoxAnswerer boxes;
    const std::wstring missing = beside(L"no_such_engine.dll");
    wkeLibraryPath = missing.c_str();
    EXPECT_EQ(wkeInitialize(), 0);
    wkeLibraryPath = L"msacm32.dll"; // of the system, and no web engine
    EXPECT_EQ(wkeInitialize(), 0);
    EXPECT_EQ(GetModuleHandleW(wkeLibraryPath), nullptr);
    EXPECT_EQ(wkeCreateWebCustomWindow, nullptr);
    EXPECT_FALSE(wkeHasAllCalled());

    const std::wstring partial = beside(L"node_without_wkeOnLoadUrlEnd.dll");
    wkeLibraryPath = partial.c_str();
    EXPECT_EQ(wkeInitialize(), 1);
    EXPECT_EQ(boxes.stop(), "wkeOnLoadUrlEnd;");
    EXPECT_EQ(wkeOnLoadUrlEnd, nullptr);
    EXPECT_NE(wkeShutdown, nullptr);
    EXPECT_NE(jsUndefined, nullptr);
    EXPECT_NE(jsGetCallstack, nullptr); // the last of the list
    EXPECT_FALSE(wkeHasAllCalled());
    wkeOnLoadUrlEnd = wkeOnCreateView;
    EXPECT_TRUE(wkeHasAllCalled());
    wkeGC = nullptr; // is only looked up
    EXPECT_TRUE(wkeHasAllCalled());
}
