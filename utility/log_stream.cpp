#include "utility/log_stream.h"

#include "utility/log_writer.h"
#include "utility/windows.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>

namespace common {

namespace {

constexpr size_t MessageLimit = LogStream::BufferSize - 1; // characters that the sink keeps

// Code that failed may log before it looks at the last error.
class LastErrorKeeper {
public:
    ~LastErrorKeeper() { SetLastError(error); }

private:
    const DWORD error = GetLastError();
};

} // namespace

LogStream::LogStream(const char* function, int line) : std::ostream(nullptr) {
    rdbuf(&buffer);
    writeHeader(function, line);
}

LogStream::~LogStream() {
    write("\r\n", 2);
    if (good())
        LogWriter::append(buffer.data(), buffer.length());
}

void LogStream::writeHeader(const char* function, int line) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    char header[BufferSize];
    const int length =
        std::snprintf(header, sizeof header, "%02d-%02d\t%02d:%02d:%02d.%03d\t%04d\t%s\t(%d):", now.wMonth,
                      now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds,
                      static_cast<int>(GetCurrentThreadId()), function, line);
    write(header, length); // a longer one than the buffer fails the stream
}

void writeLogLine(const char* function, int line, const wchar_t* text) {
    const LastErrorKeeper keeper;
    const int length = static_cast<int>(std::min(std::wcslen(text), MessageLimit));
    LogStream stream(function, line);
    char utf8[LogStream::BufferSize];
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, length, utf8, sizeof utf8, nullptr, nullptr);
    if (size == 0 && length > 0)
        stream.setstate(std::ios::failbit); // outgrows the buffer
    stream.write(utf8, size);
}

} // namespace common
