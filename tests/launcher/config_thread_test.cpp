#include "launcher/qzvy/QzVyModel.h"
#include "shell/QzVySetupImpl.h"
#include "tests/launcher/support.h"
#include "tests/support/log_watch.h"

#include <future>

using publisher::FaultKind;

namespace {

constexpr char Document[] = "/vyn/config_sea.data";

class ConfigThread : public launcher_test::Stage {
protected:
    void SetUp() override {
        Stage::SetUp();
        QzVySetupImpl::instance().configversion = 1000;
        test::allowErrors(L"curl download error"); // of the faults that the tests make
        model.onVersionReady = [this] { ++versions; };
        model.onBackgroundReady = [this] { ++backgrounds; };
    }
    void TearDown() override {
        DeleteFileW(at(L"config.data").c_str());
        Stage::TearDown();
    }

    std::future<void> start() {
        return std::async(std::launch::async, [this] { model._threadConfig(); });
    }
    static bool ended(const std::future<void>& thread, int milliseconds) {
        return thread.wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
    }

    // The thread from its start to its end, with its tasks delivered.
    void run() {
        runConfigThread(model);
        drained = false;
        common::postToWindowThread([this] { drained = true; });
        ASSERT_TRUE(pumpUntil([this] { return drained; }));
    }

    void publishImages(int version) {
        server.publish(Document, "{\"version\":" + std::to_string(version) + ",\"launch_bg\":\"" +
                                     server.url("/1.jpg") + "\",\"player_bg\":\"" + server.url("/2.jpg") +
                                     "\"}");
    }

    QzVyModel model;
    int versions = 0;
    int backgrounds = 0;
    bool drained = false;
};

TEST_F(ConfigThread, BringsLimitsAndAddresses) {
    server.publish(Document, R"({"appminversion":5210,"apkurl":"http://a","playerurl":"http://p"})");
    EXPECT_EQ(model.getApkUrl(), L"");
    run();
    EXPECT_EQ(model.appMinVersion, 5210);
    EXPECT_EQ(model.playerMinVersion, 0);
    EXPECT_EQ(model.getApkUrl(), L"http://a");
    EXPECT_EQ(model.getPlayerUrl(), L"http://p");
    EXPECT_EQ(versions, 1);
    EXPECT_EQ(backgrounds, 0);
    EXPECT_EQ(logged(L"local config version 1000 current:1000"), 1);
}

TEST_F(ConfigThread, TriesTwiceAndLeavesTheLimits) {
    server.publish(Document, R"({"appminversion":5210})");
    addFault(Document, FaultKind::Cut, 3, 1);
    run();
    EXPECT_EQ(model.appMinVersion, 5210);
    EXPECT_EQ(requests(Document), 2);

    addFault(Document, FaultKind::Cut, 3);
    QzVyModel other;
    other._threadConfig();
    EXPECT_EQ(requests(Document), 4);
    EXPECT_EQ(other.appMinVersion, 0);
    EXPECT_EQ(logged(L"not a object"), 1);
}

TEST_F(ConfigThread, JunkEndsInOneLogLine) {
    server.publish(Document, std::string("\0{[\xff", 4));
    run();
    EXPECT_EQ(logged(L"not a object"), 1);
    EXPECT_EQ(versions, 0);
}

TEST_F(ConfigThread, StoresNewImagesAndTheirVersion) {
    write(L"data\\launch_bg.jpg", "old");
    write(L"data\\player_bg.jpg.tmp", "rest of another image");
    publishImages(1001);
    server.publish("/1.jpg", "one");
    server.publish("/2.jpg", "two");
    run();
    EXPECT_EQ(read(L"data\\launch_bg.jpg"), "one");
    EXPECT_EQ(read(L"data\\player_bg.jpg"), "two");
    EXPECT_NE(read(L"config.data").find("configversion=1001"), std::string::npos);
    EXPECT_EQ(backgrounds, 1);

    run(); // the same version again
    EXPECT_EQ(requests("/1.jpg"), 1);
}

// It must not save what has not been read yet; a second instance never runs its loop.
TEST_F(ConfigThread, WritesNothingBeforeTheMessageLoopRuns) {
    write(L"data\\launch_bg.jpg", "old");
    write(L"config.data", "autorun=0|existgame=1|minbyclose=1|configversion=1000");
    publishImages(1001);
    server.publish("/1.jpg", "one");
    server.publish("/2.jpg", "two");
    auto thread = start();
    EXPECT_FALSE(ended(thread, 300));
    EXPECT_EQ(requests("/1.jpg"), 0);
    QzVySetupImpl::instance().loadConfig(); // as the entrance does before its loop
    EXPECT_TRUE(pumpUntil([&] { return ended(thread, 0); }));
    EXPECT_EQ(read(L"config.data"), "autorun=0|existgame=1|minbyclose=1|configversion=1001");
    QzVySetupImpl::instance().autorun = true;
}

TEST_F(ConfigThread, AnImageThatFailsLeavesTheOldOne) {
    write(L"data\\launch_bg.jpg", "old");
    publishImages(1001);
    server.publish("/1.jpg", "one and more");
    addFault("/1.jpg", FaultKind::Cut, 3);
    server.publish("/2.jpg", "two");
    addFault("/2.jpg", FaultKind::Cut, 1, 1);
    run();
    EXPECT_EQ(read(L"data\\launch_bg.jpg"), "old");
    EXPECT_EQ(QzVySetupImpl::instance().configversion, 1000);
    EXPECT_EQ(backgrounds, 0);

    run(); // now one of the two arrives
    EXPECT_EQ(read(L"data\\launch_bg.jpg"), "old");
    EXPECT_EQ(read(L"data\\player_bg.jpg"), "two");
    EXPECT_EQ(QzVySetupImpl::instance().configversion, 1001);
    EXPECT_EQ(backgrounds, 1);
}

} // namespace
