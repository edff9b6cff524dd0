#include "tests/support/log_watch.h"

#include "utility/log.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>
#include <utility>

namespace test {

namespace {

std::mutex mutex;
std::vector<std::wstring> lines;
std::vector<std::wstring> allowed;

void keepLine(const char*, int, const wchar_t* text) {
    const std::lock_guard lock(mutex);
    lines.emplace_back(text);
}

bool holds(const std::wstring& line, const std::wstring& text) {
    return line.find(text) != line.npos;
}

bool tellsOfError(const std::wstring& line) {
    for (const wchar_t* sign : {L"error", L"Error", L"fail", L"refuse"})
        if (holds(line, sign))
            return true;
    return false;
}

bool isAllowed(const std::wstring& line) {
    return std::ranges::any_of(allowed, [&](const std::wstring& text) { return holds(line, text); });
}

std::string printable(const std::wstring& line) {
    std::string text;
    for (const wchar_t letter : line)
        text += letter < 127 ? static_cast<char>(letter) : '?';
    return text;
}

// Stands round each test, its fixture included.
class LogWatch : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        takeLog();
        allowed.clear();
        watchLog();
    }

    void OnTestEnd(const testing::TestInfo&) override {
        common::setLogSink(nullptr);
        for (const std::wstring& line : takeLog())
            if (tellsOfError(line) && !isAllowed(line))
                ADD_FAILURE() << "unexpected log line: " << printable(line);
    }
};

} // namespace

void allowErrors(const std::wstring& text) {
    allowed.push_back(text);
}

int logged(const std::wstring& text) {
    const std::lock_guard lock(mutex);
    return static_cast<int>(
        std::ranges::count_if(lines, [&](const std::wstring& line) { return holds(line, text); }));
}

std::vector<std::wstring> takeLog() {
    const std::lock_guard lock(mutex);
    return std::exchange(lines, {});
}

void watchLog() {
    common::setLogSink(keepLine);
}

} // namespace test

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    testing::UnitTest::GetInstance()->listeners().Append(new test::LogWatch);
    return RUN_ALL_TESTS();
}
