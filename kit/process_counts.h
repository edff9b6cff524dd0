#pragma once

#include "utility/windows.h"

// What a process holds at a moment, for finding leaks.

namespace kit {

struct ProcessCounts {
    unsigned handles = 0;
    unsigned threads = 0;
    unsigned windows = 0; // top-level, hidden ones and message-only ones included
    unsigned gdi = 0;
};

// False when the process cannot be opened.
bool readProcessCounts(DWORD processId, ProcessCounts& counts);

// The first process whose program file has this name, case-blind; 0 if none runs.
DWORD findProcess(const wchar_t* programName);

} // namespace kit
