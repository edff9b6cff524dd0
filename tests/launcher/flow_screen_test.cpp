// What the window shows while a flow runs, stops, fails and ends.

#include "launcher/qzvy/Progress.h"
#include "tests/launcher/flow_fixture.h"

using namespace launcher_test;
using publisher::FaultKind;

namespace {

class FlowScreen : public Flow {
protected:
    // The first report says as its speed what has come, and the rest follows from that.
    void expectFirstReport(unsigned total) const {
        unsigned done = 0;
        ASSERT_EQ(swscanf(text(L"downloadLabel").c_str(), L"Downloading Essential Files:%uKB/", &done), 1);
        EXPECT_EQ(texts(), L"Downloading Essential Files:" + amountText(done << 10, total) +
                               L"|Time Remaining:" + timeLeftText(done << 10, total, done << 10) +
                               L"|Download Speed:" + std::to_wstring(done) + L"KB/S");
        const int percent = progress(L"downloadprogressControl");
        EXPECT_EQ(percent, percentOf(done << 10, total));
        EXPECT_EQ(control(L"loadingSpaceControl").GetFixedWidth(), percent * 978 / 100 + 8);
    }
    std::wstring texts() const {
        return text(L"downloadLabel") + L"|" + text(L"leftTimeLabel") + L"|" + text(L"speedLabel");
    }
    bool offersToGoOn() const {
        EXPECT_TRUE(image(L"pauseBtn") == L"vyn\\play_normal.png" ||
                    image(L"pauseBtn") == L"vyn\\pause_normal.png");
        return image(L"pauseBtn") == L"vyn\\play_normal.png";
    }
    void startHanging() {
        publishPlayer();
        addFault(PackagePath, FaultKind::Hang);
        clickStart();
        ASSERT_TRUE(pumpUntil([this] { return requests(PackagePath) == 1; }));
    }
};

constexpr wchar_t NothingYet[] = L"Downloading Essential Files:|Time Remaining:|Download Speed:";

TEST_F(FlowScreen, DownloadShowsHowFarItIsAndPauseOffersToGoOn) {
    server.publish(PackagePath, someBytes(3 << 20));
    addFault(PackagePath, FaultKind::Slow, 2 << 20);
    EXPECT_EQ(screen(), "Download Game path");
    clickStart();
    EXPECT_EQ(screen(), "Installing off download");
    EXPECT_EQ(texts(), NothingYet);
    EXPECT_EQ(control(L"loadingSpaceControl").GetFixedWidth(), 1);
    EXPECT_FALSE(offersToGoOn());
    ASSERT_TRUE(pumpUntil([this] { return progress(L"downloadprogressControl") > 0; }));
    expectFirstReport(3 << 20);

    const std::wstring before = texts();
    clickPause();
    EXPECT_TRUE(offersToGoOn());
    runWaitingTasks();
    EXPECT_EQ(texts(), before);
    EXPECT_EQ(screen(), "Installing off download");
    const int asked = requests(PackagePath);
    runWaitingTasks();
    EXPECT_EQ(requests(PackagePath), asked) << "what is paused asks for nothing";
    clickPause();
    EXPECT_FALSE(offersToGoOn());
    EXPECT_TRUE(pumpUntil([&] { return requests(PackagePath) > asked; }));
    clickPause();
}

TEST_F(FlowScreen, InstallationShowsItsBarAndGivesTheWindowBack) {
    publishPlayer();
    clickStart();
    ASSERT_TRUE(pumpUntilScreen("Installing off install"));
    EXPECT_EQ(progress(L"installprogressControl"), 0);
    EXPECT_EQ(control(L"loadingSpaceControlInstall").GetFixedWidth(), 1);
    ASSERT_TRUE(pumpUntilTold(L"flow_no_client"));
    EXPECT_EQ(screen(), "Download Game download");
    EXPECT_EQ(texts(), L"The game client is missing after the installation. Try again.||");
    EXPECT_TRUE(offersToGoOn());

    // The next try begins with an empty page, and its bar at 0.
    clickStart();
    EXPECT_EQ(texts(), NothingYet);
    EXPECT_FALSE(offersToGoOn());
    ASSERT_TRUE(pumpUntilScreen("Installing off install"));
}

// The client installs the game and reports; the bar moves meanwhile.
TEST_F(FlowScreen, TheInstallBarMovesWhileTheClientWorks) {
    publishGame(someBytes(1000));
    EXPECT_EQ(screen(), "Update path");
    clickStart();
    ASSERT_TRUE(pumpUntilScreen("Installing off install"));
    ASSERT_TRUE(pumpUntil([this] { return progress(L"installprogressControl") == 1; }));
    EXPECT_EQ(control(L"loadingSpaceControlInstall").GetFixedWidth(), 17);
    frame->finishInstall();
    EXPECT_EQ(screen(), "Launch");
}

TEST_F(FlowScreen, FailureIsToldUntilTheNextTry) {
    publishPlayer();
    addFault(PackagePath, FaultKind::Cut, 0);
    clickStart();
    ASSERT_TRUE(pumpUntilTold(L"flow_no_download"));
    EXPECT_EQ(screen(), "Installing off download");
    EXPECT_EQ(texts(), L"Download failed. Check your connection and try again.||");
    EXPECT_TRUE(offersToGoOn());
    server.clearFaults();
    addFault(PackagePath, FaultKind::Hang);
    clickPause();
    EXPECT_EQ(texts(), NothingYet);
    EXPECT_EQ(progress(L"downloadprogressControl"), 0);
    EXPECT_FALSE(offersToGoOn());
}

TEST_F(FlowScreen, ANewInstallFolderStopsTheFlowAndGivesTheWindowBack) {
    startHanging();
    write(L"my 게임\\other\\vynclient.exe", "");
    test::allowErrors(L"read local version error:0");
    model().setPathDir(at(L"my 게임\\other\\"));
    frame->resetAfterPathChange();
    EXPECT_EQ(screen(), "Launch");
    model().setPathDir(at(L"my 게임\\"));
    frame->resetAfterPathChange();
    EXPECT_EQ(screen(), "Download Game path");
    server.clearFaults();
    clickStart(); // no earlier flow stands in the way
    EXPECT_TRUE(pumpUntilThere(Package));
}

// The flow that ran has nothing to say any more, however it ends.
TEST_F(FlowScreen, AStoppedFlowTellsNoFailure) {
    startHanging();
    clickPause();
    server.stop();
    runWaitingTasks();
    EXPECT_EQ(logged(L"tell the user"), 0);
    EXPECT_EQ(screen(), "Installing off download");
    EXPECT_FALSE(exists(Package));
}

// Its worker is left behind, and with it the object that it works on.
TEST_F(FlowScreen, ClosingTheWindowDoesNotWaitForTheFlow) {
    startHanging();
    const ULONGLONG before = GetTickCount64();
    DestroyWindow(window());
    EXPECT_LT(GetTickCount64() - before, 900u);
    EXPECT_EQ(frame, nullptr);
    EXPECT_EQ(model().mainWindow, nullptr);
    EXPECT_FALSE(model().onVersionReady);
    EXPECT_FALSE(model().onBackgroundReady);
    MSG message;
    EXPECT_TRUE(pumpUntil([&] { return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE); }));
}

