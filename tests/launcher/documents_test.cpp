#include "launcher/qzvy/PlayerPackage.h"
#include "launcher/qzvy/RemoteConfig.h"

#include "tests/support/log_watch.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(RemoteConfig, ReadsItsMembers) {
    const auto config = parseRemoteConfig(R"({"appminversion":5210,"apkurl":"http://a/x.apk",
        "playerminversion":-3,"playerurl":"","version":1001,"launch_bg":"http://a/1.jpg",
        "player_bg":"http://a/2.jpg","other":[{}]})");
    ASSERT_TRUE(config);
    EXPECT_EQ(config->appMinVersion, 5210);
    EXPECT_EQ(config->playerMinVersion, -3);
    EXPECT_EQ(config->apkUrl, "http://a/x.apk");
    EXPECT_EQ(config->playerUrl, ""); // present, and empty
    EXPECT_EQ(config->version, 1001);
    EXPECT_EQ(config->launchBackground, "http://a/1.jpg");
    EXPECT_EQ(config->playerBackground, "http://a/2.jpg");
}

TEST(RemoteConfig, AMemberOfAnotherTypeOrRangeIsAbsent) {
    for (const char* value :
         {"\"5210\"", "5210.0", "2147483648", "-2147483649", "1e3", "null", "[]", "true"}) {
        const auto config = parseRemoteConfig(std::string(R"({"appminversion":)") + value + "}");
        ASSERT_TRUE(config) << value;
        EXPECT_FALSE(config->appMinVersion) << value;
    }
    const auto config = parseRemoteConfig(R"({"apkurl":5,"launch_bg":["x"],"AppMinVersion":1})");
    ASSERT_TRUE(config);
    EXPECT_FALSE(config->apkUrl);
    EXPECT_EQ(config->launchBackground, "");
    EXPECT_FALSE(config->appMinVersion);
}

TEST(RemoteConfig, WhatIsNoObjectIsNothing) {
    for (const std::string& text : {std::string(), std::string("[]"), std::string("12"), std::string("{"),
                                    std::string("{}x"), std::string("\0{}", 3), std::string("<html></html>")})
        EXPECT_FALSE(parseRemoteConfig(text)) << text;
}

// Deep enough to end a parser that calls itself.
TEST(RemoteConfig, DeepNestingIsHarmless) {
    EXPECT_FALSE(parseRemoteConfig(std::string(2'000'000, '[')));
    const std::string deep = std::string(500'000, '[') + std::string(500'000, ']');
    EXPECT_TRUE(parseRemoteConfig("{\"x\":" + deep + "}"));
}

TEST(PlayerPackage, DocumentReplacesWhatIsBuiltIn) {
    const PlayerPackage builtIn = PlayerPackage::builtIn();
    EXPECT_EQ(builtIn.version, L"1.0");
    PlayerPackage package = parsePlayerPackage(R"({"sea":{"url":"http://c/é.7z","vershow":"9.1.0"}})");
    EXPECT_EQ(package.address, L"http://c/é.7z");
    EXPECT_EQ(package.version, L"9.1.0");
    for (const char* text : {"", "[]", "{}", R"({"sea":[]})", R"({"sea":{"url":"","vershow":""}})",
                             R"({"sea":{"url":5,"vershow":9.1}})", R"({"SEA":{"url":"http://c"}})"}) {
        package = parsePlayerPackage(text);
        EXPECT_EQ(package.address, builtIn.address) << text;
        EXPECT_EQ(package.version, builtIn.version) << text;
    }
}

TEST(PlayerPackage, NoDocumentChoosesAFolder) {
    for (const char* word : {"..\\\\..\\\\x", "a/b", "1.0:s", "1 0", "\\u0000", "9\\u0000.7z", "é", "C:"}) {
        const std::string text = std::string(R"({"sea":{"vershow":")") + word + "\"}}";
        EXPECT_EQ(parsePlayerPackage(text).version, L"1.0") << text;
    }
    EXPECT_EQ(test::logged(L"version word refused"), 8);
    test::allowErrors(L"version word refused");
    EXPECT_EQ(parsePlayerPackage(R"({"sea":{"vershow":")" + std::string(65, '1') + "\"}}").version, L"1.0");
    EXPECT_EQ(parsePlayerPackage(R"({"sea":{"vershow":"1_0-b.2"}})").version, L"1_0-b.2");
}

} // namespace
