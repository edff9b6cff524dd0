#include "launcher/qzvy/Progress.h"

#include <algorithm>
#include <cwchar>

namespace {

constexpr uint64_t Kilobyte = 1024;
constexpr uint64_t Megabyte = 1024 * 1024;

// Whole megabytes, or kilobytes for less than one.
std::wstring sizeText(uint64_t bytes, const wchar_t* tail) {
    const bool mega = bytes >= Megabyte;
    return std::to_wstring(bytes / (mega ? Megabyte : Kilobyte)) + (mega ? L"MB" : L"KB") + tail;
}

} // namespace

int percentOf(uint64_t done, uint64_t total) {
    if (total == 0)
        return 0;
    return static_cast<int>(std::min(done, total) * 100 / total);
}

std::wstring amountText(uint64_t done, uint64_t total) {
    return sizeText(done, L"/") + std::to_wstring(total / Megabyte) + L"MB";
}

std::wstring speedText(uint64_t speed) {
    return sizeText(speed, L"/S");
}

std::wstring timeLeftText(uint64_t done, uint64_t total, uint64_t speed) {
    if (speed == 0)
        return L"--:--:--";
    const uint64_t left = total > done ? (total - done) / speed : 0;
    wchar_t text[32];
    swprintf(text, std::size(text), L"%02u:%02u:%02u", static_cast<unsigned>(left / 3600),
             static_cast<unsigned>(left / 60 % 60), static_cast<unsigned>(left % 60));
    return text;
}

int nextInstallPercent(int percent) {
    return std::min(percent + 1, 99);
}

int iconOffset(int percent) {
    return percent * 978 / 100 + 8;
}
