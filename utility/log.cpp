#include "utility/log.h"

#include <atomic>
#include <cstdarg>
#include <cwchar>

#ifndef _WIN32
#include <string>
#include <string_view>
#endif

namespace common {

namespace {

constexpr size_t MessageCapacity = 8192; // characters, the terminator included

std::atomic<LogSink> currentSink = nullptr;

#ifdef _WIN32

// The C runtime's own formatter: the C++ library's takes %s as narrow text. It leaves
// the terminator out when the message fills the buffer.
void formatMessage(wchar_t* text, const wchar_t* format, va_list arguments) {
    _vsnwprintf(text, MessageCapacity - 1, format, arguments);
    text[MessageCapacity - 1] = L'\0';
}

#else

// The Windows dialect in the terms of other C libraries, where %s is narrow text.
std::wstring portableFormat(std::wstring_view format) {
    std::wstring result;
    for (;;) {
        const size_t directive = format.find(L'%');
        const size_t letter = directive == format.npos
                                  ? format.npos
                                  : format.find_first_not_of(L"-+ #0123456789.*", directive + 1);
        result += format.substr(0, letter);
        if (letter == format.npos)
            return result;
        if (format[letter] == L's')
            result += L'l';
        result += format[letter];
        format.remove_prefix(letter + 1);
    }
}

void formatMessage(wchar_t* text, const wchar_t* format, va_list arguments) {
    text[0] = L'\0';
    std::vswprintf(text, MessageCapacity, portableFormat(format).c_str(), arguments);
    text[MessageCapacity - 1] = L'\0';
}

#endif

} // namespace

void setLogSink(LogSink sink) {
    currentSink.store(sink, std::memory_order_release);
}

void log(const char* function, int line, const wchar_t* format, ...) {
    const LogSink sink = currentSink.load(std::memory_order_acquire);
    if (!sink)
        return;
    wchar_t text[MessageCapacity];
    va_list arguments;
    va_start(arguments, format);
    formatMessage(text, format, arguments);
    va_end(arguments);
    sink(function, line, text);
}

} // namespace common
