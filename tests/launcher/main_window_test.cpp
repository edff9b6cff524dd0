// The main window by itself: what it opens with in each market, its small layout, its buttons
// beside the flows, and what is repaired in which order.

#include "tests/launcher/flow_fixture.h"

#include "shell/QzVySetupImpl.h"
#include "utility/endpoints.h"

using namespace launcher_test;
using UILib::CControlUI;

namespace {

using Window = launcher_test::MainWindow;

TEST_F(Window, OpensInTheLanguageOfItsMarket) {
    const struct {
        const wchar_t* market;
        const wchar_t* start;
        bool discord, behemoth;
    } cases[] = {{L"en", L"Download Game", true, false},
                 {L"kr", L"게임 다운로드", true, false},
                 {L"tw", L"下載遊戲", false, true}};
    for (const auto& c : cases) {
        test::takeLog();
        openAnew(c.market);
        wchar_t title[16] = {};
        GetWindowTextW(window(), title, 16);
        EXPECT_EQ(title, std::wstring(L"VYN"));
        EXPECT_EQ(text(L"startBtn"), c.start);
        EXPECT_EQ(text(L"pathEdit"), at(L"my 게임\\"));
        EXPECT_EQ(isShown(L"discordBtn"), c.discord) << c.market;
        EXPECT_EQ(isShown(L"behemothBtn"), c.behemoth) << c.market;
        EXPECT_FALSE(isShown(L"NBtn"));
        EXPECT_TRUE(isShown(L"homeBtn"));
        EXPECT_EQ(control(L"rightbgControl").GetBkImage(),
                  (L"vyn\\right_bg_" + std::wstring(c.market) + L".png").c_str());
        const std::wstring query = L"?language=" + std::wstring(c.market);
        const std::wstring pages = utility::endpoints::contentHost() + L"/PCpic";
        EXPECT_EQ(logged(L"real urlIndex is:" + pages + query), 1);
        EXPECT_EQ(logged(L"real urlNews is:" + pages + L"/news" + query), 1);
    }
}

TEST_F(Window, FindsTheInstallFolderAsItIs) {
    EXPECT_EQ(screen(), "Download Game path");
    EXPECT_EQ(logged(L"no player"), 1);
    write(Client, "");
    write(L"my 게임\\data\\appversion1000", "999");
    test::allowErrors(L"read local version error:999");
    test::takeLog();
    openAnew(L"en");
    EXPECT_EQ(screen(), "Launch");
    EXPECT_GE(logged(L"read local version error:999"), 1);
}

TEST_F(Window, SmallLayoutMakesRoom) {
    MainFrameView& view = frame->window();
    view.resizeClient(1189, 708);
    view.selectPage(Page::Download);
    frame->applySmallLayout();
    showWindow();
    const RECT time = control(L"leftTimeLabel").GetPos();
    EXPECT_EQ(time.right - time.left, 300);
    EXPECT_LE(time.right, control(L"pathTab").GetPos().right);
    EXPECT_LT(time.left, control(L"rightxxControl").GetPos().left);
    for (const wchar_t* name : {L"left22Control", L"left11Control", L"speedLabel"})
        EXPECT_FALSE(isShown(name));
    EXPECT_TRUE(control(L"rightbgControl").GetBkImage().IsEmpty());
    EXPECT_EQ(control(L"rightxxControl").GetFixedWidth(), 340);
    EXPECT_EQ(control(L"startBottomControl").GetFixedHeight(), 30);
    RECT client;
    GetClientRect(window(), &client);
    EXPECT_EQ(client.right, 1189);
    EXPECT_EQ(client.bottom, 708);

    // The icon keeps to a bar that is shorter than in the design.
    const int bar = control(L"downloadprogressControl").GetWidth();
    ASSERT_TRUE(bar > 0 && bar < 978) << bar;
    view.setDownloadProgress(50, 497);
    EXPECT_EQ(control(L"loadingSpaceControl").GetFixedWidth(), MulDiv(497, bar, 978));
}

TEST_F(Window, CloseHidesOrEndsAsTheUserChose) {
    bool& hides = QzVySetupImpl::instance().minbyclose;
    showWindow();
    hides = true;
    click(L"closebtn");
    EXPECT_FALSE(IsWindowVisible(window()));
    runWaitingTasks();
    ASSERT_NE(frame, nullptr);
    frame->window().show(true);
    hides = false;
    click(L"closebtn");
    EXPECT_TRUE(pumpUntil([this] { return !frame; }));
    hides = true;
}

TEST_F(Window, NoKeyEndsTheLauncher) {
    for (const WPARAM key : {VK_ESCAPE, VK_RETURN})
        SendMessageW(window(), WM_KEYDOWN, key, 0);
    runWaitingTasks();
    EXPECT_NE(frame, nullptr);
}

TEST_F(Window, FetchedBackgroundsAreShownAndHandedToThePlayer) {
    const std::wstring shown = control(L"launchBGControl").GetBkImage().GetData();
    model().onBackgroundReady();
    EXPECT_EQ(control(L"launchBGControl").GetBkImage(), shown.c_str()) << "there are none yet";
    write(L"data\\launch_bg.jpg", "one");
    write(L"data\\player_bg.jpg", "two");
    write(L"my 게임\\data\\launch_1920.jpg", "old");
    model().onBackgroundReady();
    EXPECT_EQ(control(L"launchBGControl").GetBkImage(), at(L"data\\launch_bg.jpg").c_str());
    EXPECT_EQ(read(L"my 게임\\data\\launch_1920.jpg"), "two");
    write(L"data\\player_bg.jpg", "three");
    model().pathDir.clear();
    model().onBackgroundReady();
    EXPECT_EQ(read(L"my 게임\\data\\launch_1920.jpg"), "two");
}

// One by one, the client first, so that nothing holds a file that is to be replaced.
TEST_F(Flow, EveryProgramOfThePlayerIsEndedBeforeItsHelpersRun) {
    publishPlayer();
    test::takeLog();
    clickStart();
    ASSERT_TRUE(pumpUntilInstalled());
    std::wstring ended;
    int helpers = 0;
    for (const std::wstring& line : test::takeLog()) {
        const size_t name = line.find(L"[/F /IM ");
        if (name != line.npos) {
            ended += line.substr(name + 8, line.find(L".exe", name) - name - 8) + L" ";
            EXPECT_EQ(helpers, 0);
            EXPECT_NE(line.find(L"show = 0"), line.npos);
        }
        helpers += line.find(L"shellEx filename = [" + at(L"my 게임\\vynrepairer.exe") +
                             L"], param = [], runas = 1, show = 0, timeout = 60000") != line.npos;
        helpers += line.find(L"createProcess filename = [" + at(L"my 게임\\driverconfig.exe") +
                             L"], param = [], show = 0") != line.npos;
    }
    EXPECT_EQ(ended,
              L"vynclient vynmulti vynclient vynmulti adb aapt bugreport qz qzconsole vmware-vdiskmanager "
              L"Qz9BoxHeadless Qz9BoxSVC Qz9VirtualBox driverconfig qzrecord vynrepairer vbox-img ");
    EXPECT_EQ(helpers, 2);
}

} // namespace
