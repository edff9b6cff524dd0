// Bringing a game package: download it and hand it to the game client, which installs it
// and reports by message. What was there of an earlier try is not continued.

#include "launcher/qzvy/ClientStart.h"
#include "launcher/qzvy/PlayerPackage.h"
#include "launcher/qzvy/QzVyMainFrame.h"
#include "launcher/qzvy/QzVyModel.h"
#include "launcher/qzvy/WorkerMark.h"
#include "utility/files.h"
#include "utility/log.h"

using namespace utility;

namespace {

constexpr char Function[] = "QzVyMainFrame::_threadDownloadApk";

void removeIfThere(const std::wstring& path) {
    if (ufile::isExist(path))
        ufile::removeFile(path);
}

} // namespace

void QzVyMainFrame::startDownloadApk() {
    gameFlow = true;
    startFlow("QzVyMainFrame::startDownloadApk",
              new common::MemberFuncRunable(this, &QzVyMainFrame::_threadDownloadApk));
}

// The flow stays running when its worker ends: the client's message ends it. Without a
// package that message will not come, and the flow has failed.
void QzVyMainFrame::_threadDownloadApk() {
    static uint32_t lastDownloaded = 0;
    const WorkerMark mark(workerAlive);
    const QzVyModel& model = QzVyModel::instance();
    const int version = model.appMinVersion;
    const std::wstring package = installDir + gamePackageName(version);
    common::log(Function, __LINE__, L" download file %s", package.c_str());
    removeIfThere(package + L".tmp");
    removeIfThere(package);
    if (!download(Function, model.getApkUrl(), package, lastDownloaded))
        return;
    common::postToWindowThread([this] { enterInstallPhase(); });
    needGameUpdate = false;
    writeAppVersion(version);
    startClient(installDir + L"\\vynclient.exe", installCommand(package));
    if (!ufile::isExist(package))
        failFlow(judgeMissingDownload(package));
}
