#include "utility/process.h"

#include "utility/handles.h"
#include "utility/log.h"
#include "utility/system.h"

#include <shellapi.h>

namespace utility::process {

namespace {

bool elevates(bool runas) {
    return runas && usystem::isVistaOrLater();
}

int showCommand(bool show) {
    return show ? SW_SHOW : SW_HIDE;
}

// True only for an exit code of 0 within the time. function and name open the log lines.
bool endsWell(HANDLE process, unsigned timeoutMs, const char* function, const wchar_t* name) {
    const DWORD waited = WaitForSingleObject(process, timeoutMs);
    if (waited == WAIT_OBJECT_0) {
        DWORD exitCode = static_cast<DWORD>(-1);
        GetExitCodeProcess(process, &exitCode);
        common::log(function, __LINE__, L"%s exitcode = %d lastError = %d", name, exitCode, GetLastError());
        return exitCode == 0;
    }
    if (waited == WAIT_TIMEOUT)
        common::log(function, __LINE__, L"%s timeout!!!", name);
    else
        common::log(function, __LINE__, L"%s failed!!! lastError = %d", name, GetLastError());
    return false;
}

} // namespace

bool shell(const std::wstring& file, const std::wstring& parameters, bool runas, bool show) {
    constexpr char function[] = "utility::process::shell";
    common::log(function, __LINE__, L"shell filename = [%s], param = [%s], runas = %d, show = %d",
                file.c_str(), parameters.c_str(), runas, show);
    const wchar_t* verb = elevates(runas) ? L"runas" : L"open";
    const HINSTANCE result =
        ShellExecuteW(nullptr, verb, file.c_str(), parameters.c_str(), nullptr, showCommand(show));
    const DWORD error = GetLastError();
    common::log(function, __LINE__, L"shellEx ret . lastError = %d", error);
    if (reinterpret_cast<INT_PTR>(result) > 32)
        return true;
    common::log(function, __LINE__, L"shellEx failed!!! lastError = %d", error);
    return false;
}

bool shellEx(const std::wstring& file, const std::wstring& parameters, bool runas, bool show,
             unsigned timeoutMs) {
    constexpr char function[] = "utility::process::shellEx";
    common::log(function, __LINE__,
                L"shellEx filename = [%s], param = [%s], runas = %d, show = %d, timeout = %d", file.c_str(),
                parameters.c_str(), runas, show, timeoutMs);
    SHELLEXECUTEINFOW request = {};
    request.cbSize = sizeof request;
    request.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI;
    request.lpVerb = elevates(runas) ? L"runas" : nullptr;
    request.lpFile = file.c_str();
    request.lpParameters = parameters.c_str();
    request.nShow = showCommand(show);
    if (!ShellExecuteExW(&request)) {
        common::log(function, __LINE__, L"shellEx failed!!! lastError = %d", GetLastError());
        return false;
    }
    const KernelHandle process(request.hProcess);
    return timeoutMs == 0 || endsWell(process.get(), timeoutMs, function, L"shellEx");
}

HANDLE create(const std::wstring& file, const std::wstring& parameters, bool show, DWORD* processId) {
    constexpr char function[] = "utility::process::create";
    common::log(function, __LINE__, L"createProcess filename = [%s], param = [%s], show = %d", file.c_str(),
                parameters.c_str(), show);
    std::wstring commandLine = L"\"" + file + L"\"";
    if (!parameters.empty())
        commandLine += L" " + parameters;
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = static_cast<WORD>(showCommand(show));
    PROCESS_INFORMATION created = {};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, CREATE_NEW_CONSOLE, nullptr,
                        nullptr, &startup, &created)) {
        common::log(function, __LINE__, L"createProcess failed!!! lastError = %d", GetLastError());
        return nullptr;
    }
    const KernelHandle thread(created.hThread);
    if (processId)
        *processId = created.dwProcessId;
    return created.hProcess;
}

bool execute(const std::wstring& file, const std::wstring& parameters, bool show, unsigned timeoutMs) {
    constexpr char function[] = "utility::process::execute";
    const KernelHandle process(create(file, parameters, show));
    if (!process) {
        common::log(function, __LINE__, L"execute failed!!! last error = %d", GetLastError());
        return false;
    }
    return timeoutMs == 0 || endsWell(process.get(), timeoutMs, function, L"execute");
}

} // namespace utility::process
