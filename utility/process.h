#pragma once

#include "utility/windows.h"

#include <string>

// Starting other programs. The launcher runs with administrator rights; the variants
// differ in how the child starts and in what rights it gets. Any thread; those with a
// time-out block the caller for that long at most. A child that outlives its time-out
// goes on running. Every failure is logged.

namespace utility::process {

// Through the shell, fire and forget; runas asks for elevation. True if accepted.
bool shell(const std::wstring& file, const std::wstring& parameters, bool runas, bool show);

// Through the shell with a wait of timeoutMs milliseconds. With 0: true once started.
// Otherwise true only for an exit code of 0 within the time.
bool shellEx(const std::wstring& file, const std::wstring& parameters, bool runas, bool show,
             unsigned timeoutMs);

// The child inherits the launcher's rights. The file is quoted, the parameters are
// written as the caller gives them. The caller owns the handle; null on failure.
HANDLE create(const std::wstring& file, const std::wstring& parameters, bool show,
              DWORD* processId = nullptr);

// create() with the wait and the result of shellEx().
bool execute(const std::wstring& file, const std::wstring& parameters, bool show, unsigned timeoutMs);

// With the rights of the desktop shell in place of the launcher's. parameters may be
// null. With wait: until the child ends. 0 for success, -1 for failure (no shell runs,
// or the system lacks the call), which is not logged: the caller has another road.
int createAsUser(const std::wstring& file, const wchar_t* parameters, bool wait);

// Full path of the program of a process; empty when it cannot be opened.
std::wstring GetProcessPath(DWORD processId);

} // namespace utility::process
