#include <windows.h>

#include <fstream>
#include <sstream>
#include <string>

// Holds the installed files against the package's own list, files.txt (one "SIZE NAME" a
// line), and writes what it finds to repair.log. Exit code 0 if nothing is missing.

namespace {

bool hasSize(const std::wstring& name, unsigned long long size) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    return GetFileAttributesExW(name.c_str(), GetFileExInfoStandard, &data) &&
           (static_cast<unsigned long long>(data.nFileSizeHigh) << 32 | data.nFileSizeLow) == size;
}

std::wstring wide(const std::string& text) {
    std::wstring result(text.size(), 0);
    const int length = static_cast<int>(text.size());
    result.resize(
        static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), length)));
    return result;
}

void goToOwnFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    *(wcsrchr(path, L'\\') + 1) = 0;
    SetCurrentDirectoryW(path);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    goToOwnFolder();
    std::ifstream list("files.txt");
    std::ofstream report("repair.log");
    int good = 0, bad = 0;
    for (std::string line; std::getline(list, line);) {
        std::istringstream fields(line);
        unsigned long long size = 0;
        std::string name;
        fields >> size >> std::ws;
        std::getline(fields, name);
        if (hasSize(wide(name), size)) {
            ++good;
        } else {
            ++bad;
            report << "damaged or missing: " << name << "\n";
        }
    }
    report << good << " files good, " << bad << " bad\n";
    return bad == 0 ? 0 : 1;
}
