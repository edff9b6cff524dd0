// One flow at a time: starting and stopping its worker, the two sources of a download,
// and the progress that the user sees.

#include "launcher/qzvy/Progress.h"
#include "launcher/qzvy/QzVyMainFrame.h"
#include "launcher/qzvy/QzVyModel.h"
#include "uilib/core/paint_manager.h"
#include "utility/curl_downloader.h"
#include "utility/encoding.h"
#include "utility/files.h"
#include "utility/log.h"

#include <utility>

using namespace utility;
using UILib::languageText;

namespace {

constexpr unsigned JoinTime = 1000; // milliseconds that the window may stand still
constexpr unsigned RetryPause = 100;
constexpr uint32_t ReportInterval = 1000;

// A forced stop may leave a handle to the partial file open, which blocks its renaming
// until the process ends; a copy is still possible.
void keepDownload(const std::wstring& partial, const std::wstring& target) {
    if (!ufile::moveFile(partial, target, ufile::MoveReplaceAndCopy) &&
        ufile::copyFile(partial, target, false))
        ufile::removeFile(partial);
}

} // namespace

void QzVyMainFrame::startFlow(const char* operation, common::Runable* body) {
    if (flowState == Running) {
        common::log(operation, __LINE__, L"error!");
        body->release();
        return;
    }
    downloadThread.join(JoinTime);
    stopFlag = false;
    flowState = Running;
    paused = false;
    view.setPaused(paused);
    if (failed)
        clearDownloadPage();
    installDir = QzVyModel::instance().getPathDir();
    downloader = std::make_unique<CHttpDownloader>();
    bytesSinceTick = 0;
    announcedSize = 0;
    workerAlive = true;
    if (downloadThread.start(body))
        return;
    body->release();
    workerAlive = false;
    flowState = Idle;
    showFailure(FlowFailure::NoDownload);
}

void QzVyMainFrame::stopFlow() {
    stopFlag = true;
    flowState = Idle;
    downloader->stop();
    downloadThread.join(JoinTime);
    workerAlive = false;
}

void QzVyMainFrame::onPauseBtnClicked() {
    if (flowState == Running) {
        stopFlow();
        paused = true;
        view.setPaused(paused);
    } else {
        tryAgain();
    }
}

// A paused flow goes on as the player's; a game package that could not be had is tried again
// as what it was, for the player is there already.
void QzVyMainFrame::tryAgain() {
    showInstallingTab();
    if (failed && gameFlow)
        startDownloadApk();
    else
        startDownloadPlayer();
}

bool QzVyMainFrame::download(const char* function, const std::wstring& address, const std::wstring& target,
                             uint32_t& lastDownloaded) {
    if (!downloadWithWinInet(function, address, target) && !stopFlag)
        downloadWithCurl(function, address, target, lastDownloaded);
    return !stopFlag;
}

bool QzVyMainFrame::downloadWithWinInet(const char* function, const std::wstring& address,
                                        const std::wstring& target) {
    const std::wstring partial = target + L".tmp";
    for (int round = 0; round < 2 && !stopFlag; ++round) {
        if (downloader->download2file(address, partial, this, true)) {
            common::log(function, __LINE__, L"ie download file sucess %s", target.c_str());
            keepDownload(partial, target);
            return true;
        }
        Sleep(RetryPause);
    }
    return false;
}

void QzVyMainFrame::downloadWithCurl(const char* function, const std::wstring& address,
                                     const std::wstring& target, uint32_t& lastDownloaded) {
    const std::wstring partial = target + L".tmp";
    const auto progress = [&](int percent, int downloaded, int total) {
        reportCurlProgress(percent, downloaded, total, lastDownloaded);
    };
    for (int round = 0; round < 2; ++round) {
        if (QzCurlDownloader::downloadFile(wideToAnsi(partial), wideToAnsi(address), progress)) {
            common::log(function, __LINE__, L"curl download file sucess %s", target.c_str());
            keepDownload(partial, target);
            return;
        }
        Sleep(RetryPause);
    }
}

bool QzVyMainFrame::onHttpDownload(const void*, uint32_t length, uint32_t received, uint32_t total) {
    bytesSinceTick += length;
    announcedSize = total;
    const uint32_t now = GetTickCount();
    if (now - lastTick >= ReportInterval) {
        common::postToWindowThread([this, received, total, speed = bytesSinceTick] {
            updateDownloadProgress(percentOf(received, total), received, total, speed);
        });
        bytesSinceTick = 0;
        lastTick = now;
    }
    return !stopFlag;
}

FlowFailure QzVyMainFrame::judgeMissingDownload(const std::wstring& target) const {
    const uint64_t arrived = ufile::sizeOfPartial(target + L".tmp");
    const uint64_t missing = announcedSize > arrived ? announcedSize - arrived : 0;
    return judgeDownload(ufile::freeSpace(ufile::getParentDir(target)), missing);
}

void QzVyMainFrame::failFlow(FlowFailure failure) {
    flowState = Idle;
    common::postToWindowThread([this, failure] {
        if (flowState == Idle && !stopFlag) // the user was not faster
            showFailure(failure);
    });
}

// On the download page also when it was the installation that failed: there is the button
// that tries again.
void QzVyMainFrame::showFailure(FlowFailure failure) {
    const char* key = failureText(failure);
    common::log("QzVyMainFrame::showFailure", __LINE__, L"tell the user: %S", key);
    failed = true;
    view.showPages(true);
    view.selectPage(Page::Download);
    view.setDownloadTexts(languageText(key), L"", L"");
    view.setPaused(true);
}

void QzVyMainFrame::clearDownloadPage() {
    failed = false;
    percent = 0;
    view.setDownloadTexts(languageText("launcher_downloading"), languageText("launcher_lefttime"),
                          languageText("launcher_speed"));
    view.setDownloadProgress(0, 1);
}

// The speed is what came since the report before, also across a pause.
void QzVyMainFrame::reportCurlProgress(int percent, int downloaded, int total, uint32_t& lastDownloaded) {
    // Past 2 GiB the sizes come as negative numbers.
    const auto done = static_cast<uint32_t>(downloaded);
    const auto whole = static_cast<uint32_t>(total);
    const uint32_t last = std::exchange(lastDownloaded, done);
    const uint32_t speed = done > last ? done - last : 0;
    common::postToWindowThread(
        [this, percent, done, whole, speed] { updateDownloadProgress(percent, done, whole, speed); });
}

void QzVyMainFrame::updateDownloadProgress(int newPercent, uint64_t done, uint64_t total, uint64_t speed) {
    percent = newPercent;
    view.setDownloadTexts(languageText("launcher_downloading") + amountText(done, total),
                          languageText("launcher_lefttime") + timeLeftText(done, total, speed),
                          languageText("launcher_speed") + speedText(speed));
    view.setDownloadProgress(percent, percent >= 1 ? iconOffset(percent) : 1);
}

void QzVyMainFrame::enterInstallPhase() {
    // A flow that was stopped meanwhile has given the window back already.
    if (stopFlag)
        return;
    installPercent = 0;
    view.setInstallProgress(0, 1);
    view.selectPage(Page::Install);
    installTimer.stop();
    auto* tick = new common::MemberFuncRunable(this, &QzVyMainFrame::tickInstallBar);
    if (!installTimer.start(1000, tick))
        tick->release();
}

void QzVyMainFrame::tickInstallBar() {
    installPercent = nextInstallPercent(installPercent);
    view.setInstallProgress(installPercent, iconOffset(installPercent));
}
