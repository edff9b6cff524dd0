#include "utility/windows.h"

#include <fstream>
#include <string>

// The browser of the tests: writes the address that it is to open, one a line, into
// links.txt beside itself.

int wmain(int count, wchar_t** arguments) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    *(wcsrchr(path, L'\\') + 1) = 0;
    SetCurrentDirectoryW(path);
    std::string line;
    for (const wchar_t* c = count == 2 ? arguments[1] : L"wrong count of arguments"; *c; ++c)
        line += *c < 128 ? static_cast<char>(*c) : '?';
    std::ofstream("links.txt", std::ios::app) << line + "\n";
    return 0;
}
