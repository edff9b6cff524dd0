#include "tests/launcher/support.h"

#include "tests/support/log_watch.h"
#include "utility/encoding.h"
#include "utility/files.h"
#include "utility/task_dispatcher.h"

#include <algorithm>
#include <chrono>
#include <future>

using namespace utility;

namespace launcher_test {

namespace {

// One for each program, since they may run side by side.
std::wstring registryKey() {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return L"Software\\vyn test of " + std::wstring(wcsrchr(program, L'\\') + 1);
}

void removeLeftovers() {
    for (const wchar_t* folder : {L"data", L"game", L"my 게임"})
        if (ufile::isExist(ufile::getModuleDir() + folder))
            ufile::removeDir(ufile::getModuleDir() + folder);
    WIN32_FIND_DATAW found;
    const FindHandle search(FindFirstFileW((ufile::getModuleDir() + L"vynen_*").c_str(), &found));
    for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.get(), &found))
        ufile::removeFile(ufile::getModuleDir() + found.cFileName);
}

} // namespace

void Stage::SetUp() {
    RegDeleteTreeW(HKEY_CURRENT_USER, registryKey().c_str()); // of a run that was ended by force
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, registryKey().c_str(), registry.out()), ERROR_SUCCESS);
    ASSERT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, registry.get()), ERROR_SUCCESS);
    ASSERT_TRUE(server.start());
    std::string host = server.url("/");
    host.pop_back();
    SetEnvironmentVariableW(L"VYN_PUBLISHER", ansiToWide(host).c_str());
    removeLeftovers();
    common::startServices();
    test::watchLog();
}

void Stage::TearDown() {
    server.stop();
    common::stopServices();
    removeLeftovers();
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, registryKey().c_str());
}

bool Stage::pumpUntil(const std::function<bool()>& condition, unsigned seconds) {
    const ULONGLONG deadline = GetTickCount64() + seconds * 1000;
    while (!condition()) {
        if (GetTickCount64() > deadline)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
            DispatchMessageW(&message);
    }
    return true;
}

void Stage::runConfigThread(QzVyModel& model) {
    const auto thread = std::async(std::launch::async, [&model] { model._threadConfig(); });
    EXPECT_TRUE(
        pumpUntil([&] { return thread.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
}

bool Stage::pumpUntilLogged(const std::wstring& text, int count) {
    return pumpUntil([&] { return logged(text) >= count; });
}

int Stage::logged(const std::wstring& text) {
    return test::logged(text);
}

int Stage::requests(const std::string& path) const {
    const auto all = server.requests();
    return static_cast<int>(
        std::ranges::count_if(all, [&](const auto& request) { return request.path == path; }));
}

std::wstring Stage::at(const std::wstring& name) {
    return ufile::getModuleDir() + name;
}

bool Stage::exists(const std::wstring& name) {
    return ufile::isExist(at(name));
}

std::string Stage::read(const std::wstring& name) {
    ufile::MappedFile file;
    if (!file.open(at(name)) || !file.data())
        return {};
    return {static_cast<const char*>(file.data()), file.getSize()};
}

void Stage::write(const std::wstring& name, const std::string& content) {
    ufile::makeDir(ufile::getParentDir(at(name)));
    ufile::FileHandle file;
    ASSERT_TRUE(file.create(at(name)));
    ASSERT_TRUE(file.write(content.data(), static_cast<uint32_t>(content.size())));
    file.close();
}

std::string someBytes(size_t count) {
    std::string bytes(count, '\0');
    uint32_t state = 1;
    for (char& byte : bytes)
        byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}

} // namespace launcher_test
