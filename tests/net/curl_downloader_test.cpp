#include "tests/net/net_fixture.h"
#include "utility/curl_downloader.h"
#include "utility/curl_library.h"
#include "utility/encoding.h"
#include "utility/handles.h"

#include <future>

using utility::CurlLibrary;
using utility::QzCurlDownloader;

namespace {

class CurlDownloader : public NetTest {
protected:
    static void SetUpTestSuite() { CurlLibrary::start(); }
    static void TearDownTestSuite() { CurlLibrary::end(); }
    void SetUp() override {
        NetTest::SetUp();
        server.publish("/file", body);
    }

    bool fetch() { return QzCurlDownloader::downloadFile(target("file.tmp"), server.url("/file"), {}); }
    std::string held() const { return readFile(targetWide(L"file.tmp")); }
    void leave(const std::string& bytes) { writeFile(targetWide(L"file.tmp"), bytes); }

    std::string body = patternBytes(300000);
};

} // namespace

TEST_F(CurlDownloader, memoryHoldsTheBytesExactly) {
    std::string zeros("a\0b\0", 4);
    server.publish("/zeros", zeros);
    server.publish("/empty", "");
    std::string document = "old";
    EXPECT_TRUE(QzCurlDownloader::downloadMemory(server.url("/zeros"), document));
    EXPECT_EQ(document, zeros);
    EXPECT_TRUE(QzCurlDownloader::downloadMemory(server.url("/empty"), document));
    EXPECT_EQ(document, "");
    EXPECT_TRUE(QzCurlDownloader::downloadMemory(server.url("/file"), document));
    EXPECT_TRUE(document == body);

    auto headers = server.requests()[0].headers;
    EXPECT_EQ(headers.size(), 2u) << "Accept and Host, nothing else";
    EXPECT_EQ(headers.count("User-Agent"), 0u);
}

TEST_F(CurlDownloader, aFailedMemoryTransferLeavesTheOldText) {
    std::string document = "old";
    spoil("cut,1000");
    EXPECT_FALSE(QzCurlDownloader::downloadMemory(server.url("/file"), document));
    server.stop();
    EXPECT_FALSE(QzCurlDownloader::downloadMemory(server.url("/file"), document));
    EXPECT_EQ(document, "old");
    EXPECT_EQ(logged(L"curl download error"), 2);
}

TEST_F(CurlDownloader, anErrorPageIsAResult) {
    std::string document;
    EXPECT_TRUE(QzCurlDownloader::downloadMemory(server.url("/none"), document));
    EXPECT_NE(document.find("404"), document.npos);
}

TEST_F(CurlDownloader, continuesWhatIsThere) {
    EXPECT_TRUE(fetch());
    EXPECT_TRUE(held() == body);
    leave(body.substr(0, 1000));
    EXPECT_TRUE(fetch());
    EXPECT_TRUE(held() == body);
    leave("");
    EXPECT_TRUE(fetch());
    auto requests = server.requests();
    ASSERT_EQ(requests.size(), 3u);
    EXPECT_EQ(requests[0].range, "");
    EXPECT_EQ(requests[1].range, "bytes=1000-");
    EXPECT_EQ(requests[2].range, "");
}

TEST_F(CurlDownloader, aBodyThatEndsEarlyStaysForTheNextTry) {
    spoil("cut,100000,1");
    spoil("wrong-length,10,1");
    EXPECT_FALSE(fetch());
    EXPECT_TRUE(held() == body.substr(0, 100000));
    spoil("chunked,,1");
    spoil("cut,100000,1");
    EXPECT_FALSE(fetch());
    EXPECT_TRUE(held() == body.substr(0, 200000));
    EXPECT_TRUE(fetch());
    EXPECT_TRUE(held() == body);
    EXPECT_EQ(logged(L"curl download error Transferred a partial file"), 2);
}

TEST_F(CurlDownloader, aCompletePartialFileIsDone) {
    leave(body);
    EXPECT_TRUE(fetch());
    EXPECT_TRUE(held() == body);
}

// Neither can be continued, now or later: the next try begins anew.
TEST_F(CurlDownloader, bytesThatCannotBeContinuedGo) {
    leave(body + "more");
    EXPECT_FALSE(fetch());
    EXPECT_EQ(held(), "");
    EXPECT_TRUE(fetch());
    EXPECT_TRUE(held() == body);

    for (const char* rule : {"ignore-range,,1", "wrong-range,10,1"}) {
        leave(body.substr(0, 1000));
        spoil(rule);
        EXPECT_FALSE(fetch());
        EXPECT_EQ(held(), "") << rule;
        EXPECT_TRUE(fetch());
        EXPECT_TRUE(held() == body) << rule;
    }
    EXPECT_EQ(logged(L"curl download error Requested range was not delivered"), 2);
}

