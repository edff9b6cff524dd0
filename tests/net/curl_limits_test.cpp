#include "tests/net/net_fixture.h"
#include "utility/curl_downloader.h"
#include "utility/curl_library.h"

#include <curl/curl.h>

#include <cstdarg>
#include <future>

// The limits of the file client, a small part of their size so that a test can meet them: the
// linker leads the client's settings through here.

#undef curl_easy_setopt

namespace {

std::atomic<int> smaller = 1;

// With sizes here, transfers are pieces of these, straight to the client's write function.
std::vector<size_t> pieces;
curl_write_callback writeFunction = nullptr;
void* writeData = nullptr;

} // namespace

extern "C" CURLcode __real_curl_easy_perform(CURL* curl);

extern "C" CURLcode __wrap_curl_easy_perform(CURL* curl) {
    if (pieces.empty())
        return __real_curl_easy_perform(curl);
    for (const size_t size : pieces)
        if (writeFunction(std::string(size, 'x').data(), 1, size, writeData) != size)
            return CURLE_WRITE_ERROR;
    return CURLE_OK;
}

extern "C" CURLcode __real_curl_easy_setopt(CURL* curl, CURLoption option, ...);

extern "C" CURLcode __wrap_curl_easy_setopt(CURL* curl, CURLoption option, ...) {
    va_list arguments;
    va_start(arguments, option);
    CURLcode code;
    if (option >= CURLOPTTYPE_OFF_T && option < CURLOPTTYPE_BLOB) {
        curl_off_t value = va_arg(arguments, curl_off_t);
        if (option == CURLOPT_MAX_RECV_SPEED_LARGE)
            value /= smaller;
        code = __real_curl_easy_setopt(curl, option, value);
    } else if (option == CURLOPT_TIMEOUT_MS || option == CURLOPT_CONNECTTIMEOUT_MS) {
        code = __real_curl_easy_setopt(curl, option, va_arg(arguments, long) / smaller);
    } else { // a long or a pointer, of the same size here
        void* const value = va_arg(arguments, void*);
        if (option == CURLOPT_WRITEFUNCTION)
            writeFunction = reinterpret_cast<curl_write_callback>(value);
        if (option == CURLOPT_WRITEDATA)
            writeData = value;
        code = __real_curl_easy_setopt(curl, option, value);
    }
    va_end(arguments);
    return code;
}

namespace {

using utility::CurlLibrary;
using utility::QzCurlDownloader;
using namespace std::chrono_literals;

class CurlLimits : public NetTest {
protected:
    static void SetUpTestSuite() { CurlLibrary::start(); }
    static void TearDownTestSuite() { CurlLibrary::end(); }
    void TearDown() override {
        smaller = 1;
        pieces.clear();
        NetTest::TearDown();
    }

    static std::chrono::milliseconds timeOf(const std::function<void()>& work) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                     begin);
    }
};

} // namespace

TEST_F(CurlLimits, aDocumentThatDoesNotComeIsGivenUpLongBeforeAFile) {
    server.publish("/file", "x");
    spoil("hang");
    smaller = 40;
    std::string document = "old";
    const auto spent =
        timeOf([&] { EXPECT_FALSE(QzCurlDownloader::downloadMemory(server.url("/file"), document)); });
    EXPECT_GE(spent, 8000ms / 40 - 20ms); // less the steps of the clocks
    EXPECT_EQ(document, "old");
    EXPECT_EQ(logged(L"curl download error Timeout was reached"), 1);

    auto transfer = std::async(std::launch::async, [&] {
        return QzCurlDownloader::downloadFile(target("file"), server.url("/file"), {});
    });
    EXPECT_EQ(transfer.wait_for(500ms), std::future_status::timeout);
    server.stop(); // ends the wait
    EXPECT_FALSE(transfer.get());
    EXPECT_EQ(logged(L"Timeout was reached"), 1);
    EXPECT_EQ(logged(L"curl download error"), 2);
}

TEST_F(CurlLimits, aServerThatTakesNoConnectionIsGivenUp) {
    smaller = 20;
    // A listener whose queue is full: its host drops what comes.
    std::string document = "old";
    const SOCKET listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in place = {};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof place;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&place), size), 0);
    ASSERT_EQ(listen(listener, 0), 0);
    getsockname(listener, reinterpret_cast<sockaddr*>(&place), &size);
    std::vector<SOCKET> callers;
    for (int i = 0; i < 4; ++i) {
        callers.push_back(socket(AF_INET, SOCK_STREAM, 0));
        u_long later = 1;
        ioctlsocket(callers.back(), FIONBIO, &later);
        connect(callers.back(), reinterpret_cast<sockaddr*>(&place), size);
    }
    const std::string url = "http://127.0.0.1:" + std::to_string(ntohs(place.sin_port)) + "/file";
    const auto spent = timeOf([&] { EXPECT_FALSE(QzCurlDownloader::downloadFile(target("file"), url, {})); });
    EXPECT_GE(spent, 4000ms / 20 - 20ms);
    EXPECT_EQ(logged(L"curl download error Timeout was reached"), 1);
    for (const SOCKET caller : callers)
        closesocket(caller);
    closesocket(listener);
}

TEST_F(CurlLimits, aDocumentHasAnEnd) {
    std::string document = "old";
    pieces = {64 << 20, 1};
    EXPECT_FALSE(QzCurlDownloader::downloadMemory(server.url("/file"), document));
    EXPECT_EQ(document, "old");
    EXPECT_EQ(logged(L"not enough memory error"), 1);
    EXPECT_EQ(logged(L"curl download error"), 1);
    pieces = {1, (64 << 20) - 1};
    EXPECT_TRUE(QzCurlDownloader::downloadMemory(server.url("/file"), document));
    EXPECT_EQ(document.size(), 64u << 20);
}

TEST_F(CurlLimits, aFileComesNoFasterThanItsCeiling) {
    const std::string body = patternBytes(4 * 1024 * 1024); // most of which the client takes bit by bit
    server.publish("/file", body);
    smaller = 5;
    const auto spent =
        timeOf([&] { EXPECT_TRUE(QzCurlDownloader::downloadFile(target("file"), server.url("/file"), {})); });
    EXPECT_GE(spent, 400ms);
    EXPECT_TRUE(readFile(targetWide(L"file")) == body);
}
