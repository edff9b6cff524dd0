#include "utility/files.h"
#include "utility/log.h"
#include "utility/log_writer.h"

#include <benchmark/benchmark.h>

#include <cstdarg>
#include <cstdio>

// What common::log costs its caller with the writer running, beside the C library's
// formatting of the same line into a buffer. Lines beyond the writer's limit are
// dropped, as in life.

namespace {

int format(char* buffer, size_t size, const char* text, ...) {
    va_list arguments;
    va_start(arguments, text);
    const int length = std::vsnprintf(buffer, size, text, arguments);
    va_end(arguments);
    return length;
}

void formatIntoBuffer(benchmark::State& state) {
    char line[512];
    int number = 0;
    for (auto _ : state) {
        format(line, sizeof line,
               "%02d-%02d\t%02d:%02d:%02d.%03d\t%04d\t%s\t(%d):removeFile file from [ %s ] error = %d.\r\n",
               11, 19, 6, 11, 46, 123, 1234, "utility::ufile::removeFile", 372, "c:\\folder\\file.txt",
               ++number);
        benchmark::DoNotOptimize(line);
    }
}
BENCHMARK(formatIntoBuffer)->Threads(1)->Threads(4)->UseRealTime();

std::wstring logPath() {
    return utility::ufile::getModuleDir() + L"vynbench.log";
}

void startLog(const benchmark::State&) {
    common::setLogSink(common::writeLogLine);
    common::LogWriter::start(logPath());
}

void stopLog(const benchmark::State&) {
    common::LogWriter::stop();
    common::setLogSink(nullptr);
    utility::ufile::removeFile(logPath());
}

void logLine(benchmark::State& state) {
    int number = 0;
    for (auto _ : state)
        common::log("utility::ufile::removeFile", 372, L"removeFile file from [ %s ] error = %d.",
                    L"c:\\folder\\file.txt", ++number);
}
BENCHMARK(logLine)->Setup(startLog)->Teardown(stopLog)->Threads(1)->Threads(4)->UseRealTime();

} // namespace
