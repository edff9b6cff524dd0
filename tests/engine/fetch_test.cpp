#include "engine/http_fetch.h"

#include "publisher/publisher.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>

using engine::fetch;
using publisher::FaultKind;

namespace {

const std::atomic<bool> goOn = false;

class Fetch : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(server.start());
        server.publish("/file", std::string(5000, 'x'));
    }
    std::wstring url(const std::string& path) const {
        const std::string address = server.url(path);
        return {address.begin(), address.end()};
    }
    size_t fetchedBytes(size_t mostBytes = 5000) {
        const auto fetched = fetch({url("/file"), L"test", mostBytes}, goOn);
        return fetched ? fetched->body.size() : 0;
    }
    publisher::Publisher server;
};

} // namespace

TEST_F(Fetch, takesWholeBodiesOnly) {
    struct Row {
        publisher::Fault fault;
        size_t bytes;
    };
    const Row rows[] = {
        {{FaultKind::Chunked, 0, {}, 0}, 5000},
        {{FaultKind::NoLength, 0, {}, 0}, 5000},
        {{FaultKind::Cut, 1000, {}, 0}, 0},
        {{FaultKind::WrongLength, 7, {}, 0}, 0},
        {{FaultKind::Status, 500, {}, 0}, 0},
        {{FaultKind::RedirectLoop, 0, {}, 0}, 0},
        {{FaultKind::Redirect, 0, "file:///c:/", 0}, 0},
    };
    EXPECT_EQ(fetchedBytes(), 5000u);
    for (const Row& row : rows) {
        server.clearFaults();
        server.clearRequests();
        server.addFault("/file", row.fault);
        EXPECT_EQ(fetchedBytes(), row.bytes) << static_cast<int>(row.fault.kind);
        EXPECT_LE(server.requests().size(), 6u) << static_cast<int>(row.fault.kind);
    }
    server.clearFaults();
    EXPECT_EQ(fetchedBytes(4999), 0u); // one byte too long
}

TEST_F(Fetch, followsToAnotherPlaceAndTellsIt) {
    server.publish("/a", "");
    server.addFault("/a", {FaultKind::Redirect, 0, "/file", 0});
    const auto fetched = fetch({url("/a"), L"test", 5000}, goOn);
    ASSERT_TRUE(fetched);
    EXPECT_EQ(fetched->address, url("/file"));
}

TEST_F(Fetch, knowsHttpAloneAndStops) {
    for (const wchar_t* address :
         {L"", L"file:///c:/windows/win.ini", L"ftp://127.0.0.1/", L"nonsense", L"http://"})
        EXPECT_FALSE(fetch({address, L"test", 5000}, goOn)) << address;
    const std::atomic<bool> cancelled = true;
    EXPECT_FALSE(fetch({url("/file"), L"test", 5000}, cancelled));
    EXPECT_EQ(engine::resolveAddress(L"http://h/a/b?x=1", L"c.png"), L"http://h/a/c.png");
    EXPECT_EQ(engine::resolveAddress(L"http://h/a", L"c" + std::wstring(5000, L'c')), L"");
}
