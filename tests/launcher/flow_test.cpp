// The flows behind the start button and the pause button: what is fetched, what is kept, and
// from which state the user goes on. What the window shows meanwhile is in flow_screen_test.

#include "tests/launcher/flow_fixture.h"

using namespace launcher_test;
using publisher::FaultKind;

namespace {

TEST_F(Flow, PackageIsDownloadedUnpackedAndKept) {
    publishPlayer();
    clickStart();
    ASSERT_TRUE(pumpUntilInstalled());
    EXPECT_EQ(read(L"my 게임\\multi_language.tsv"), read(L"multi_language.tsv"));
    EXPECT_EQ(read(Package), read(L"player.7z"));
    EXPECT_FALSE(exists(Partial));
    EXPECT_EQ(logged(L"ie download file sucess"), 1);
    EXPECT_EQ(logged(L"result:0 file:"), 1);
    EXPECT_TRUE(pumpUntilTold(L"flow_no_client")); // there is none in this package

    // The next time it is used as it is.
    clickStart();
    ASSERT_TRUE(pumpUntilLogged(L"result:0", 2));
    EXPECT_EQ(requests(PackagePath), 1);
}

TEST_F(Flow, PausedDownloadGoesOnWhereItStopped) {
    const std::string bytes = someBytes(2 << 20);
    server.publish(PackagePath, bytes);
    addFault(PackagePath, FaultKind::Slow, 1 << 20);
    clickStart();
    ASSERT_TRUE(pumpUntilPartial(100'000));
    clickPause();
    const size_t rest = sizeOfPartial();
    EXPECT_LT(rest, bytes.size());
    server.clearFaults();
    clickPause();
    ASSERT_TRUE(pumpUntilThere(Package));
    EXPECT_TRUE(wasAskedFrom(rest)) << rest;
    EXPECT_EQ(read(Package), bytes);
}

TEST_F(Flow, SecondClientFinishesWhatTheFirstBegan) {
    const std::string bytes = read(L"player.7z");
    server.publish(PackagePath, bytes);
    addFault(PackagePath, FaultKind::Cut, 1000, 2);
    clickStart();
    ASSERT_TRUE(pumpUntilThere(Package));
    EXPECT_EQ(logged(L"curl download file sucess"), 1);
    EXPECT_TRUE(wasAskedFrom(2000));
    EXPECT_EQ(read(Package), bytes);
}

TEST_F(Flow, FailedDownloadIsTriedAgainByThePauseButton) {
    publishPlayer();
    addFault(PackagePath, FaultKind::Cut, 0);
    clickStart();
    ASSERT_TRUE(pumpUntilLogged(L"no installer file"));
    EXPECT_EQ(requests(PackagePath), 4);
    EXPECT_TRUE(pumpUntilTold(L"flow_no_download"));
    server.clearFaults();
    clickPause();
    ASSERT_TRUE(pumpUntilThere(Package));
    EXPECT_EQ(read(Package), read(L"player.7z"));
}

// A server that answers with a page in place of the package: the page must not stand in
// the way for ever.
TEST_F(Flow, BrokenPackageIsFetchedAnew) {
    publishPlayer();
    addFault(PackagePath, FaultKind::Status, 503);
    clickStart();
    ASSERT_TRUE(pumpUntilInstalled());
    EXPECT_EQ(logged(L"remove broken package"), 1);
    EXPECT_TRUE(pumpUntilTold(L"flow_broken_package"));
    EXPECT_FALSE(exists(Package));
    server.clearFaults();
    clickStart();
    ASSERT_TRUE(pumpUntilThere(Package));
    EXPECT_EQ(read(Package), read(L"player.7z"));
}

TEST_F(Flow, UpdateWithoutAnAddressSaysSo) {
    write(Client, "no program");
    write(L"my 게임\\data\\appversion1000", "5000");
    model().playerMinVersion = 2200;
    frame->_checkGameAndAppVersion();
    clickStart();
    EXPECT_TRUE(pumpUntilTold(L"flow_no_source"));
}

// The folder cannot be written to: what lies at its place is a file.
TEST_F(Flow, PackageThatCannotBeUnpackedSaysSo) {
    publishPlayer();
    write(L"my 게임\\vyn", "in the way");
    test::allowErrors(L"\\vyn\\");
    clickStart();
    EXPECT_TRUE(pumpUntilTold(L"flow_not_unpacked"));
    EXPECT_TRUE(exists(Package)); // it is not the package's fault
}

// The package on disk may be older than what the configuration asks for.
TEST_F(Flow, PackageThatLeavesThePlayerTooOldIsNotUsedTwice) {
    publishPlayer();
    write(Package, read(L"player.7z"));
    model().playerMinVersion = 2200;
    clickStart();
    ASSERT_TRUE(pumpUntilInstalled());
    EXPECT_EQ(requests(PackagePath), 0);
    clickStart();
    EXPECT_TRUE(pumpUntil([this] { return requests(PackagePath) == 1; }));
}

TEST_F(Flow, ServerThatHangsDoesNotHoldTheWindow) {
    publishPlayer();
    addFault(PackagePath, FaultKind::Hang);
    clickStart();
    ASSERT_TRUE(pumpUntil([this] { return requests(PackagePath) == 1; }));
    const ULONGLONG before = GetTickCount64();
    clickPause();
    EXPECT_LT(GetTickCount64() - before, 3000u);
    server.clearFaults();
    clickPause();
    ASSERT_TRUE(pumpUntilThere(Package));
    EXPECT_EQ(read(Package), read(L"player.7z"));
}

TEST_F(Flow, SecondFlowIsRefused) {
    publishPlayer();
    addFault(PackagePath, FaultKind::Hang);
    test::allowErrors(L"error!");
    clickStart();
    static_cast<MainFrameEvents&>(*frame).onStartBtnClicked(); // no user can
    EXPECT_EQ(logged(L"error!"), 1);
}

TEST_F(Flow, DocumentThatCannotBeHadLeavesTheBuiltInPackage) {
    addFault("/vyn/qzvyn", FaultKind::Cut, 2);
    server.publish("/obj/lf-game-alisg/ga18/qzvyn_en.7z", read(L"player.7z"));
    clickStart();
    ASSERT_TRUE(pumpUntilThere(L"vynen_1.0.7z"));
    EXPECT_EQ(requests("/vyn/qzvyn"), 2);
    EXPECT_EQ(read(L"vynen_1.0.7z"), read(L"player.7z"));
}

TEST_F(Flow, GamePackageBeginsAnewAndIsHandedToTheClient) {
    const std::string apk = someBytes(300'000);
    publishGame(apk);
    write(std::wstring(GamePackage) + L".tmp", "rest");
    clickStart();
    ASSERT_TRUE(pumpUntilLogged(L"show=0|package=com.play.vysea|apk=" + at(GamePackage)));
    EXPECT_EQ(read(GamePackage), apk);
    EXPECT_EQ(read(L"my 게임\\data\\appversion1000"), "5210");
    EXPECT_EQ(requests(GamePath), 1);

    EXPECT_EQ(logged(L"tell the user"), 0);

    // The flow runs on until the client reports; the state is then good.
    EXPECT_EQ(screen(), "Installing off install");
    frame->finishInstall();
    EXPECT_EQ(screen(), "Launch");
    showWindow();
    click(L"startBtn");
    EXPECT_FALSE(IsWindowVisible(window()));
    EXPECT_EQ(logged(L"error!"), 0);
}

// The client is asked all the same, but it will not report.
TEST_F(Flow, GamePackageThatCannotBeHadIsTriedAgainByThePauseButton) {
    publishGame(someBytes(300'000));
    addFault(GamePath, FaultKind::Cut, 0);
    test::allowErrors(L"open file error"); // the second client knows no Korean
    clickStart();
    ASSERT_TRUE(pumpUntilTold(L"flow_no_download"));
    server.clearFaults();
    clickPause();
    ASSERT_TRUE(pumpUntilThere(GamePackage));
    EXPECT_EQ(requests("/vyn/qzvyn"), 0);
}

} // namespace
