#pragma once

#include "launcher/qzvy/QzVyModel.h"
#include "tests/launcher/support.h"

#include <algorithm>

// The flows of the main window, driven by its buttons without a window, against the
// publisher of the test.

namespace launcher_test {

inline constexpr wchar_t Package[] = L"vynen_3.1.7z";
inline constexpr wchar_t Partial[] = L"vynen_3.1.7z.tmp";
inline constexpr char PackagePath[] = "/player.7z";

class Flow : public Stage {
protected:
    void SetUp() override {
        Stage::SetUp();
        model().setPathDir(at(L"my 게임\\"));
        model().appMinVersion = 0;
        model().playerMinVersion = 0;
        server.publish("/vyn/qzvyn",
                       R"({"sea":{"url":")" + server.url(PackagePath) + R"(","vershow":"3.1"}})");
    }
    void TearDown() override {
        frame.resetAfterPathChange(); // stops what still runs
        bool drained = false;
        common::postToWindowThread([&] { drained = true; });
        pumpUntil([&] { return drained; });
        Stage::TearDown();
    }

    static QzVyModel& model() { return QzVyModel::instance(); }
    void clickStart() { buttons.onStartBtnClicked(); }
    void clickPause() { buttons.onPauseBtnClicked(); }

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
        return pumpUntilLogged(L"driverconfig.exe], param") && pumpUntilLogged(L"no player");
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

    QzVyMainFrame frame;
    MainFrameEvents& buttons = frame;
};

} // namespace launcher_test
