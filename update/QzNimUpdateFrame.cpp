#include "update/QzNimUpdateFrame.h"

#include "launcher/qzvy/QzVyModel.h"
#include "uilib/controls/progress.h"
#include "update/QzHubUpdateModel.h"
#include "utility/program_version.h"

using namespace UILib;

const WindowImplBase::MessageMap QzNimUpdateFrame::messageMap = [] {
    static constexpr Entry entries[] = {
        entry(L"click", L"updateBtn", &QzNimUpdateFrame::onUpdateClicked),
        entry(L"click", L"cancelBtn", &QzNimUpdateFrame::onCancelClicked),
    };
    return MessageMap{&WindowImplBase::messageMap, entries};
}();

void QzNimUpdateFrame::InitWindow() {
    paintManager.SetDefaultFontFamily(languageText("font_name"));
    setText(L"oldVersionLabel",
            languageText("update_currentVersion") + std::wstring(utility::ProgramVersionText));
    QzHubUpdateModel& model = QzHubUpdateModel::instance();
    model.onDownloadPercent = [this](int percent) { onDownloadPercent(percent); };
    model.onDownloadFailed = [this] { onDownloadFailed(); };
    enter(State::Offered);
}

void QzNimUpdateFrame::setUpdateInfo(const std::wstring& version, bool force) {
    const bool known = version == shownVersion;
    shownVersion = version;
    setText(L"updateVersionLabel", languageText("update_newversion") + version);
    forced = force;
    if (forced && !(known && state == State::Downloading)) // a running download goes on
        startDownload();
    else
        enter(state == State::Downloading ? state : State::Offered);
}

void QzNimUpdateFrame::startDownload() {
    setProgress(0);
    enter(State::Downloading);
    QzHubUpdateModel::instance().startDownload();
}

void QzNimUpdateFrame::onDownloadPercent(int percent) {
    setProgress(percent);
    if (percent != 100)
        return;
    Close(1);
    DestroyWindow(QzVyModel::instance().mainWindow); // takes this window along
}

void QzNimUpdateFrame::onDownloadFailed() {
    enter(State::Failed);
}

void QzNimUpdateFrame::enter(State next) {
    state = next;
    const bool downloading = state == State::Downloading;
    setVisible(L"progressLabel", downloading);
    setVisible(L"updateprogress", downloading);
    setVisible(L"failedLabel", state == State::Failed);
    setVisible(L"closebtn", !(forced && downloading));
    setText(L"updateBtn", languageText(state == State::Failed ? "try_again" : "update_window_text"));
    CControlUI* button = find(L"updateBtn");
    if (!button)
        return;
    button->SetEnabled(!downloading);
    button->SetVisible(!downloading);
    if (!downloading)
        paintManager.SetFocusNeeded(button);
}

// A running download is not thrown away by a slip of the finger, nor is the launcher ended
// by one.
LRESULT QzNimUpdateFrame::ResponseDefaultKeyEvent(WPARAM key) {
    return forced || state == State::Downloading ? 0 : WindowImplBase::ResponseDefaultKeyEvent(key);
}

LRESULT QzNimUpdateFrame::OnClose(UINT, WPARAM, LPARAM, bool& handled) {
    QzHubUpdateModel::instance().cancel();
    // With the main window this one is gone, too.
    handled = forced && DestroyWindow(QzVyModel::instance().mainWindow);
    return 0;
}

QzNimUpdateFrame::~QzNimUpdateFrame() {
    QzHubUpdateModel& model = QzHubUpdateModel::instance();
    model.onDownloadPercent = nullptr;
    model.onDownloadFailed = nullptr;
}

void QzNimUpdateFrame::OnFinalMessage(HWND handle) {
    if (onClosed)
        onClosed();
    WindowImplBase::OnFinalMessage(handle);
    delete this;
}

void QzNimUpdateFrame::setProgress(int percent) {
    if (auto* bar = find<CProgressUI>(L"updateprogress", L"Progress"))
        bar->SetValue(percent);
}
