#pragma once

#include "archive/extract.h"
#include "launcher/qzvy/ChildWindows.h"
#include "launcher/qzvy/FlowFailure.h"
#include "launcher/qzvy/MainFrameView.h"
#include "launcher/qzvy/WebPanels.h"
#include "utility/http_downloader.h"
#include "utility/task_dispatcher.h"
#include "utility/worker_thread.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

// The launcher's one main window and the owner of all its flows: bringing the player,
// bringing a game package, starting the game.
//
// One flow at a time runs on downloadThread. It never touches a control: results come
// back as tasks, and texts are made on the window thread from plain numbers. Members
// with an underscore that name a thread, and onHttpDownload, isContinue, onProgress and
// onResult, run on that worker; all else belongs to the window thread.
//
// Allocated with new; deletes itself after its window is destroyed, once no worker and no
// waiting task can reach it any more.

struct PlayerPackage;

class QzVyMainFrame final : public MainFrameEvents,
                            public utility::CHttpDownloader::IHttpDownloadSink,
                            public archive::SzExtractCallback {
public:
    // Runs InitWindow inside; the window is not yet shown. Null on failure.
    HWND create(DWORD style) { return view.create(style, *this); }

    MainFrameView& window() { return view; }

    void applySmallLayout(); // for heights of 800 and less

    // Compares what is installed with the limits and sets the start button accordingly.
    void _checkGameAndAppVersion();

    // Back to the path page, with a new look at what is installed. Also called when the
    // game client reports an installed game package.
    void finishInstall();

    // After the install folder has been changed: a running flow is stopped.
    void resetAfterPathChange();

    std::function<void()> onClosed; // the window is gone and quits the message loop

private:
    enum FlowState : int { Idle = -1, Running = 0 };

    void InitWindow() override;
    void onStartBtnClicked() override;
    void onPauseBtnClicked() override;
    void onCloseBtnClicked() override;
    void onSetupBtnClicked() override;
    void onBrowseInstallPath() override;
    void onLink(const char* key) override;
    void OnDestroy() override;
    void OnFinalMessage() override;

    void showSocialButtons();
    void applyInstallPath(const std::wstring& path);
    void refreshBackground();
    void onUpdateResult(const std::wstring& version, bool force);

    // Game state and start. The versions are those of the install folder; the writer runs
    // on the worker.
    int readAppVersion() const;
    int readPlayerVersion() const;
    void writeAppVersion(int version);
    void showInstallingTab();
    void runClient();

    // Flows.
    void startDownloadPlayer();       // the package that the description document names
    void startDownloadPlayerNoData(); // the package of the remote configuration
    void startDownloadApk();
    void startFlow(const char* operation, common::Runable* body);
    void tryAgain(); // the flow that failed or was paused
    void stopFlow(); // asks, waits a second, then ends the worker by force
    void _threadDownloadPlayer(bool noData);
    void _threadDownloadApk();

    // False when the flow was stopped.
    bool findPlayerPackage(PlayerPackage& found);
    bool fetchPlayerPackage(const std::wstring& address, const std::wstring& package);

    // The two sources in turn, on the worker. False when the flow was stopped; a failure
    // of both shows in the missing target. lastDownloaded: see reportCurlProgress.
    bool download(const char* function, const std::wstring& address, const std::wstring& target,
                  uint32_t& lastDownloaded);
    bool downloadWithWinInet(const char* function, const std::wstring& address, const std::wstring& target);
    void downloadWithCurl(const char* function, const std::wstring& address, const std::wstring& target,
                          uint32_t& lastDownloaded);
    void reportCurlProgress(int percent, int downloaded, int total, uint32_t& lastDownloaded);
    bool onHttpDownload(const void* data, uint32_t length, uint32_t received, uint32_t total) override;

    // Gives the reason when the installation is not complete. False when the flow was stopped.
    bool installPlayer(const std::wstring& package, FlowFailure& failure);
    void repairPlayer();

    // The end of a flow without success, on the worker.
    FlowFailure judgeMissingDownload(const std::wstring& target) const;
    void failFlow(FlowFailure failure);
    bool isContinue() override { return !stopFlag; }
    void onProgress(const wchar_t*, uint64_t, uint64_t, uint64_t, uint64_t) override {}
    void onResult(int result, const wchar_t* fileName) override;

    void showFailure(FlowFailure failure);
    void clearDownloadPage();
    void updateDownloadProgress(int percent, uint64_t done, uint64_t total, uint64_t speed);
    void enterInstallPhase();
    void tickInstallBar();

    MainFrameView view;
    ChildWindows childWindows;
    WebPanels panels;
    common::WorkerThread downloadThread;
    uint32_t lastTick = 0; // of the last report of the WinINet path, in milliseconds
    int32_t percent = 0;
    int32_t bytesSinceTick = 0;
    std::atomic<bool> stopFlag = false;
    bool paused = false;
    bool failed = false;   // the user is being told why the last flow failed
    bool gameFlow = false; // the last flow was to bring the game package
    int32_t installPercent = 0;
    common::TaskTimer installTimer;
    std::atomic<int32_t> flowState = Idle;
    std::atomic<bool> needGameUpdate = false; // set by the check, cleared by the flow that serves it
    std::atomic<bool> needPlayerUpdate = false;

    // Of the running flow, set before its worker starts.
    std::unique_ptr<utility::CHttpDownloader> downloader;
    std::wstring installDir; // the install folder may change under a running flow

    // Bytes of the whole file, as the last transfer told them; 0 while unknown. Touched by
    // the worker of the running flow alone.
    uint32_t announcedSize = 0;

    // True while a worker may touch this object.
    std::atomic<bool> workerAlive = false;

    // A package that left the player below the limit, so that it is not used again.
    // Touched by the worker of the running flow alone.
    std::wstring outdatedPackage;
};
