#include "utility/log.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string heardFunction;
int heardLine;
std::wstring heardText;

void hear(const char* function, int line, const wchar_t* text) {
    heardFunction = function;
    heardLine = line;
    heardText = text;
}

class LogTest : public testing::Test {
protected:
    LogTest() { common::setLogSink(hear); }
    ~LogTest() override { common::setLogSink(nullptr); }
};

TEST_F(LogTest, FormatsForTheSinkWhereStringsAreWide) {
    common::log("test::name", 7, L"[%s] 100%% %5d|%-4s|%.2s %%s%s", L"%d \x4e2d", 42, L"ab", L"xyz", L"");
    EXPECT_EQ(heardFunction, "test::name");
    EXPECT_EQ(heardLine, 7);
    EXPECT_EQ(heardText, L"[%d \x4e2d] 100%    42|ab  |xy %s");
    common::log("test::name", 8, L"plain");
    EXPECT_EQ(heardText, L"plain");
}

TEST_F(LogTest, EndsWithinItsBufferWhateverTheLength) {
    for (const size_t length : {8190u, 8191u, 8192u, 100000u}) {
        common::log("test::name", 1, L"%s", std::wstring(length, L'x').c_str());
        EXPECT_LT(heardText.size(), 8192u);
    }
    common::log("test::name", 1, L"short");
    EXPECT_EQ(heardText, L"short");
}

} // namespace
