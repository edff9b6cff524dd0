#pragma once

#include <windows.h>

// The game client's end of the launcher's window channel: a hidden window of a well-known
// class takes a number, both parameters 0, and answers nothing.

namespace player {

inline constexpr UINT GameEnded = 9333;
inline constexpr UINT PackageInstalled = 9334;

inline void tellLauncher(UINT message) {
    HWND window = FindWindowExW(nullptr, nullptr, L"{6A43FC71-98D6-43A1-83F3-6A53B0D557FD}", nullptr);
    if (window)
        PostMessageW(window, message, 0, 0);
}

} // namespace player
