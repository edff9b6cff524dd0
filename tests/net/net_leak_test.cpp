#include "kit/process_counts.h"
#include "tests/net/net_fixture.h"
#include "utility/curl_downloader.h"
#include "utility/curl_library.h"
#include "utility/encoding.h"

#include <algorithm>

namespace {

class NetLeak : public NetTest {
protected:
    void SetUp() override {
        NetTest::SetUp();
        server.publish("/file", patternBytes(200000));
        utility::CurlLibrary::start();
    }
    void TearDown() override {
        utility::CurlLibrary::end();
        NetTest::TearDown();
    }

    // One transfer of each kind: whole, refused, cut, and stopped in its middle.
    void cycle() {
        spoil("status,404,1");
        EXPECT_FALSE(client.download2file(url("/file"), path, nullptr, true));
        spoil("cut,50000,1");
        EXPECT_FALSE(client.download2file(url("/file"), path, nullptr, false));
        EXPECT_TRUE(client.download2file(url("/file"), path, nullptr, true));
        stopInTheMiddle();
        std::string narrow = utility::wideToAnsi(path);
        EXPECT_TRUE(utility::QzCurlDownloader::downloadFile(narrow, server.url("/file"), {}));
        EXPECT_TRUE(utility::QzCurlDownloader::downloadFile(narrow, server.url("/file"), {}));
    }

    void stopInTheMiddle() {
        spoil("slow,1000000,1");
        ProgressProbe probe;
        utility::CHttpDownloader stopped;
        auto work = [&] { EXPECT_FALSE(stopped.download2file(url("/file"), path, &probe, false)); };
        ASSERT_TRUE(stopped.start(new common::FunctionRunable<decltype(work)>(work)));
        EXPECT_TRUE(waitFor([&] { return probe.calls > 0; }));
        stopped.stop();
    }

    // The system makes pool threads and other things of its own, but not for ever.
    void settle() {
        unsigned most = 0;
        for (int steady = 0, round = 0; steady < 5 && round < 60 && !HasFailure(); ++round) {
            cycle();
            const unsigned now = counts().handles;
            steady = now > most ? 0 : steady + 1;
            most = std::max(most, now);
        }
    }

    kit::ProcessCounts counts() {
        kit::ProcessCounts now;
        EXPECT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), now));
        return now;
    }

    std::wstring path;
    utility::CHttpDownloader client;
};

} // namespace

TEST_F(NetLeak, noCycleLeavesAHandleOrAThread) {
    path = targetWide(L"file.tmp");
    settle();
    const kit::ProcessCounts before = counts();
    constexpr unsigned rounds = 12; // in each of which a leak of ours shows
    for (unsigned round = 0; round < rounds && !HasFailure(); ++round)
        cycle();
    EXPECT_TRUE(waitFor([&] { return counts().handles < before.handles + rounds; })) << counts().handles;
    EXPECT_TRUE(waitFor([&] { return counts().threads < before.threads + rounds; })) << counts().threads;
}
