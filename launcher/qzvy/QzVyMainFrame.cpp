#include "launcher/qzvy/QzVyMainFrame.h"

#include "launcher/qzvy/QzVyModel.h"
#include "shell/BrowseFolder.h"
#include "shell/InstallPath.h"
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
    panels.create(view.GetHWND(), model.market.shortCode);

    QzHubUpdateModel& update = QzHubUpdateModel::instance();
    update.onCheckResult = [this](const std::wstring& version, const std::wstring&, bool force) {
        onUpdateResult(version, force);
    };
    update.checkVersion(true);
    _checkGameAndAppVersion();
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

void QzVyMainFrame::onSetupBtnClicked() {
    childWindows.showSettings(view.GetHWND(), [this] {
        view.setInstallPath(QzVyModel::instance().getPathDir());
        resetAfterPathChange();
    });
}

void QzVyMainFrame::onBrowseInstallPath() {
    browseForFolder(view.GetHWND(), QzVyModel::instance().getPathDir(),
                    [this](const std::wstring& choice) { applyInstallPath(choice); });
}

void QzVyMainFrame::applyInstallPath(const std::wstring& choice) {
    const auto path = installPathOf(choice, MainWindowFolder);
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

void QzVyMainFrame::onUpdateResult(const std::wstring& version, bool force) {
    common::log("QzVyMainFrame::onUpdateResult", __LINE__, L"version %s, force %d", version.c_str(), force);
    childWindows.showUpdateResult(view.GetHWND(), version, force); // may be the end of this object
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
