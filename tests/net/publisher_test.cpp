#include <httplib.h> // before any other Windows header

#include "publisher/publisher.h"
#include "publisher/reply.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <thread>

using namespace publisher;

TEST(Fault, rulesAreReadOrRefused) {
    auto rule = parseFaultRule("/vyn/a.7z,cut,1000,2");
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->path, "/vyn/a.7z");
    EXPECT_EQ(rule->fault.kind, FaultKind::Cut);
    EXPECT_EQ(rule->fault.number, 1000u);
    EXPECT_EQ(rule->fault.times, 2u);
    EXPECT_EQ(parseFaultRule("/a,redirect,http://other/b")->fault.text, "http://other/b");
    EXPECT_TRUE(parseFaultRule("/a,hang"));
    for (const char* wrong :
         {"", "/a", "/a,unknown", "/a,cut", "/a,cut,many", "/a,cut,-1", ",hang", "/a,hang,,x"})
        EXPECT_FALSE(parseFaultRule(wrong)) << wrong;
}

TEST(Reply, rangesAreCutToTheResource) {
    Reply rest = decideReply("/a", 3000, RangeRequest{1000, {}}, {});
    EXPECT_EQ(rest.status, 206);
    EXPECT_EQ(rest.first, 1000u);
    EXPECT_EQ(rest.announced, 2000u);
    EXPECT_EQ(decideReply("/a", 3000, RangeRequest{1000, 9999}, {}).length, 2000u);
    EXPECT_EQ(decideReply("/a", 3000, RangeRequest{1000, 1000}, {}).length, 1u);
    EXPECT_EQ(decideReply("/a", 3000, RangeRequest{3000, {}}, {}).status, 416);
}

TEST(Reply, faultsActTogether) {
    std::vector<Fault> faults = {{FaultKind::Slow, 5000, {}, 0},
                                 {FaultKind::Cut, 700, {}, 0},
                                 {FaultKind::WrongLength, 9, {}, 0},
                                 {FaultKind::IgnoreRange, 0, {}, 0}};
    Reply reply = decideReply("/a", 3000, RangeRequest{1000, {}}, faults);
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.first, 0u);
    EXPECT_EQ(reply.announced, 3009u);
    EXPECT_EQ(reply.sent, 700u);
    EXPECT_EQ(reply.bytesPerSecond, 5000u);
}

namespace {

class PublisherServer : public testing::Test {
protected:
    void SetUp() override {
        root = std::filesystem::temp_directory_path() /
               ("vyn_publisher_" + std::to_string(GetCurrentProcessId()));
        std::filesystem::create_directories(root / L"www \xAC8C" / "pages");
        std::ofstream(root / "secret") << "secret";
        std::ofstream(root / L"www \xAC8C" / "pages" / "a.html") << "page";
        std::u8string folder = (root / L"www \xAC8C").u8string();
        server = std::make_unique<Publisher>(std::string(folder.begin(), folder.end()));
        ASSERT_TRUE(server->start());
        client = std::make_unique<httplib::Client>("127.0.0.1", server->port());
    }
    void TearDown() override {
        server.reset();
        std::error_code error;
        std::filesystem::remove_all(root, error);
    }
    int statusOf(const std::string& path) {
        auto response = client->Get(path);
        return response ? response->status : -1;
    }

    std::filesystem::path root;
    std::unique_ptr<Publisher> server;
    std::unique_ptr<httplib::Client> client;
};

} // namespace

TEST_F(PublisherServer, servesItsFolderAndNothingElse) {
    auto page = client->Get("/pages/a.html?market=1");
    ASSERT_TRUE(page);
    EXPECT_EQ(page->status, 200);
    EXPECT_EQ(page->body, "page");
    EXPECT_EQ(page->get_header_value("Content-Type"), "text/html; charset=utf-8");
    for (const char* path : {"/", "/pages", "/none", "/../secret", "/%2e%2e/secret", "/..%5csecret", "/C:/x"})
        EXPECT_EQ(statusOf(path), 404) << path;
}

TEST_F(PublisherServer, givesAPageInTheLanguageOfTheQuery) {
    server->publish("/banner/en.html", "hello");
    server->publish("/banner/kr.html", "annyeong");
    EXPECT_EQ(client->Get("/banner?language=kr")->body, "annyeong");
    for (const char* query : {"", "?language=", "?language=xx", "?language=../secret", "?language=en.html"})
        EXPECT_EQ(client->Get(std::string("/banner") + query)->body, "hello") << query;
    EXPECT_EQ(client->Get("/banner?language=kr")->get_header_value("Content-Type"),
              "text/html; charset=utf-8");
}

TEST_F(PublisherServer, takesFaultsFromOutside) {
    EXPECT_EQ(client->Post("/control/fault?path=/pages/a.html&kind=status&value=503&times=1")->status, 200);
    EXPECT_EQ(statusOf("/pages/a.html"), 503);
    EXPECT_EQ(statusOf("/pages/a.html"), 200);
    EXPECT_EQ(client->Post("/control/fault?path=/pages/a.html&kind=nonsense")->status, 400);
    EXPECT_EQ(client->Get("/control/requests")->body, "GET /pages/a.html \nGET /pages/a.html \n");
    client->Post("/control/clear");
    EXPECT_EQ(client->Get("/control/requests")->body, "");
}

TEST_F(PublisherServer, stopsUnderRequestsThatHang) {
    server->addFault("/pages/a.html", {FaultKind::Hang, 0, {}, 0});
    std::thread waiting([this] { statusOf("/pages/a.html"); });
    while (server->requests().empty())
        std::this_thread::yield();
    auto begin = std::chrono::steady_clock::now();
    server->stop();
    waiting.join();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
}
