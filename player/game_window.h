#pragma once

#include <windows.h>

// The window of the "game": a night sky over a slope of hills, titled "VYN Game", until
// the user closes it. Runs its own message loop on the calling thread.

namespace player {

void runGameWindow(HINSTANCE instance, int show);

} // namespace player
