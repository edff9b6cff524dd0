#include "bench/publisher_process.h"
#include "utility/files.h"
#include "utility/handles.h"

#include <benchmark/benchmark.h>

#include <psapi.h>

#include <chrono>
#include <optional>
#include <string>

// What a user waits for after a double click: from the start of the process to the first
// frame on the screen, of the launcher and of an empty window in turn, both seen from
// outside in the same way. And what the launcher keeps of the machine's memory when it
// rests with both pages in its panels.
//
// The launcher runs in a folder of its own, with its engine, against a publisher on the
// port that the build names.

namespace {

using Clock = std::chrono::steady_clock;

constexpr int PublisherPort = 18080;
constexpr int StartLimit = 30000, PageLimit = 20000; // milliseconds
constexpr COLORREF Backdrop = RGB(1, 2, 3);          // a colour of neither program

// The screen's colour at the middle of a window.
COLORREF colorInTheMiddle(HDC screen, HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return GetPixel(screen, (place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

// Covers the screen, so that a first frame can be told from what was there before.
class BackdropWindow {
public:
    BackdropWindow() {
        const int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
        window = CreateWindowExW(WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, width, height,
                                 nullptr, nullptr, nullptr, nullptr);
        for (int round = 0; round < 200 && colorInTheMiddle(screen, window) != Backdrop; ++round) {
            paint();
            Sleep(10);
        }
    }
    ~BackdropWindow() {
        ReleaseDC(nullptr, screen);
        DestroyWindow(window);
    }
    BackdropWindow(const BackdropWindow&) = delete;
    BackdropWindow& operator=(const BackdropWindow&) = delete;

    // After a program has left a hole in it.
    void restore() {
        SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        paint();
    }

    bool isCovered(HWND by) const {
        if (!IsWindowVisible(by))
            return false;
        const COLORREF color = colorInTheMiddle(screen, by);
        return color != Backdrop && color != RGB(0, 0, 0); // black: shown, and not yet painted
    }

private:
    void paint() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        const HDC dc = GetDC(window);
        const HBRUSH brush = CreateSolidBrush(Backdrop);
        RECT area{};
        GetClientRect(window, &area);
        FillRect(dc, &area, brush);
        DeleteObject(brush);
        ReleaseDC(window, dc);
        GdiFlush();
    }

    HDC screen = GetDC(nullptr);
    HWND window = nullptr;
};

// A program that runs until the object goes.
class Program {
public:
    Program(const std::wstring& path, const wchar_t* mainWindowClass) : windowClass(mainWindowClass) {
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION information = {};
        std::wstring line = L"\"" + path + L"\"";
        started = Clock::now();
        if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &information))
            return;
        process.reset(information.hProcess);
        utility::KernelHandle(information.hThread).reset();
    }
    ~Program() {
        if (!process)
            return;
        TerminateProcess(process.get(), 0);
        WaitForSingleObject(process.get(), INFINITE);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Seconds from the start to the first frame on the screen; negative if none came.
    double waitForFrame(const BackdropWindow& backdrop) {
        while (Clock::now() - started < std::chrono::milliseconds(StartLimit)) {
            if (const HWND found = window(); found && backdrop.isCovered(found))
                return std::chrono::duration<double>(Clock::now() - started).count();
            Sleep(1);
        }
        return -1;
    }

    HWND window() const { return FindWindowW(windowClass, nullptr); }

    // PagefileUsage is what Windows calls the private bytes. Wine counts all memory of the
    // process there that is no file's, its own share included.
    double privateMegabytes() const {
        PROCESS_MEMORY_COUNTERS memory = {};
        GetProcessMemoryInfo(process.get(), &memory, sizeof memory);
        return static_cast<double>(memory.PagefileUsage) / (1 << 20);
    }

private:
    const wchar_t* windowClass;
    Clock::time_point started;
    utility::KernelHandle process;
};

constexpr wchar_t LauncherClass[] = L"QZVYMainFrame";
constexpr wchar_t EmptyClass[] = L"EmptyWindow";

std::wstring emptyProgram() {
    return utility::ufile::getModuleDir() + L"empty_window.exe";
}

// A launcher as it is installed, beside a publisher with pages.
class Installation {
public:
    Installation() {
        utility::ufile::removeDir(folder);
        utility::ufile::makeDir(folder);
        for (const wchar_t* name : {L"tkvyn.exe", L"node.dll"})
            utility::ufile::copyFile(utility::ufile::getModuleDir() + name, folder + name, false);
        const char pages[] = PUBLISHER_PAGES;
        publisher.emplace(std::wstring(pages, pages + sizeof pages - 1), PublisherPort);
    }
    ~Installation() {
        publisher.reset();
        utility::ufile::removeDir(folder);
    }
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;

    bool stands() const { return publisher->port() != 0; }
    std::wstring program() const { return folder + L"tkvyn.exe"; }

private:
    static std::wstring makeName() {
        wchar_t temp[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, temp);
        return std::wstring(temp) + L"vynbench-start\\";
    }

    std::wstring folder = makeName();
    std::optional<bench::PublisherProcess> publisher;
};

double secondsToFrame(benchmark::State& state, BackdropWindow& backdrop, const std::wstring& path,
                      const wchar_t* windowClass) {
    Program program(path, windowClass);
    const double seconds = program.waitForFrame(backdrop);
    backdrop.restore();
    if (seconds < 0)
        state.SkipWithError("no frame came");
    return seconds;
}

void startToFirstFrame(benchmark::State& state) {
    const Installation installation;
    if (!installation.stands()) {
        state.SkipWithError("publisher.exe does not start");
        return;
    }
    BackdropWindow backdrop;
    double launcher = 0, empty = 0;
    for (auto _ : state) {
        empty += secondsToFrame(state, backdrop, emptyProgram(), EmptyClass);
        const double seconds = secondsToFrame(state, backdrop, installation.program(), LauncherClass);
        state.SetIterationTime(seconds);
        launcher += seconds;
    }
    state.counters["empty_window_ms"] = empty * 1000 / static_cast<double>(state.iterations());
    state.counters["ratio"] = launcher / empty;
}

BOOL CALLBACK countIfVisible(HWND child, LPARAM count) {
    *reinterpret_cast<int*>(count) += IsWindowVisible(child) != 0;
    return TRUE;
}

// A panel shows itself when its page is there.
bool waitForPanels(const Program& program) {
    for (int waited = 0; waited < PageLimit; waited += 50) {
        int panels = 0;
        EnumChildWindows(program.window(), countIfVisible, reinterpret_cast<LPARAM>(&panels));
        if (panels == 2)
            return true;
        Sleep(50);
    }
    return false;
}

double restingMegabytes(benchmark::State& state, BackdropWindow& backdrop, const std::wstring& path,
                        const wchar_t* windowClass, bool withPanels) {
    Program program(path, windowClass);
    if (program.waitForFrame(backdrop) < 0 || (withPanels && !waitForPanels(program)))
        state.SkipWithError("the window is not complete");
    Sleep(3000); // the fetching threads end, and their buffers go
    const double size = program.privateMegabytes();
    backdrop.restore();
    return size;
}

void idleMemory(benchmark::State& state) {
    const Installation installation;
    if (!installation.stands()) {
        state.SkipWithError("publisher.exe does not start");
        return;
    }
    BackdropWindow backdrop;
    for (auto _ : state) {
        state.counters["private_MB"] =
            restingMegabytes(state, backdrop, installation.program(), LauncherClass, true);
        state.counters["empty_window_MB"] =
            restingMegabytes(state, backdrop, emptyProgram(), EmptyClass, false);
    }
}

} // namespace

BENCHMARK(startToFirstFrame)->Iterations(10)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(idleMemory)->Iterations(1)->Unit(benchmark::kMillisecond);
