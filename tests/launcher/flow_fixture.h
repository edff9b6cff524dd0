#pragma once

#include "tests/launcher/main_window.h"
#include "tests/support/log_watch.h"

#include <algorithm>

// The flows of the main window, driven by its buttons, against the publisher of the test.

namespace launcher_test {

inline constexpr wchar_t Package[] = L"vynen_3.1.7z";
inline constexpr wchar_t Partial[] = L"vynen_3.1.7z.tmp";
inline constexpr char PackagePath[] = "/player.7z";
inline constexpr char GamePath[] = "/game.apk";
inline constexpr wchar_t GamePackage[] = L"my 게임\\vyn_app_sea_5210.apk";
inline constexpr wchar_t Client[] = L"my 게임\\vynclient.exe";

class Flow : public MainWindow {
protected:
    void SetUp() override {
        MainWindow::SetUp();
        // No package of a test brings programs, and taskkill is none here.
        for (const wchar_t* line : {L"createProcess failed", L"execute failed", L"shellEx"})
            test::allowErrors(line);
        server.publish("/vyn/qzvyn",
                       R"({"sea":{"url":")" + server.url(PackagePath) + R"(","vershow":"3.1"}})");
    }

    void clickStart() { click(L"startBtn"); }
    void clickPause() { click(L"pauseBtn"); }

    void publishPlayer() { server.publish(PackagePath, read(L"player.7z")); }

    // An installed game below the limit; its client is no program.
    void publishGame(const std::string& bytes) {
        server.publish(GamePath, bytes);
        server.publish("/vyn/config_sea.data",
                       R"({"appminversion":5210,"apkurl":")" + server.url(GamePath) + "\"}");
        runConfigThread(model());
        write(Client, "no program");
        write(L"my 게임\\data\\appversion1000", "5000");
        frame->_checkGameAndAppVersion();
    }

    // As the stage's; the lines of the two clients are then no surprise.
    void addFault(const std::string& path, publisher::FaultKind kind, uint64_t number = 0,
                  unsigned times = 0) {
        for (const wchar_t* line : {L"curl download error", L"onHttpErro", L"read error", L"http"})
            test::allowErrors(line);
        MainWindow::addFault(path, kind, number, times);
    }

    // The folder tells it, also while the file is open.
    static size_t sizeOfPartial() {
        WIN32_FILE_ATTRIBUTE_DATA data = {};
        GetFileAttributesExW(at(Partial).c_str(), GetFileExInfoStandard, &data);
        return data.nFileSizeLow;
    }
    bool pumpUntilPartial(size_t bytes) {
        return pumpUntil([=] { return sizeOfPartial() >= bytes; });
    }
    bool pumpUntilInstalled() {
        return pumpUntilLogged(L"driverconfig.exe], param") &&
               pumpUntil([this] { return control(L"startBtn").IsEnabled(); });
    }
    // What the user reads, by its key.
    bool pumpUntilTold(const std::wstring& key) { return pumpUntilLogged(L"tell the user: " + key); }
    static bool pumpUntilThere(const wchar_t* package) {
        return pumpUntil([=] { return exists(package); });
    }
    bool wasAskedFrom(size_t offset) const {
        const std::string range = "bytes=" + std::to_string(offset) + "-";
        return std::ranges::any_of(server.requests(), [&](const auto& request) {
            return request.path == PackagePath && request.range == range;
        });
    }
};

} // namespace launcher_test
