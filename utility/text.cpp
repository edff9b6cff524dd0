#include "utility/text.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>

namespace utility {

namespace {

template <class View>
View withoutOuterBlanks(View text) {
    const auto first = text.find_first_not_of(' ');
    if (first == View::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

template <class View>
auto splitView(View text, View separator) {
    std::vector<std::basic_string<typename View::value_type>> items;
    if (text.empty() || separator.empty())
        return items;
    size_t position = 0;
    for (size_t hit; (hit = text.find(separator, position)) != View::npos; position = hit + separator.size())
        items.emplace_back(withoutOuterBlanks(text.substr(position, hit - position)));
    items.emplace_back(withoutOuterBlanks(text.substr(position)));
    return items;
}

} // namespace

std::string trim(std::string_view text) {
    return std::string(withoutOuterBlanks(text));
}

std::wstring trim(std::wstring_view text) {
    return std::wstring(withoutOuterBlanks(text));
}

void toLower(std::string& text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

int toInt(const std::string& text) {
    // strtol saturates, where atoi may do anything; long has 32 bits on Windows only.
    const long value = std::strtol(text.c_str(), nullptr, 10);
    return static_cast<int>(std::clamp<long>(value, INT_MIN, INT_MAX));
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    return splitView(text, separator);
}

std::vector<std::wstring> split(std::wstring_view text, std::wstring_view separator) {
    return splitView(text, separator);
}

bool isPlainVersion(std::wstring_view word) {
    const auto isPlain = [](wchar_t c) {
        return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') ||
               c == L'.' || c == L'-' || c == L'_';
    };
    return !word.empty() && word.size() <= 64 && std::all_of(word.begin(), word.end(), isPlain);
}

} // namespace utility