TEST_F(FlowScreen, LimitsThatArriveTurnTheStartButton) {
    write(Client, "");
    write(L"my 게임\\data\\appversion1000", "5000");
    write(L"my 게임\\playerversion", "2100\n");
    frame->finishInstall();
    EXPECT_EQ(screen(), "Launch");
    const struct {
        int game, player;
        const char* screen;
    } cases[] = {{5000, 2100, "Launch"}, {5001, 0, "Update path"}, {0, 2101, "Update path"}};
    for (const auto& c : cases) {
        model().appMinVersion = c.game;
        model().playerMinVersion = c.player;
        model().onVersionReady();
        EXPECT_EQ(screen(), c.screen) << c.game << " " << c.player;
    }
}

// Both are due: the player's address first, the game's with the next click.
TEST_F(FlowScreen, UpdatesComeOneAClickAndEachFlagServesOnce) {
    const std::string apk = someBytes(1000);
    server.publish("/vyn/config_sea.data", R"({"appminversion":5210,"playerminversion":2200,"apkurl":")" +
                                               server.url(GamePath) + R"(","playerurl":")" +
                                               server.url(PackagePath) + "\"}");
    server.publish(GamePath, apk);
    publishPlayer();
    write(Client, "no program");
    write(L"my 게임\\data\\appversion1000", "5000");
    runConfigThread(model());
    EXPECT_TRUE(pumpUntilScreen("Update path"));
    clickStart();
    ASSERT_TRUE(pumpUntilInstalled());
    EXPECT_EQ(requests("/vyn/qzvyn"), 0) << "an update knows its address";
    EXPECT_EQ(requests(PackagePath), 1);
    EXPECT_EQ(screen(), "Update path");
    write(L"my 게임\\playerversion", "2200");
    frame->finishInstall();
    EXPECT_EQ(screen(), "Update path");
    // The check after the installation still found the old player and asked for it again.
    clickStart();
    ASSERT_TRUE(pumpUntilLogged(L"driverconfig.exe], param", 2));
    ASSERT_TRUE(pumpUntilInstalled());
    clickStart();
    ASSERT_TRUE(pumpUntilLogged(L"apk=" + at(GamePackage)));
    EXPECT_EQ(read(GamePackage), apk);
    frame->finishInstall();
    EXPECT_EQ(screen(), "Launch");
}

} // namespace
