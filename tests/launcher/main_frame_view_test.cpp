// The view by itself: which of its buttons tells what.

#include "tests/launcher/main_window.h"

#include "uilib/controls/control.h"
#include "utility/encoding.h"

namespace {

class Recorder final : public MainFrameEvents {
public:
    std::string calls;

private:
    void InitWindow() override { calls += "init "; }
    void onStartBtnClicked() override { calls += "start "; }
    void onPauseBtnClicked() override { calls += "pause "; }
    void onCloseBtnClicked() override { calls += "close "; }
    void onSetupBtnClicked() override { calls += "setup "; }
    void onBrowseInstallPath() override { calls += "browse "; }
    void onLink(const char* key) override { calls += std::string(key) + " "; }
    void OnDestroy() override { calls += "destroy "; }
    void OnFinalMessage() override { calls += "final "; }
};

using View = launcher_test::MainWindow; // for its skin

TEST_F(View, EachButtonTellsItsOwnEvent) {
    Recorder events;
    MainFrameView view;
    ASSERT_NE(view.create(WS_POPUP, events), nullptr);
    EXPECT_EQ(events.calls, "init ");
    const struct {
        const wchar_t* button;
        const char* call;
    } cases[] = {{L"startBtn", "start "},           {L"pauseBtn", "pause "},
                 {L"closebtn", "close "},           {L"setupBtn", "setup "},
                 {L"chanagePathBtn", "browse "},    {L"homeBtn", "url_home "},
                 {L"facebookBtn", "url_facebook "}, {L"youtobeBtn", "url_youtobe "},
                 {L"discordBtn", "url_discord "},   {L"NBtn", "url_N "},
                 {L"buyBtn", "url_store "},         {L"behemothBtn", "url_Behemoth "}};
    for (const auto& [name, call] : cases) {
        events.calls.clear();
        UILib::CPaintManagerUI& manager = view.GetPaintManager();
        manager.SendNotify(manager.FindControl(name), L"click");
        EXPECT_EQ(events.calls, call) << utility::wideToAnsi(name);
    }
    events.calls.clear();
    DestroyWindow(view.GetHWND());
    EXPECT_EQ(events.calls, "destroy final ");

    // A task that comes late meets no harm.
    view.setStartText(L"late");
    view.enableStart(false);
    view.selectPage(Page::Install);
    view.setDownloadProgress(5, 10);
    view.setPaused(true);
    view.setBackground(L"launchBGControl", L"");
    view.applySmallLayout();
}

TEST_F(View, PauseButtonHasThePicturesOfWhatItOffers) {
    for (const bool paused : {true, false}) {
        frame->window().setPaused(paused);
        EXPECT_EQ(image(L"pauseBtn"), paused ? L"vyn\\play_normal.png" : L"vyn\\pause_normal.png");
    }
}

} // namespace
