#include <windows.h>

#include <fstream>

// Stands for the set-up of the emulator's driver: leaves a line in driverconfig.log
// beside itself, so that one can see that it ran.

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    *(wcsrchr(path, L'\\') + 1) = 0;
    SetCurrentDirectoryW(path);
    std::ofstream("driverconfig.log", std::ios::app) << "driver configured\n";
    return 0;
}
