#include "tests/utility/support.h"

#include "utility/files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace test {

namespace {

std::wstring newTempPath() {
    static int number = 0;
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    return std::wstring(folder) + L"vyn test \x0e17\x4e2d " + std::to_wstring(GetTickCount64()) + L"-" +
           std::to_wstring(++number) + L"\\";
}

} // namespace

TempFolder::TempFolder() : path(newTempPath()) {
    if (!CreateDirectoryW(path.c_str(), nullptr))
        ADD_FAILURE() << "no temporary folder, error " << GetLastError();
}

TempFolder::~TempFolder() {
    EXPECT_TRUE(utility::ufile::removeDir(path));
}

std::string readFile(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::wstring& path, const std::string& bytes) {
    std::ofstream file(std::filesystem::path(path), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(file.flush());
}

std::wstring childProgram() {
    return utility::ufile::getModuleDir() + L"utility_child.exe";
}

} // namespace test
