#include "publisher/publisher.h"
#include "publisher/reply.h"

#include <gtest/gtest.h>

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
