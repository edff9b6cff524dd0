#include "publisher/serve.h"

#include <windows.h>

namespace {

std::string toUtf8(const wchar_t* text) {
    int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
    utf8.resize(utf8.size() - 1);
    return utf8;
}

} // namespace

int wmain(int count, wchar_t** values) {
    std::vector<std::string> arguments;
    for (int index = 1; index < count; ++index)
        arguments.push_back(toUtf8(values[index]));
    return publisher::serve(arguments);
}
