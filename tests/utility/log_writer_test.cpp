#include "tests/utility/support.h"

#include "utility/handles.h"
#include "utility/log.h"
#include "utility/log_file.h"
#include "utility/log_stream.h"
#include "utility/log_writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <thread>

namespace {

using common::LogWriter;

constexpr long long Limit = 52428800;
constexpr size_t Tail = 2097152;

class LogWriterTest : public testing::Test {
protected:
    LogWriterTest() { common::setLogSink(common::writeLogLine); }
    ~LogWriterTest() override { LogWriter::stop(); }

    std::string contents() const { return test::readFile(path); }

    test::TempFolder folder;
    const std::wstring path = folder.path + L"main.log";
};

void append(const std::string& line) {
    LogWriter::append(line.data(), static_cast<unsigned>(line.size()));
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (size_t start = 0, end; (end = text.find("\r\r\n", start)) != text.npos; start = end + 3)
        lines.push_back(text.substr(start, end - start));
    return lines;
}

TEST_F(LogWriterTest, WritesHeaderAndUtf8TextWithAnExpandedLineEnd) {
    common::log("test::early", 1, L"nobody listens yet");
    LogWriter::start(path);
    common::log("test::name", 372, L"[ %s ] %d \x4e2d%%", L"100% %s %n", 5);
    LogWriter::stop();
    common::log("test::late", 1, L"nobody listens any more");
    const std::string number = std::to_string(GetCurrentThreadId());
    const std::string thread = std::string(number.size() < 4 ? 4 - number.size() : 0, '0') + number;
    const std::regex line("\\d\\d-\\d\\d\t\\d\\d:\\d\\d:\\d\\d\\.\\d{3}\t" + thread +
                          "\ttest::name\t\\(372\\):\\[ 100% %s %n \\] 5 \xE4\xB8\xAD%\r\r\n");
    EXPECT_TRUE(std::regex_match(contents(), line)) << contents();
}

TEST_F(LogWriterTest, KeepsTheLastErrorOfTheCaller) {
    LogWriter::start(path);
    SetLastError(4711);
    common::log("test::name", 1, L"x");
    EXPECT_EQ(GetLastError(), 4711u);
}

TEST_F(LogWriterTest, AppendsToAFileUnlessItIsInTheOldFormat) {
    const std::string wide("\xFF\xFE"
                           "a\0b\0",
                           6);
    for (const std::string& before : {std::string(), std::string("\xFF"), std::string("old\r\n"), wide}) {
        test::writeFile(path, before);
        LogWriter::start(path);
        append("new\r\n");
        LogWriter::stop();
        EXPECT_EQ(contents(), (before == wide ? "" : before) + "new\r\r\n");
    }
}

TEST_F(LogWriterTest, SecondStartAndEmptyPathDoNothing) {
    LogWriter::start(L"");
    append("lost\r\n");
    LogWriter::start(path);
    LogWriter::start(folder.path + L"other.log");
    append("kept\r\n");
    LogWriter::stop();
    LogWriter::stop();
    EXPECT_EQ(contents(), "kept\r\r\n");
    EXPECT_FALSE(std::filesystem::exists(folder.path + L"other.log"));
}

TEST_F(LogWriterTest, GoesOnWithoutAFile) {
    LogWriter::start(folder.path + L"no such folder\\main.log");
    common::log("test::name", 1, L"into the void");
    LogWriter::stop();
    LogWriter::start(path);
    append("kept\r\n");
    LogWriter::stop();
    EXPECT_EQ(contents(), "kept\r\r\n");
}

// Another start may take the folder away at the moment when the file would be opened.
TEST_F(LogWriterTest, FileIsFoundInAFolderThatComesLater) {
    const std::wstring later = folder.path + L"log";
    common::LogFile file(later + L"\\main.log");
    file.append("lost");
    CreateDirectoryW(later.c_str(), nullptr);
    file.append("line");
    EXPECT_EQ(test::readFile(later + L"\\main.log"), "line");
}

TEST_F(LogWriterTest, DropsALineThatOutgrowsTheBufferWhole) {
    LogWriter::start(path);
    common::log("f", 1, L"");
    LogWriter::stop();
    const size_t header = contents().size() - 3;
    const size_t room = common::LogStream::BufferSize - 1 - header - 2; // of a line that just fits
    LogWriter::start(path);
    common::log("f", 1, L"%s", std::wstring(room, L'a').c_str());
    common::log("f", 1, L"%s", std::wstring(room + 1, L'b').c_str());
    common::log("f", 1, L"%s", std::wstring(room / 2, L'\x4e2d').c_str()); // three bytes each
    common::log("f", 1, L"%s", std::wstring(20000, L'd').c_str());
    common::log(std::string(9000, 'e').c_str(), 1, L"long name");
    common::log("f", 1, L"short");
    LogWriter::stop();
    const std::vector<std::string> lines = linesOf(contents());
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[1].size(), header + room);
    EXPECT_TRUE(lines[2].ends_with(":short"));
}

// The path is a pipe: the writer's look at the first bytes holds it there, and with it
// all that waits.
class StalledWriter {
public:
    StalledWriter() {
        LogWriter::start(Name);
        // The writer sits in its read once the instance is connected.
        EXPECT_TRUE(test::waitUntil([&] { return connected(look); }));
    }

