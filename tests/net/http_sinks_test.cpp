#include "utility/http_sinks.h"

#include "tests/net/net_fixture.h"

using utility::CHttpClient;
using utility::CHttpDownload2FileSink;

namespace {

class HttpSinks : public NetTest {
protected:
    uint32_t totalFor(uint32_t contentLength, uint32_t startSize) {
        CHttpDownload2FileSink sink(targetWide(L"f"), &worker, &probe, startSize);
        EXPECT_TRUE(sink.onHttpRecvHeader(contentLength, 206));
        EXPECT_TRUE(sink.onHttpRecvData("x", 1));
        sink.close();
        return probe.lastTotal;
    }

    common::WorkerThread worker;
    ProgressProbe probe;
};

} // namespace

TEST_F(HttpSinks, totalCountsFromTheStartOfTheFileAndNeverWraps) {
    EXPECT_EQ(totalFor(5000, 0), 5000u);
    EXPECT_EQ(totalFor(5000, 700), 5700u);
    EXPECT_EQ(probe.lastReceived, 701u);
    EXPECT_EQ(totalFor(0, 0), 10485760u);
    EXPECT_EQ(totalFor(CHttpClient::UnknownLength, 0), 0xFFFFFFFFu);
    EXPECT_EQ(totalFor(CHttpClient::UnknownLength, 700), 0xFFFFFFFFu);
    EXPECT_EQ(totalFor(5000, 0xFFFFFFFF), 0xFFFFFFFFu);
    EXPECT_EQ(probe.lastReceived, 0xFFFFFFFFu);
}

TEST_F(HttpSinks, onlySuccessTouchesTheFile) {
    writeFile(targetWide(L"f"), "old");
    for (int status : {0, 199, 300, 404, 500}) {
        CHttpDownload2FileSink sink(targetWide(L"f"), &worker, nullptr, 0);
        EXPECT_FALSE(sink.onHttpRecvHeader(10, status)) << status;
        sink.close();
    }
    EXPECT_EQ(readFile(targetWide(L"f")), "old");
    EXPECT_EQ(logged(L"onHttpErro status = 404"), 1);
}

// As by the launcher of another session, which fetches the same bytes.
TEST_F(HttpSinks, aFileThatHasGrownMeanwhileKeepsItsBytesInPlace) {
    writeFile(targetWide(L"f"), "0123456");
    CHttpDownload2FileSink sink(targetWide(L"f"), &worker, nullptr, 4);
    EXPECT_TRUE(sink.onHttpRecvHeader(6, 206));
    EXPECT_TRUE(sink.onHttpRecvData("456789", 6));
    sink.close();
    EXPECT_EQ(readFile(targetWide(L"f")), "0123456789");
}

TEST_F(HttpSinks, memoryIsBounded) {
    std::string body;
    utility::CHttpDownload2MemSink sink(&body, &worker);
    std::string megabyte(1024 * 1024, 'x');
    int taken = 0;
    while (taken < 100 && sink.onHttpRecvData(megabyte.data(), static_cast<uint32_t>(megabyte.size())))
        ++taken;
    EXPECT_EQ(taken, 64);
    EXPECT_EQ(logged(L"refused"), 1);
}