TEST_F(CurlDownloader, anErrorStatusDoesNotCostThePartialFile) {
    leave(body.substr(0, 1000));
    spoil("status,500,1");
    EXPECT_FALSE(fetch());
    EXPECT_TRUE(held() == body.substr(0, 1000));
    EXPECT_EQ(logged(L"curl download error"), 1);
}

TEST_F(CurlDownloader, filesFollowFiveRedirectsAndNoLoop) {
    spoil("redirect-loop");
    EXPECT_FALSE(fetch());
    EXPECT_EQ(server.requests().size(), 6u);
    EXPECT_EQ(held(), "");
    EXPECT_EQ(logged(L"curl download error Number of redirects hit maximum amount"), 1);
}

TEST_F(CurlDownloader, progressCountsTheWholeFileAndNeverSays100) {
    leave(body.substr(0, 100000));
    spoil("slow,100000");
    int calls = 0;
    DWORD last = 0;
    auto check = [&](int percent, int downloaded, int total) {
        EXPECT_GT(GetTickCount() - last, 900u); // 1000 less the steps of the two clocks
        last = GetTickCount();
        ++calls;
        EXPECT_EQ(total, 300000);
        EXPECT_GE(downloaded, 100000);
        EXPECT_NEAR(percent, downloaded / 3000.0, 1.0);
        EXPECT_LT(percent, 100);
    };
    EXPECT_TRUE(QzCurlDownloader::downloadFile(target("file.tmp"), server.url("/file"), check));
    EXPECT_GE(calls, 1);

    server.clearFaults();
    spoil("no-length");
    leave("");
    EXPECT_TRUE(QzCurlDownloader::downloadFile(target("file.tmp"), server.url("/file"),
                                               [](int, int, int) { FAIL() << "no length, no report"; }));
    EXPECT_TRUE(held() == body);
}

TEST_F(CurlDownloader, aLockedTargetFails) {
    utility::FileOwner holder(
        CreateFileA(target("file.tmp").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    ASSERT_TRUE(holder);
    EXPECT_FALSE(fetch());
    EXPECT_EQ(logged(L"open file error  error:32"), 1);
    EXPECT_TRUE(server.requests().empty());
}

// As at the end of the program, with workers that nobody joins.
TEST_F(CurlDownloader, theLibraryStaysWhileATransferRuns) {
    spoil("hang,,1");
    std::string hung, more = "old";
    auto transfer = std::async(std::launch::async,
                               [&] { return QzCurlDownloader::downloadMemory(server.url("/file"), hung); });
    ASSERT_TRUE(waitFor([&] { return !server.requests().empty(); }));
    CurlLibrary::end();
    CurlLibrary::end();
    EXPECT_EQ(logged(L"transfers under way: 1, the library stays"), 2);
    EXPECT_FALSE(QzCurlDownloader::downloadMemory(server.url("/file"), more));
    EXPECT_FALSE(fetch());
    EXPECT_EQ(server.requests().size(), 1u);
    EXPECT_EQ(more, "old");

    server.stop(); // ends the wait
    EXPECT_FALSE(transfer.get());
    EXPECT_EQ(logged(L"curl download error"), 1);
    CurlLibrary::end();
    EXPECT_EQ(logged(L"the library stays"), 2);
    EXPECT_EQ(logged(L"curl has ended"), 2);
    CurlLibrary::start();
}

TEST_F(CurlDownloader, takesTargetsOfTheSystemsCodePage) {
    std::string name = target("caf\xE9.tmp");
    EXPECT_TRUE(QzCurlDownloader::downloadFile(name, server.url("/file"), {}));
    EXPECT_EQ(GetFileAttributesA(name.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u);
}

TEST_F(CurlDownloader, aFullDiskEndsTheTransferAtOnce) {
    if (fullDisk().empty())
        GTEST_SKIP() << "no full disk here";
    std::string device = utility::wideToAnsi(fullDisk());
    EXPECT_FALSE(QzCurlDownloader::downloadFile(device, server.url("/file"), {}));
    EXPECT_EQ(logged(L"write file error:112"), 1);
    EXPECT_EQ(logged(L"curl download error"), 1);
}
