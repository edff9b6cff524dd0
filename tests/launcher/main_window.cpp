#include "tests/launcher/main_window.h"

#include "tests/support/log_watch.h"
#include "uilib/controls/button.h"
#include "uilib/controls/progress.h"
#include "uilib/controls/tab_layout.h"
#include "update/QzHubUpdateModel.h"
#include "utility/encoding.h"
#include "utility/task_dispatcher.h"

using namespace UILib;

namespace launcher_test {

namespace {

constexpr unsigned SkinResource = 129;

void loadSkinOnce() {
    [[maybe_unused]] static const bool loaded = [] {
        CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
        CPaintManagerUI::LoadResourceArchive(SkinResource, L"multi_language.tsv");
        return true;
    }();
}

} // namespace

void MainWindow::SetUp() {
    Stage::SetUp();
    loadSkinOnce();
    // The server of the one update model is that of the first test; and a fresh folder has no
    // version files.
    test::allowErrors(L"update_en.data");
    test::allowErrors(L"openfile error");
    model().appMinVersion = 0;
    model().playerMinVersion = 0;
    model().setPathDir(at(L"my 게임\\"));
    openAnew(L"en");
}

void MainWindow::TearDown() {
    QzHubUpdateModel::instance().cancel();
    close();
    runWaitingTasks();
    Stage::TearDown();
}

void MainWindow::openAnew(const std::wstring& market) {
    close();
    fillMarketByShortCode(market, model().market);
    const std::wstring& locale = model().market.localeCode;
    CPaintManagerUI::SetLanguageCode(locale.c_str(), locale.c_str());
    CPaintManagerUI::LoadLanguageTable(L"multi_language.tsv");
    open();
}

void MainWindow::open() {
    frame = new QzVyMainFrame;
    frame->onClosed = [this] { frame = nullptr; };
    model().mainWindow = frame->create(WS_POPUP | WS_CLIPCHILDREN);
    ASSERT_NE(model().mainWindow, nullptr) << "these tests need a display";
}

void MainWindow::showWindow() {
    frame->window().show(true);
    UpdateWindow(window());
}

void MainWindow::close() {
    if (!frame)
        return;
    frame->resetAfterPathChange(); // stops what still runs
    DestroyWindow(window());
    runWaitingTasks();
}

void MainWindow::runWaitingTasks() {
    bool drained = false;
    common::postToWindowThread([&] { drained = true; });
    EXPECT_TRUE(pumpUntil([&] { return drained; }));
}

CControlUI& MainWindow::control(const wchar_t* name) const {
    static CControlUI none;
    CControlUI* found = frame ? frame->window().GetPaintManager().FindControl(name) : nullptr;
    EXPECT_NE(found, nullptr) << utility::wideToAnsi(name);
    return found ? *found : none;
}

std::wstring MainWindow::text(const wchar_t* name) const {
    return control(name).GetText().GetData();
}

std::wstring MainWindow::image(const wchar_t* name) const {
    const auto* button = static_cast<CButtonUI*>(control(name).GetInterface(L"Button"));
    return button ? button->GetNormalImage().GetData() : L"";
}

bool MainWindow::isShown(const wchar_t* name) const {
    return control(name).IsVisible();
}

int MainWindow::progress(const wchar_t* bar) const {
    const auto* found = static_cast<CProgressUI*>(control(bar).GetInterface(L"Progress"));
    return found ? found->GetValue() : -1;
}

std::string MainWindow::screen() const {
    constexpr const char* names[] = {" path", " download", " install"};
    const auto* pages = static_cast<CTabLayoutUI*>(control(L"pathTab").GetInterface(L"TabLayout"));
    return utility::wideToAnsi(text(L"startBtn")) + (control(L"startBtn").IsEnabled() ? "" : " off") +
           (pages && pages->IsVisible() ? names[pages->GetCurSel()] : "");
}

void MainWindow::click(const wchar_t* button) {
    EXPECT_TRUE(control(button).Activate()) << utility::wideToAnsi(button);
}

} // namespace launcher_test
