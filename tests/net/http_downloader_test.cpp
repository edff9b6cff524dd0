#include "tests/net/net_fixture.h"
#include "utility/windows.h"

namespace {

using Headers = std::multimap<std::string, std::string>;

class HttpDownloader : public NetTest {
protected:
    void SetUp() override {
        NetTest::SetUp();
        server.publish("/file", body);
    }

    bool fetch(bool resume) { return client.download2file(url("/file"), path(), &probe, resume); }
    std::wstring path() const { return targetWide(L"file.tmp"); }
    void leavePartial(size_t size) { writeFile(path(), body.substr(0, size)); }

    std::string body = patternBytes(300000);
    utility::CHttpDownloader client;
    ProgressProbe probe;
};

} // namespace

TEST_F(HttpDownloader, sendsTheseHeadersAndNoOthers) {
    std::string host = "127.0.0.1:" + std::to_string(server.port());
    Headers plain = {{"Accept", "*/*"},
                     {"Content-Type", "application/x-www-form-urlencoded"},
                     {"Host", host},
                     {"User-Agent", "okhttp/3.5.0L"}};
    Headers resumed = plain;
    resumed.emplace("Range", "bytes=1000-");

    EXPECT_TRUE(fetch(false));
    leavePartial(1000);
    EXPECT_TRUE(fetch(true));
    std::string document;
    EXPECT_TRUE(client.download2mem(document, url("/file?market=2&name=a%20b")));

    auto requests = server.requests();
    ASSERT_EQ(requests.size(), 3u);
    EXPECT_EQ(requests[0].headers, plain);
    EXPECT_EQ(requests[1].headers, resumed);
    EXPECT_EQ(requests[2].headers, plain) << "the range of the earlier transfer is gone";
    EXPECT_EQ(requests[2].target, "/file?market=2&name=a%20b");
    EXPECT_TRUE(document == body);
}

TEST_F(HttpDownloader, resumesBehindWhatIsThere) {
    leavePartial(1000);
    EXPECT_TRUE(fetch(true));
    EXPECT_TRUE(readFile(path()) == body);
    EXPECT_GT(probe.firstReceived, 1000u);
    EXPECT_EQ(probe.lastReceived, body.size());
    EXPECT_EQ(probe.lastTotal, body.size());
    EXPECT_EQ(logged(L"start size 1000"), 1);
}

TEST_F(HttpDownloader, resumeWithNothingThereIsAPlainDownload) {
    EXPECT_TRUE(fetch(true));
    EXPECT_TRUE(readFile(path()) == body);
    writeFile(path(), "");
    EXPECT_TRUE(fetch(true));
    EXPECT_TRUE(readFile(path()) == body);
    for (const auto& request : server.requests())
        EXPECT_EQ(request.range, "");
}

TEST_F(HttpDownloader, aPlainDownloadReplacesTheOldFile) {
    writeFile(path(), std::string(body.size() + 5000, 'o'));
    EXPECT_TRUE(fetch(false));
    EXPECT_TRUE(readFile(path()) == body);
}

TEST_F(HttpDownloader, anErrorStatusLeavesTheOldFile) {
    leavePartial(1000);
    spoil("status,404,1");
    EXPECT_FALSE(fetch(false));
    spoil("status,500,1");
    EXPECT_FALSE(fetch(true));
    EXPECT_TRUE(readFile(path()) == body.substr(0, 1000));
    std::string document;
    spoil("status,500,1");
    EXPECT_FALSE(client.download2mem(document, url("/file")));
    EXPECT_EQ(document, "");
}

TEST_F(HttpDownloader, aServerWithoutRangesStartsTheFileAnew) {
    leavePartial(1000);
    spoil("ignore-range");
    EXPECT_TRUE(fetch(true));
    EXPECT_TRUE(readFile(path()) == body);
    EXPECT_EQ(probe.lastTotal, body.size());
}

TEST_F(HttpDownloader, bytesFromAnotherPlaceAreRefused) {
    leavePartial(1000);
    spoil("wrong-range,10");
    EXPECT_FALSE(fetch(true));
    EXPECT_TRUE(readFile(path()) == body.substr(0, 1000));
    EXPECT_EQ(logged(L"asked for bytes=1000-, got bytes from 990"), 1);
}

