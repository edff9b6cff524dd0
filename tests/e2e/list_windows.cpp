#include "kit/process_counts.h"
#include "utility/windows.h"

#include <cstdio>

// Prints the visible windows of the launcher from the top down, one a line: class, left,
// top, width, height, and whether the window takes input. Their titles are empty, so that
// the display cannot tell one from another.

namespace {

BOOL CALLBACK print(HWND window, LPARAM launcher) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    RECT place = {};
    char name[256] = {};
    if (process != static_cast<DWORD>(launcher) || !IsWindowVisible(window) ||
        !GetWindowRect(window, &place) || !GetClassNameA(window, name, sizeof name))
        return TRUE;
    printf("%s\t%ld\t%ld\t%ld\t%ld\t%s\n", name, place.left, place.top, place.right - place.left,
           place.bottom - place.top, IsWindowEnabled(window) ? "enabled" : "disabled");
    return TRUE;
}

} // namespace

int main() {
    const DWORD launcher = kit::findProcess(L"tkvyn.exe");
    if (launcher)
        EnumWindows(print, static_cast<LPARAM>(launcher));
    return 0;
}
