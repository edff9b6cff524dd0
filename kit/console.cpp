#include "kit/console.h"

#include "utility/log.h"
#include "utility/windows.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>

namespace kit {

std::string toUtf8(std::wstring_view text) {
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, result.data(), size, nullptr, nullptr);
    return result;
}

static void printLogLine(const char* function, int line, const wchar_t* text) {
    fprintf(stderr, "%s (%d): %s\n", function, line, toUtf8(text).c_str());
}

void prepareConsole() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    common::setLogSink(printLogLine);
}

} // namespace kit
