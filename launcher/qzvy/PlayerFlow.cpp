// Bringing the player: find out which package is current, download, unpack, repair.

#include "launcher/qzvy/PackageCheck.h"
#include "launcher/qzvy/PlayerPackage.h"
#include "launcher/qzvy/QzVyMainFrame.h"
#include "launcher/qzvy/QzVyModel.h"
#include "launcher/qzvy/WorkerMark.h"
#include "launcher/qzvy/version_file.h"
#include "utility/curl_downloader.h"
#include "utility/encoding.h"
#include "utility/endpoints.h"
#include "utility/files.h"
#include "utility/log.h"
#include "utility/process.h"

using namespace utility;

namespace {

constexpr char Function[] = "QzVyMainFrame::_threadDownloadPlayer";

} // namespace

void QzVyMainFrame::startDownloadPlayer() {
    gameFlow = false;
    startFlow("QzVyMainFrame::startDownloadPlayer",
              new common::MemberFuncRunable1(this, &QzVyMainFrame::_threadDownloadPlayer, false));
}

void QzVyMainFrame::startDownloadPlayerNoData() {
    gameFlow = false;
    startFlow("QzVyMainFrame::startDownloadPlayerNoData",
              new common::MemberFuncRunable1(this, &QzVyMainFrame::_threadDownloadPlayer, true));
}

bool QzVyMainFrame::findPlayerPackage(PlayerPackage& found) {
    common::log(Function, __LINE__, L"get Player url");
    const std::string address = wideToAnsi(endpoints::objectStore() + L"/vyn/qzvyn");
    std::string text;
    for (int round = 0; round < 2; ++round) {
        text.clear();
        if (QzCurlDownloader::downloadMemory(address, text))
            break;
        text.clear();
        if (stopFlag)
            return false;
        Sleep(100);
    }
    found = parsePlayerPackage(text);
    return true;
}

void QzVyMainFrame::_threadDownloadPlayer(bool noData) {
    const WorkerMark mark(workerAlive);
    PlayerPackage source = PlayerPackage::builtIn();
    if (noData)
        source.address = QzVyModel::instance().getPlayerUrl();
    else if (!findPlayerPackage(source))
        return;
    common::log(Function, __LINE__, L"download url %s %s", source.version.c_str(), source.address.c_str());
    if (source.address.empty())
        return failFlow(FlowFailure::NoSource);
    const std::wstring package = ufile::getModuleDir() + playerPackageName(source.version);
    if (!fetchPlayerPackage(source.address, package))
        return;
    needPlayerUpdate = false;
    if (!ufile::isExist(package)) {
        common::log(Function, __LINE__, L"no installer file %s", package.c_str());
        return failFlow(judgeMissingDownload(package));
    }
    common::postToWindowThread([this] { enterInstallPhase(); });
    FlowFailure failure = FlowFailure::None;
    if (!installPlayer(package, failure))
        return;
    flowState = Idle;
    common::postToWindowThread([this] { finishInstall(); });
    if (failure != FlowFailure::None)
        failFlow(failure);
}

bool QzVyMainFrame::fetchPlayerPackage(const std::wstring& address, const std::wstring& package) {
    static uint32_t lastDownloaded = 0;
    if (package == outdatedPackage && ufile::removeFile(package))
        outdatedPackage.clear();
    if (ufile::isExist(package))
        return true;
    common::log(Function, __LINE__, L" download file %s", package.c_str());
    return download(Function, address, package, lastDownloaded);
}

// A stop is looked for between the steps, so that the worker ends by itself: one that is
// ended by force in the middle of a system call may take a lock of the process with it.
bool QzVyMainFrame::installPlayer(const std::wstring& package, FlowFailure& failure) {
    for (const wchar_t* victim : {L"/F /IM vynclient.exe", L"/F /IM vynmulti.exe"}) {
        if (stopFlag)
            return false;
        process::execute(L"taskkill", victim, false, 3000);
    }
    const int result = archive::extractArchive(package, installDir, this);
    failure = judgeInstallation(result, ufile::isExist(installDir + L"\\vynclient.exe"),
                                ufile::freeSpace(installDir));
    if (isBrokenPackage(result)) {
        // It would be taken for a good one at every try, and never install.
        common::log(Function, __LINE__, L"remove broken package %s", package.c_str());
        ufile::removeFile(package);
    }
    if (stopFlag)
        return false;
    common::log(Function, __LINE__, L"start run repair");
    repairPlayer();
    const int version = readVersionFile(installDir + L"playerversion");
    outdatedPackage = version < QzVyModel::instance().playerMinVersion ? package : std::wstring();
    return !stopFlag;
}

void QzVyMainFrame::onResult(int result, const wchar_t* fileName) {
    common::log("QzVyMainFrame::onResult", __LINE__, L"result:%d file:%s", result, fileName);
}
