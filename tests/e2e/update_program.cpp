#include "utility/windows.h"

#include <fstream>
#include <string>

// What the publisher offers as the new launcher: leaves the argument that it was started
// with in argument.txt beside itself.

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR commandLine, int) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    *(wcsrchr(path, L'\\') + 1) = 0;
    SetCurrentDirectoryW(path);
    std::string text;
    for (const wchar_t* c = commandLine; *c; ++c)
        text += *c < 128 ? static_cast<char>(*c) : '?';
    std::ofstream("argument.part") << text;
    MoveFileExW(L"argument.part", L"argument.txt", MOVEFILE_REPLACE_EXISTING);
    return 0;
}