    // Lets the writer go on and gives all that it writes.
    std::string release() {
        look.reset();
        EXPECT_TRUE(test::waitUntil([&] { return connected(file); }));
        std::string text;
        std::thread reader([&] {
            char bytes[4096];
            for (DWORD got; ReadFile(file.get(), bytes, sizeof bytes, &got, nullptr);)
                text.append(bytes, got);
        });
        LogWriter::stop();
        reader.join();
        return text;
    }

private:
    static constexpr wchar_t Name[] = L"\\\\.\\pipe\\vyn-log-writer-test";

    static HANDLE instance() {
        return CreateNamedPipeW(Name, PIPE_ACCESS_DUPLEX, PIPE_NOWAIT, 2, 1 << 16, 1 << 16, 0, nullptr);
    }
    static bool connected(const utility::FileOwner& pipe) {
        if (!ConnectNamedPipe(pipe.get(), nullptr) && GetLastError() != ERROR_PIPE_CONNECTED)
            return false;
        DWORD mode = PIPE_WAIT;
        SetNamedPipeHandleState(pipe.get(), &mode, nullptr, nullptr);
        return true;
    }

    utility::FileOwner look{instance()};
    utility::FileOwner file{instance()};
};

TEST_F(LogWriterTest, TakesALineUpToTheLimitAndDropsItBeyond) {
    StalledWriter writer;
    append(std::string(LogWriter::capacity, 'a'));
    append("b"); // meets exactly the limit
    append("c");
    EXPECT_EQ(writer.release(), std::string(LogWriter::capacity, 'a') + "b");
}

void makeFile(const std::wstring& path, long long size) {
    const utility::FileOwner file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    const std::string end(Tail, 'x');
    LARGE_INTEGER position;
    position.QuadPart = size - static_cast<long long>(end.size());
    DWORD written;
    ASSERT_TRUE(SetFilePointerEx(file.get(), position, nullptr, FILE_BEGIN));
    ASSERT_TRUE(WriteFile(file.get(), end.data(), Tail, &written, nullptr));
}

TEST_F(LogWriterTest, CutsTheFileBackToItsTailAtTheLimitOnly) {
    const std::string line = "0\x1A"
                             "23\r\r\n"; // a Control-Z is no end
    const auto size = [&] { return static_cast<long long>(std::filesystem::file_size(path)); };
    makeFile(path, Limit - 1 - static_cast<long long>(line.size()));
    LogWriter::start(path);
    append("0\x1A"
           "23\r\n");
    EXPECT_TRUE(test::waitUntil([&] { return size() == Limit - 1; }));
    LogWriter::stop();
    EXPECT_EQ(size(), Limit - 1);

    makeFile(path, Limit - static_cast<long long>(line.size()));
    LogWriter::start(path);
    append("0\x1A"
           "23\r\n");
    LogWriter::stop();
    const std::string tail = std::string(Tail - line.size(), 'x') + line;
    EXPECT_TRUE(contents() == tail) << contents().size();

    LogWriter::start(path);
    append("on\r\n");
    LogWriter::stop();
    EXPECT_TRUE(contents() == tail + "on\r\r\n");
}

void logFromThreads(int threadCount, int lineCount) {
    std::vector<std::thread> threads;
    for (int t = 0; t < threadCount; ++t)
        threads.emplace_back([t, lineCount] {
            for (int i = 0; i < lineCount; ++i)
                common::log("test::burst", t, L"<%d>", i);
        });
    for (std::thread& thread : threads)
        thread.join();
}

TEST_F(LogWriterTest, LinesOfManyThreadsStayWholeAndInOrder) {
    const std::regex shape("[^\t]+\t[^\t]+\t\\d+\ttest::burst\t\\((\\d)\\):<(\\d+)>");
    for (const int count : {20, 5000}) { // the first fits below the limit, the second does not
        test::writeFile(path, "");
        LogWriter::start(path);
        logFromThreads(4, count);
        LogWriter::stop();
        const std::vector<std::string> lines = linesOf(contents());
        int last[4] = {-1, -1, -1, -1};
        for (const std::string& line : lines) {
            std::smatch match;
            ASSERT_TRUE(std::regex_match(line, match, shape)) << line;
            int& previous = last[std::stoi(match[1])];
            EXPECT_LT(previous, std::stoi(match[2]));
            previous = std::stoi(match[2]);
        }
        if (count == 20)
            EXPECT_EQ(lines.size(), 80u);
        else
            EXPECT_GT(lines.size(), 80u);
    }
}

TEST_F(LogWriterTest, ThreadsMayLogAcrossStops) {
    std::atomic<bool> done = false;
    std::vector<std::thread> threads;
    for (int t = 0; t < 2; ++t)
        threads.emplace_back([&done] {
            while (!done)
                common::log("test::race", 1, L"line");
        });
    for (int i = 0; i < 50; ++i) {
        LogWriter::start(path);
        EXPECT_TRUE(test::waitUntil([&] { return std::filesystem::exists(path); }));
        LogWriter::stop();
    }
    done = true;
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& line : linesOf(contents()))
        ASSERT_TRUE(line.ends_with("\ttest::race\t(1):line")) << line;
}

} // namespace