TEST_F(HttpDownloader, aPartialFileThatIsTooLongStaysForTheOtherClient) {
    writeFile(path(), body + "more");
    EXPECT_FALSE(fetch(true));
    EXPECT_TRUE(readFile(path()) == body + "more");
    EXPECT_EQ(logged(L"onHttpErro status = 416"), 1);
}

TEST_F(HttpDownloader, aBodyThatEndsEarlyIsNoFinishedOne) {
    spoil("cut,100000,2");
    EXPECT_FALSE(fetch(false));
    EXPECT_TRUE(readFile(path()) == body.substr(0, 100000));
    EXPECT_FALSE(fetch(true));
    EXPECT_TRUE(readFile(path()) == body.substr(0, 200000));
    EXPECT_TRUE(fetch(true));
    EXPECT_TRUE(readFile(path()) == body);

    spoil("wrong-length,10,1");
    EXPECT_FALSE(fetch(false));
    std::string document;
    spoil("cut,100000,1");
    EXPECT_FALSE(client.download2mem(document, url("/file")));
    EXPECT_EQ(logged(L"body ends after 100000 of 300000 bytes"), 2);
    EXPECT_EQ(logged(L"body ends"), 4);
}

TEST_F(HttpDownloader, aBodyOfUnknownLengthIsWhole) {
    for (const char* rule : {"chunked,,1", "no-length,,1"}) {
        spoil(rule);
        EXPECT_TRUE(fetch(false)) << rule;
        EXPECT_TRUE(readFile(path()) == body) << rule;
        EXPECT_EQ(probe.lastTotal, 0xFFFFFFFFu);
    }
}

TEST_F(HttpDownloader, followsRedirects) {
    spoil("redirect,/elsewhere");
    server.publish("/elsewhere", "there");
    std::string document;
    EXPECT_TRUE(client.download2mem(document, url("/file")));
    EXPECT_EQ(document, "there");
}

TEST_F(HttpDownloader, theListenerStopsItBeforeItsPieceIsWritten) {
    probe.stopAtCall = 2;
    EXPECT_FALSE(fetch(false));
    EXPECT_EQ(probe.calls, 2u);
    EXPECT_TRUE(readFile(path()) == body.substr(0, 32768));
}

TEST_F(HttpDownloader, failsCleanlyWithoutAServerOrAnAddress) {
    EXPECT_FALSE(client.download2file(L"no address", path(), &probe, false));
    EXPECT_EQ(logged(L"onHttpErro 1, "), 1);
    server.stop();
    EXPECT_FALSE(fetch(false));
    EXPECT_EQ(logged(L"onHttpErro 6, "), 1);
    EXPECT_EQ(GetFileAttributesW(path().c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(HttpDownloader, takesTargetsOfAnyLanguage) {
    std::wstring korean = targetWide(L"\xAC8C\xC784 \x0E40\x0E01\x0E21.tmp");
    EXPECT_TRUE(client.download2file(url("/file"), korean, nullptr, false));
    EXPECT_TRUE(readFile(korean) == body);
}

TEST_F(HttpDownloader, aTargetThatIsLockedOrWithoutFolderFails) {
    utility::FileOwner holder(
        CreateFileW(path().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    ASSERT_TRUE(holder);
    EXPECT_FALSE(fetch(false));
    EXPECT_EQ(logged(L"lasterror:32"), 1);
    EXPECT_FALSE(client.download2file(url("/file"), targetWide(L"none\\file"), nullptr, false));
    EXPECT_EQ(logged(L"create file error; filename"), 2);
}

// The file that a worker ended by force still holds open for writing.
TEST_F(HttpDownloader, resumesAFileThatIsOpenElsewhere) {
    leavePartial(1000);
    utility::FileOwner holder(CreateFileW(path().c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(holder);
    EXPECT_TRUE(fetch(true));
    ASSERT_EQ(server.requests().size(), 1u);
    EXPECT_EQ(server.requests()[0].range, "bytes=1000-");
}

TEST_F(HttpDownloader, aFullDiskEndsTheTransferAtOnce) {
    if (fullDisk().empty())
        GTEST_SKIP() << "no full disk here";
    EXPECT_FALSE(client.download2file(url("/file"), fullDisk(), &probe, false));
    EXPECT_EQ(probe.calls, 1u);
    EXPECT_EQ(logged(L"error = 112"), 1);
}
