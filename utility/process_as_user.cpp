#include "utility/process.h"

#include "utility/handles.h"

#include <cwchar>
#include <tlhelp32.h>

namespace utility::process {

namespace {

constexpr size_t CommandLineCapacity = 260; // characters, the terminator included
constexpr int Failure = -1;

using CreateProcessWithToken = BOOL(WINAPI*)(HANDLE, DWORD, LPCWSTR, LPWSTR, DWORD, LPVOID, LPCWSTR,
                                             LPSTARTUPINFOW, LPPROCESS_INFORMATION);

std::wstring shellPath() {
    wchar_t folder[MAX_PATH] = {};
    GetWindowsDirectoryW(folder, MAX_PATH);
    return std::wstring(folder) + L"\\explorer.exe";
}

bool isDesktopShell(const PROCESSENTRY32W& entry, const std::wstring& shell) {
    const std::wstring path = GetProcessPath(entry.th32ProcessID);
    if (path.empty())
        return std::wcscmp(entry.szExeFile, L"explorer.exe") == 0;
    return _wcsicmp(path.c_str(), shell.c_str()) == 0 || path == L"explorer.exe";
}

// The first one that matches, whichever session it serves; empty when none runs.
KernelHandle openDesktopShell() {
    const FileOwner snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    if (!snapshot)
        return {};
    const std::wstring shell = shellPath();
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more;
         more = Process32NextW(snapshot.get(), &entry)) {
        KernelHandle process(OpenProcess(PROCESS_ALL_ACCESS, FALSE, entry.th32ProcessID));
        if (process && isDesktopShell(entry, shell))
            return process;
    }
    return {};
}

// A primary token with the rights of the desktop shell; empty on failure.
KernelHandle copyShellToken() {
    const KernelHandle shell = openDesktopShell();
    KernelHandle own;
    KernelHandle copy;
    if (shell && OpenProcessToken(shell.get(), TOKEN_DUPLICATE, own.out()))
        DuplicateTokenEx(own.get(), TOKEN_ALL_ACCESS, nullptr, SecurityImpersonation, TokenPrimary,
                         copy.out());
    return copy;
}

} // namespace

int createAsUser(const std::wstring& file, const wchar_t* parameters, bool wait) {
    const std::wstring commandLine = parameters ? L"\"" + file + L"\" " + parameters : file;
    if (commandLine.size() >= CommandLineCapacity)
        return Failure;
    const KernelHandle token = copyShellToken();
    if (!token)
        return Failure;
    const Module advapi(LoadLibraryW(L"ADVAPI32.dll"));
    if (!advapi)
        return Failure;
    const auto createWithToken =
        reinterpret_cast<CreateProcessWithToken>(GetProcAddress(advapi.get(), "CreateProcessWithTokenW"));
    if (!createWithToken)
        return Failure;
    wchar_t buffer[CommandLineCapacity]; // the call may change it
    std::wmemcpy(buffer, commandLine.c_str(), commandLine.size() + 1);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION created = {};
    if (!createWithToken(token.get(), LOGON_WITH_PROFILE, nullptr, buffer, 0, nullptr, nullptr, &startup,
                         &created))
        return Failure;
    const KernelHandle process(created.hProcess);
    const KernelHandle thread(created.hThread);
    if (wait)
        WaitForSingleObject(process.get(), INFINITE);
    return 0;
}

} // namespace utility::process
