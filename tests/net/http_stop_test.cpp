#include "tests/net/net_fixture.h"
#include "utility/windows.h"

#include <thread>

namespace {

using namespace std::chrono_literals;

class HttpStop : public NetTest {
protected:
    void SetUp() override {
        NetTest::SetUp();
        server.publish("/file", body);
    }
    void TearDown() override {
        client.stop();
        NetTest::TearDown();
    }

    void startFetch(bool resume) {
        ended = false;
        auto work = [this, resume] {
            result = client.download2file(url("/file"), path(), &probe, resume);
            ended = true;
        };
        ASSERT_TRUE(client.start(new common::FunctionRunable<decltype(work)>(work)));
    }
    std::wstring path() const { return targetWide(L"file.tmp"); }

    // Milliseconds that the stop took.
    long long stop() {
        auto begin = std::chrono::steady_clock::now();
        client.stop();
        return (std::chrono::steady_clock::now() - begin) / 1ms;
    }

    std::string body = patternBytes(1000000);
    ProgressProbe probe;
    std::atomic<bool> ended = false;
    std::atomic<bool> result = true;
    utility::CHttpDownloader client;
};

} // namespace

TEST_F(HttpStop, inTheMiddleOfATricklingBodyLeavesWhatCameAndGoesOnLater) {
    spoil("slow,400000,1");
    startFetch(false);
    ASSERT_TRUE(waitFor([this] { return probe.calls >= 2; }));
    EXPECT_LT(stop(), 1500);
    EXPECT_TRUE(ended);
    EXPECT_FALSE(result);
    std::string partial = readFile(path());
    EXPECT_GE(partial.size(), 32768u);
    EXPECT_TRUE(partial == body.substr(0, partial.size()));

    startFetch(true);
    ASSERT_TRUE(waitFor([this] { return ended.load(); }));
    EXPECT_TRUE(result);
    EXPECT_TRUE(readFile(path()) == body);
}

// The worker may have to be ended by force, but the stop comes back, and the object serves
// the next transfer.
TEST_F(HttpStop, comesBackFromAServerThatNeverAnswers) {
    spoil("hang,,1");
    startFetch(false);
    ASSERT_TRUE(waitFor([this] { return !server.requests().empty(); }));
    EXPECT_LT(stop(), 5000);
    startFetch(false);
    ASSERT_TRUE(waitFor([this] { return ended.load(); }));
    EXPECT_TRUE(result);
    EXPECT_TRUE(readFile(path()) == body);
}

// Not for ever here: a worker in full swing must not be ended by force in a test.
TEST_F(HttpStop, comesBackFromALongChainOfRedirects) {
    spoil("redirect-loop,,20");
    startFetch(false);
    ASSERT_TRUE(waitFor([this] { return server.requests().size() >= 3; }));
    EXPECT_LT(stop(), 5000);
    EXPECT_TRUE(ended);
    EXPECT_FALSE(result);
}

TEST_F(HttpStop, beforeTheTransferBeginsRefusesIt) {
    auto work = [this] {
        waitFor([this] { return !client.pause(10); });
        result = client.download2file(url("/file"), path(), &probe, false);
    };
    ASSERT_TRUE(client.start(new common::FunctionRunable<decltype(work)>(work)));
    client.stop();
    EXPECT_FALSE(result);
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(HttpStop, wakesAPause) {
    std::atomic<bool> pausing = false;
    auto work = [&] {
        pausing = true;
        result = client.pause(60000);
    };
    ASSERT_TRUE(client.start(new common::FunctionRunable<decltype(work)>(work)));
    ASSERT_TRUE(waitFor([&] { return pausing.load(); }));
    EXPECT_LT(stop(), 1500);
    EXPECT_FALSE(result);
}

// Holds the worker in the middle of a transfer until it is told to go on.
class Gate : public utility::CHttpDownloader::IHttpDownloadSink {
public:
    bool onHttpDownload(const void*, uint32_t, uint32_t, uint32_t) override {
        reached = true;
        return waitFor([this] { return open.load(); });
    }
    std::atomic<bool> reached = false;
    std::atomic<bool> open = false;
};

// The numbers of closed handles are given out again: a client whose session was closed
// must neither read from nor close what now belongs to the client beside it.
TEST_F(HttpStop, ofOneClientLeavesTheOthersAlone) {
    Gate first;
    auto work = [&] {
        result = client.download2file(url("/file"), path(), &first, false);
        ended = true;
    };
    ASSERT_TRUE(client.start(new common::FunctionRunable<decltype(work)>(work)));
    ASSERT_TRUE(waitFor([&] { return first.reached.load(); }));
    client.close();

    Gate second;
    utility::CHttpDownloader other;
    std::atomic<bool> otherResult = false;
    auto otherWork = [&] {
        otherResult = other.download2file(url("/file"), targetWide(L"other"), &second, false);
    };
    ASSERT_TRUE(other.start(new common::FunctionRunable<decltype(otherWork)>(otherWork)));
    ASSERT_TRUE(waitFor([&] { return second.reached.load(); }));
    first.open = true;
    ASSERT_TRUE(waitFor([this] { return ended.load(); }));
    EXPECT_FALSE(result);
    second.open = true;
    EXPECT_TRUE(waitFor([&] { return otherResult.load(); }));
    EXPECT_TRUE(readFile(targetWide(L"other")) == body);
    other.stop();
}
