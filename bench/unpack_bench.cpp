#include "archive/extract.h"
#include "utility/files.h"
#include "utility/handles.h"

#include <psapi.h>

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

// Unpacking a large solid block: what it needs of memory, and its pace beside the SDK's
// own sample extractor. Both run as programs of their own, so that both pay for their
// start; they write to the same disk in turn.

namespace fs = std::filesystem;

namespace {

constexpr double mebibyte = 1 << 20;
constexpr double dictionary = 32 * mebibyte; // as make_unpack_archive.py packs
constexpr double unpacked = 8 * 26 * mebibyte;

const fs::path archivePath = UNPACK_ARCHIVE;

fs::path emptyFolder() {
    const fs::path folder = fs::temp_directory_path() / "vynbench-unpack";
    if (fs::exists(folder))
        utility::ufile::removeDir(folder.wstring());
    fs::create_directories(folder);
    return folder;
}

bool runProgram(std::wstring commandLine, const fs::path& folder) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES; // with none: its output is not of interest
    PROCESS_INFORMATION started = {};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.wstring().c_str(), &startup, &started))
        return false;
    utility::KernelHandle process(started.hProcess), thread(started.hThread);
    WaitForSingleObject(process.get(), INFINITE);
    DWORD code = 1;
    return GetExitCodeProcess(process.get(), &code) && code == 0;
}

PROCESS_MEMORY_COUNTERS memoryNow() {
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters;
}

// Means something only as long as nothing before it needed more: it stands first.
void unpackMemory(benchmark::State& state) {
    for (auto _ : state) {
        const fs::path folder = emptyFolder();
        const double before = static_cast<double>(memoryNow().WorkingSetSize);
        if (archive::extractArchive(archivePath.wstring(), folder.wstring(), nullptr) != archive::Ok)
            state.SkipWithError("not unpacked: is the archive made?");
        const double used = static_cast<double>(memoryNow().PeakWorkingSetSize) - before;
        state.counters["peak_MiB"] = used / mebibyte;
        state.counters["above_dictionary_MiB"] = (used - dictionary) / mebibyte;
    }
}

double secondsOf(benchmark::State& state, const std::wstring& commandLine) {
    const fs::path folder = emptyFolder();
    LARGE_INTEGER ticks, start, end;
    QueryPerformanceFrequency(&ticks);
    QueryPerformanceCounter(&start);
    if (!runProgram(commandLine, folder))
        state.SkipWithError("the program failed");
    QueryPerformanceCounter(&end);
    return static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(ticks.QuadPart);
}

void unpackBesideSample(benchmark::State& state) {
    const std::wstring tail = L" \"" + archivePath.wstring() + L"\"";
    const std::wstring ownLine =
        L"\"" + utility::ufile::getModuleDir() + L"vynkit.exe\" unpack" + tail + L" .";
    const std::wstring sampleLine = L"\"" + fs::path(SAMPLE_EXTRACTOR).wstring() + L"\" x" + tail;
    double own = 0, sample = 0;
    for (auto _ : state) {
        const double seconds = secondsOf(state, ownLine);
        state.SetIterationTime(seconds);
        own += seconds;
        sample += secondsOf(state, sampleLine);
    }
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["own_MiB_per_s"] = unpacked / mebibyte * rounds / own;
    state.counters["sample_MiB_per_s"] = unpacked / mebibyte * rounds / sample;
    state.counters["ratio"] = sample / own;
}

} // namespace

BENCHMARK(unpackMemory)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(unpackBesideSample)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
