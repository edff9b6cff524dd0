#include "launcher/qzvy/CrashReport.h"

#include "utility/files.h"
#include "utility/log.h"
#include "utility/windows.h"

namespace {

constexpr char Function[] = "initCrashReport";

using InitBugReport = int(__cdecl*)(const wchar_t* product, const wchar_t* version, const wchar_t* channel);
using SetShowReportUI = void(__cdecl*)(int show);
using SetPath = void(__cdecl*)(const wchar_t* path); // SetRestartExePath, AddCustomReportFile

template <class Export>
Export find(HMODULE library, const char* name) {
    return reinterpret_cast<Export>(GetProcAddress(library, name));
}

void configure(HMODULE library) {
    const auto showUI = find<SetShowReportUI>(library, "SetShowReportUI");
    if (!showUI)
        return;
    showUI(0);
    const auto restartPath = find<SetPath>(library, "SetRestartExePath");
    if (!restartPath)
        return;
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    restartPath(program);
    if (const auto addFile = find<SetPath>(library, "AddCustomReportFile"))
        addFile((utility::ufile::getModuleDir() + L"log\\vynmain.log").c_str());
}

} // namespace

void initCrashReport() {
    common::log(Function, __LINE__, L"initCrashReport start");
    // Stays loaded for the life of the process: it watches to the end.
    const HMODULE library = LoadLibraryW((utility::ufile::getModuleDir() + L"crashreport.dll").c_str());
    if (!library) {
        common::log(Function, __LINE__, L"initCrashReport error 1");
        return;
    }
    const auto init = find<InitBugReport>(library, "InitBugReport");
    if (!init) {
        common::log(Function, __LINE__, L"initCrashReport error 2");
        return;
    }
    const int result = init(L"qzvy", L"1.0.0", L"vy");
    common::log(Function, __LINE__, L"initCrashReport ret %d", result != 0 ? 1 : 0);
    configure(library);
}
