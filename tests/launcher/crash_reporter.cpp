// A crash reporter that only writes down how it is called. Its exports need no import library.

#include <windows.h>

#include <string>

namespace {

std::wstring* calls = nullptr; // made with the first call, never freed

void note(const std::wstring& call) {
    if (!calls)
        calls = new std::wstring;
    *calls += call + L"\n";
}

} // namespace

extern "C" {

__declspec(dllexport) int InitBugReport(const wchar_t* product, const wchar_t* version,
                                        const wchar_t* channel) {
    note(L"init " + std::wstring(product) + L" " + version + L" " + channel);
    return 5;
}

__declspec(dllexport) void SetShowReportUI(int show) {
    note(L"show " + std::to_wstring(show));
}

__declspec(dllexport) void SetRestartExePath(const wchar_t* path) {
    note(std::wstring(L"restart ") + path);
}

__declspec(dllexport) void AddCustomReportFile(const wchar_t* path) {
    note(std::wstring(L"file ") + path);
}

__declspec(dllexport) const wchar_t* TakenCalls() {
    return calls ? calls->c_str() : L"";
}

} // extern "C"
