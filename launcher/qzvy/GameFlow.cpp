// What is installed, what the start button says about it, and what a click does.

#include "launcher/qzvy/ClientStart.h"
#include "launcher/qzvy/GameState.h"
#include "launcher/qzvy/QzVyMainFrame.h"
#include "launcher/qzvy/QzVyModel.h"
#include "launcher/qzvy/version_file.h"
#include "uilib/core/paint_manager.h"
#include "utility/files.h"
#include "utility/log.h"

using namespace utility;
using UILib::languageText;

namespace {

constexpr wchar_t AppVersionFile[] = L"data\\appversion1000";
constexpr wchar_t PlayerVersionFile[] = L"playerversion";

std::wstring clientPath() {
    return QzVyModel::instance().getPathDir() + L"\\vynclient.exe";
}

} // namespace

int QzVyMainFrame::readAppVersion() const {
    return readVersionFile(QzVyModel::instance().getPathDir() + AppVersionFile);
}

int QzVyMainFrame::readPlayerVersion() const {
    return readVersionFile(QzVyModel::instance().getPathDir() + PlayerVersionFile);
}

void QzVyMainFrame::writeAppVersion(int version) {
    writeVersionFile(installDir + AppVersionFile, version);
}

void QzVyMainFrame::_checkGameAndAppVersion() {
    constexpr char Function[] = "QzVyMainFrame::_checkGameAndAppVersion";
    const QzVyModel& model = QzVyModel::instance();
    InstalledGame installed = {ufile::isExist(clientPath()), 0, 0};
    if (installed.client) {
        installed.appVersion = readAppVersion();
        installed.playerVersion = isGameVersion(installed.appVersion) ? readPlayerVersion() : 0;
        if (!isGameVersion(installed.appVersion))
            common::log(Function, __LINE__, L"read local version error:%d", installed.appVersion);
    } else {
        common::log(Function, __LINE__, L"no player");
    }
    const GameState state = judgeGame(installed, {model.appMinVersion, model.playerMinVersion});
    view.setStartText(languageText(state.startText));
    view.showPages(state.pages);
    // Only the flow that serves an update takes its flag back.
    if (state.gameUpdate)
        needGameUpdate = true;
    if (state.playerUpdate)
        needPlayerUpdate = true;
}

void QzVyMainFrame::onStartBtnClicked() {
    const StartAction action = startAction(ufile::isExist(clientPath()), needPlayerUpdate, needGameUpdate);
    if (action == StartAction::RunClient)
        return runClient();
    showInstallingTab();
    clearDownloadPage();
    if (action == StartAction::DownloadPlayer)
        startDownloadPlayer();
    else if (action == StartAction::UpdatePlayer)
        startDownloadPlayerNoData();
    else
        startDownloadApk();
}

void QzVyMainFrame::runClient() {
    startClient(clientPath(), L"");
    view.show(false);
}

void QzVyMainFrame::showInstallingTab() {
    view.selectPage(Page::Download);
    view.enableStart(false);
    view.setStartText(languageText("launcher_btn_installing"));
}

void QzVyMainFrame::finishInstall() {
    view.selectPage(Page::Path);
    QzVyModel::instance().loadPathDir();
    view.enableStart(true);
    _checkGameAndAppVersion();
}

void QzVyMainFrame::resetAfterPathChange() {
    view.enableStart(true);
    _checkGameAndAppVersion();
    if (flowState != Running)
        return;
    stopFlow();
    finishInstall();
}
