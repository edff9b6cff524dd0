#include "tests/net/net_fixture.h"

#include "tests/support/log_watch.h"
#include "utility/encoding.h"
#include "utility/files.h"
#include "utility/handles.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

void NetTest::SetUp() {
    static int number = 0;
    wchar_t temp[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, temp);
    folder = temp +
             (L"vyn_net_" + std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(++number)) +
             L"\\";
    ASSERT_TRUE(utility::ufile::makeDir(folder.substr(0, folder.size() - 1)));
    ASSERT_TRUE(server.start());
}

void NetTest::TearDown() {
    server.stop();
    EXPECT_TRUE(utility::ufile::removeDir(folder.substr(0, folder.size() - 1)));
}

std::wstring NetTest::url(const std::string& path) const {
    return utility::ansiToWide(server.url(path));
}

std::string NetTest::target(const std::string& name) const {
    return utility::wideToAnsi(folder) + name;
}

void NetTest::spoil(const std::string& rule) {
    auto parsed = publisher::parseFaultRule("/file," + rule);
    ASSERT_TRUE(parsed) << rule;
    server.addFault(parsed->path, parsed->fault);
}

std::string patternBytes(size_t size) {
    std::string bytes(size, '\0');
    uint32_t state = 1;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

std::wstring fullDisk() {
    std::wstring device = L"Z:\\dev\\full";
    utility::FileOwner file(
        CreateFileW(device.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    return file ? device : L"";
}

std::string readFile(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::wstring& path, const std::string& bytes) {
    std::ofstream(std::filesystem::path(path), std::ios::binary) << bytes;
}

int logged(const std::wstring& text) {
    test::allowErrors(text);
    return test::logged(text);
}

bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
    auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

bool ProgressProbe::onHttpDownload(const void*, uint32_t, uint32_t received, uint32_t total) {
    if (calls == 0)
        firstReceived = received;
    lastReceived = received;
    lastTotal = total;
    return ++calls != stopAtCall;
}
