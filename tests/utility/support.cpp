#include "tests/utility/support.h"

#include "utility/files.h"

#include <gtest/gtest.h>

#include <algorithm>
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

kit::ProcessCounts counts() {
    kit::ProcessCounts now;
    EXPECT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), now));
    return now;
}

void expectNoLeak(int rounds, const std::function<void()>& round) {
    for (int i = 0; i < std::min(rounds, 3); ++i) // the first ones may load what stays for good
        round();
    counts();
    const kit::ProcessCounts before = counts();
    for (int i = 0; i < rounds; ++i)
        round();
    const kit::ProcessCounts after = counts();
    EXPECT_LE(after.handles, before.handles);
    EXPECT_LE(after.threads, before.threads);
    EXPECT_LE(after.windows, before.windows);
}

std::wstring childProgram() {
    return utility::ufile::getModuleDir() + L"utility_child.exe";
}

} // namespace test
