#pragma once

#include "launcher/qzvy/MarketRecord.h"
#include "utility/windows.h"
#include "utility/worker_thread.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

// The launcher's one object of global state: the language and market that it works in,
// where player and game are installed, what the remote configuration said, and whether
// the program starts again when it has ended. Owns the launcher's registry key.
//
// It belongs to the window thread, but for the remote values: the configuration thread
// writes them once, and until then getApkUrl() and getPlayerUrl() are empty and the
// limits 0. Lives until the process ends, since its thread is never joined.

class QzVyModel {
public:
    static QzVyModel& instance();

    // Language and install folder from system and registry; then starts the
    // configuration thread. Once.
    void init();

    // The install folder of player and game, as a rule with a trailing backslash.
    std::wstring getPathDir() const { return pathDir; }
    void setPathDir(const std::wstring& path);
    void loadPathDir(); // from the registry; else the folder game beside the program, made

    std::wstring getLanguage() const { return language; }
    void loadLanguage();

    // Stores the choice for the next start and changes market and language; the texts on
    // screen stay.
    void setLanguage(const std::wstring& localeCode);

    // Writes or removes the entry that starts this program with the system.
    void setAutoRun(bool on);

    // Lets the messages of the window channel in from senders with fewer rights.
    static void addMessage();

    // Any thread.
    std::wstring getApkUrl() const { return remoteReady ? apkUrl : std::wstring(); }
    std::wstring getPlayerUrl() const { return remoteReady ? playerUrl : std::wstring(); }

    void _threadConfig();

    std::function<void()> onBackgroundReady; // a new background image has been stored
    std::function<void()> onVersionReady;    // the limits and addresses are in

    std::wstring pathDir;
    MarketRecord market;
    HWND mainWindow = nullptr; // not owned; null without a main window
    std::wstring language = L"en";
    std::wstring languageLong = L"US_EN";
    bool needRestart = false;

    std::atomic<int32_t> appMinVersion = 0;
    std::atomic<int32_t> playerMinVersion = 0;

private:
    std::wstring apkUrl;
    std::wstring playerUrl;
    std::atomic<bool> remoteReady = false; // set once, after the two addresses
    common::WorkerThread configThread;
};
