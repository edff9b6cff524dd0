#include "launcher/qzvy/MainFrameView.h"

#include "uilib/controls/progress.h"
#include "uilib/controls/tab_layout.h"

using namespace UILib;

namespace {

struct Link {
    const wchar_t* button;
    const char* key;
};

constexpr Link Links[] = {
    {L"homeBtn", "url_home"},
    {L"facebookBtn", "url_facebook"},
    {L"youtobeBtn", "url_youtobe"},
    {L"discordBtn", "url_discord"},
    {L"NBtn", "url_N"},
    {L"buyBtn", "url_store"},
    {L"behemothBtn", "url_Behemoth"},
};

// The bar has its design width where there is room, and is shorter in a narrow window; it
// has no width at all while its page has not been laid out.
int onBarOf(int width, int iconOffset) {
    constexpr int designWidth = 978;
    return width > 0 && width < designWidth ? MulDiv(iconOffset, width, designWidth) : iconOffset;
}

void setPictures(CControlUI& button, const std::wstring& name) {
    for (const wchar_t* state : {L"normal", L"hot", L"pushed"})
        button.SetAttribute((std::wstring(state) + L"image").c_str(),
                            (L"vyn\\" + name + L"_" + state + L".png").c_str());
}

} // namespace

const WindowImplBase::MessageMap MainFrameView::messageMap = [] {
    static constexpr Entry entries[] = {
        entry(L"click", L"startBtn", &MainFrameView::onStart),
        entry(L"click", L"setupBtn", &MainFrameView::onSetup),
        entry(L"click", L"pauseBtn", &MainFrameView::onPause),
        entry(L"click", L"closebtn", &MainFrameView::onClose),
        entry(L"click", L"chanagePathBtn", &MainFrameView::onBrowse),
        entry(L"click", L"homeBtn", &MainFrameView::onLink),
        entry(L"click", L"facebookBtn", &MainFrameView::onLink),
        entry(L"click", L"youtobeBtn", &MainFrameView::onLink),
        entry(L"click", L"discordBtn", &MainFrameView::onLink),
        entry(L"click", L"behemothBtn", &MainFrameView::onLink),
        entry(L"click", L"NBtn", &MainFrameView::onLink),
        entry(L"click", L"buyBtn", &MainFrameView::onLink),
    };
    return MessageMap{&WindowImplBase::messageMap, entries};
}();

HWND MainFrameView::create(DWORD style, MainFrameEvents& newEvents) {
    events = &newEvents;
    return Create(nullptr, L"", style, 0);
}

LRESULT MainFrameView::OnDestroy(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) {
    events->OnDestroy();
    return WindowImplBase::OnDestroy(message, wParam, lParam, handled);
}

void MainFrameView::OnFinalMessage(HWND handle) {
    WindowImplBase::OnFinalMessage(handle);
    events->OnFinalMessage();
}

void MainFrameView::onLink(TUINotify& notification) {
    for (const Link& link : Links)
        if (notification.sender->GetName() == link.button)
            return events->onLink(link.key);
}

void MainFrameView::applySmallLayout() {
    setVisible(L"left22Control", false);
    setVisible(L"left11Control", false);
    setVisible(L"speedLabel", false);
    setBackground(L"rightbgControl", L"");
    if (CControlUI* right = find(L"rightxxControl"))
        right->SetFixedWidth(340);
    if (CControlUI* bottom = find(L"startBottomControl"))
        bottom->SetFixedHeight(30);
    // Where the speed stood; in its own place the time would meet the amount in a column so narrow.
    if (CControlUI* time = find(L"leftTimeLabel"))
        time->SetAttribute(L"pos", L"-140,110,160,134");
}

void MainFrameView::enableStart(bool enabled) {
    if (CControlUI* button = find(L"startBtn"))
        button->SetEnabled(enabled);
}

void MainFrameView::selectPage(Page page) {
    if (auto* pages = find<CTabLayoutUI>(L"pathTab", L"TabLayout"))
        pages->SelectItem(static_cast<int>(page));
}

void MainFrameView::setDownloadProgress(int percent, int iconOffset) {
    setProgress(L"downloadprogressControl", percent, L"loadingSpaceControl", iconOffset);
}

void MainFrameView::setInstallProgress(int percent, int iconOffset) {
    setProgress(L"installprogressControl", percent, L"loadingSpaceControlInstall", iconOffset);
}

void MainFrameView::setDownloadTexts(const std::wstring& amount, const std::wstring& timeLeft,
                                     const std::wstring& speed) {
    setText(L"downloadLabel", amount);
    setText(L"leftTimeLabel", timeLeft);
    setText(L"speedLabel", speed);
}

void MainFrameView::setPaused(bool paused) {
    if (CControlUI* button = find(L"pauseBtn"))
        setPictures(*button, paused ? L"play" : L"pause");
}

void MainFrameView::setBackground(const wchar_t* name, const std::wstring& image) {
    if (CControlUI* found = find(name))
        found->SetBkImage(image.c_str());
}

void MainFrameView::setProgress(const wchar_t* bar, int percent, const wchar_t* space, int iconOffset) {
    auto* progress = find<CProgressUI>(bar, L"Progress");
    if (progress)
        progress->SetValue(percent);
    if (CControlUI* left = find(space))
        left->SetFixedWidth(progress ? onBarOf(progress->GetWidth(), iconOffset) : iconOffset);
}
