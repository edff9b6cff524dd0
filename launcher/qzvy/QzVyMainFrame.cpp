#include "launcher/qzvy/QzVyMainFrame.h"

#include "launcher/qzvy/BrowseFolder.h"
#include "launcher/qzvy/InstallPath.h"
#include "launcher/qzvy/QzVyModel.h"
#include "shell/QzVySetupImpl.h"
#include "uilib/core/paint_manager.h"
#include "update/QzHubUpdateModel.h"
#include "utility/files.h"
#include "utility/log.h"
#include "utility/system.h"

using namespace utility;
using UILib::languageText;

void QzVyMainFrame::InitWindow() {
    QzVyModel& model = QzVyModel::instance();
    SetWindowTextW(view.GetHWND(), L"VYN");
    view.GetPaintManager().SetDefaultFontFamily(languageText("font_name"));
    showSocialButtons();
    view.setBackground(L"rightbgControl", L"vyn\\right_bg_" + model.market.shortCode + L".png");
    view.setInstallPath(model.getPathDir());
    model.onVersionReady = [this] { _checkGameAndAppVersion(); };
    model.onBackgroundReady = [this] { refreshBackground(); };

    QzHubUpdateModel& update = QzHubUpdateModel::instance();
    update.onCheckResult = [this](const std::wstring& version, const std::wstring& content, bool force) {
        onUpdateResult(version, content, force);
    };
    update.checkVersion(true);
    _checkGameAndAppVersion();
    panels.create(view.GetHWND(), model.market.shortCode);
}

void QzVyMainFrame::applySmallLayout() {
    view.applySmallLayout();
    panels.applySmallLayout();
}

// Those that not every market has. What is no longer than that is no address.
void QzVyMainFrame::showSocialButtons() {
    constexpr size_t shortest = 10;
    const auto hasAddress = [](const char* key) { return wcslen(languageText(key)) > shortest; };
    view.setVisible(L"discordBtn", hasAddress("url_discord"));
    view.setVisible(L"behemothBtn", hasAddress("url_Behemoth"));
    view.setVisible(L"NBtn", hasAddress("url_N"));
    view.setVisible(L"setupBtn", false); // there is no settings window yet
}

void QzVyMainFrame::onLink(const char* key) {
    usystem::openUrl(languageText(key));
}

void QzVyMainFrame::onCloseBtnClicked() {
    if (QzVySetupImpl::instance().minbyclose)
        view.show(false);
    else
        view.close(1);
}

void QzVyMainFrame::onBrowseInstallPath() {
    if (const auto choice = browseForFolder(view.GetHWND(), QzVyModel::instance().getPathDir()))
        applyInstallPath(*choice);
}

void QzVyMainFrame::applyInstallPath(const std::wstring& choice) {
    const auto path = installPathOf(choice);
    if (!path)
        return;
    view.setInstallPath(*path);
    QzVyModel::instance().setPathDir(*path);
    _checkGameAndAppVersion();
}

void QzVyMainFrame::refreshBackground() {
    const std::wstring background = ufile::getModuleDir() + L"data\\launch_bg.jpg";
    if (ufile::isExist(background))
        view.setBackground(L"launchBGControl", background);
    const std::wstring image = ufile::getModuleDir() + L"data\\player_bg.jpg";
    const std::wstring folder = QzVyModel::instance().getPathDir();
    if (ufile::isExist(image) && !folder.empty())
        ufile::copyFile(image, folder + L"\\data\\launch_1920.jpg", false);
}

void QzVyMainFrame::onUpdateResult(const std::wstring& version, const std::wstring&, bool force) {
    if (version.empty())
        return;
    common::log("QzVyMainFrame::onUpdateResult", __LINE__, L"version %s, force %d", version.c_str(), force);
    if (!force)
        return;
    QzHubUpdateModel& update = QzHubUpdateModel::instance();
    update.onDownloadPercent = [](int percent) {
        if (percent == 100)
            DestroyWindow(QzVyModel::instance().mainWindow);
    };
    update.startDownload();
}

void QzVyMainFrame::OnDestroy() {
    installTimer.stop();
}

void QzVyMainFrame::OnFinalMessage() {
    QzVyModel& model = QzVyModel::instance();
    model.mainWindow = nullptr;
    model.onVersionReady = nullptr;
    model.onBackgroundReady = nullptr;
    QzHubUpdateModel::instance().onCheckResult = nullptr;
    if (onClosed)
        onClosed();
    stopFlag = true;
    // Tasks run in the order of their posts: behind this one none is left that knows the
    // object. A worker that still runs keeps it until the process ends.
    if (!workerAlive)
        common::postToWindowThread([this] { delete this; });
    PostQuitMessage(0);
}
