#include "utility/http_head.h"

#include <algorithm>
#include <cwchar>
#include <string_view>

namespace utility {

namespace {

constexpr int PartialContent = 206;
constexpr int RangeNotSatisfiable = 416;

constexpr std::wstring_view Digits = L"0123456789";
constexpr size_t MostDigits = 19; // always fit 64 bits

bool isSuccess(int status) {
    return status >= 200 && status <= 299;
}

std::optional<uint64_t> numberAt(const std::wstring& text, size_t at) {
    const wchar_t* begin = text.c_str() + at;
    wchar_t* end = nullptr;
    const uint64_t number = std::wcstoull(begin, &end, 10);
    return end == begin ? std::nullopt : std::optional(number);
}

std::optional<uint64_t> readLength(const std::wstring& text) {
    if (text.size() > MostDigits || text.find_first_not_of(Digits) != text.npos)
        return std::nullopt;
    return numberAt(text, 0);
}

// "bytes FIRST-LAST/SIZE"
std::optional<uint64_t> readRangeFrom(const std::wstring& text) {
    constexpr std::wstring_view unit = L"bytes";
    return text.starts_with(unit) ? numberAt(text, unit.size()) : std::nullopt;
}

// Also of "bytes */SIZE", which comes with a range that is refused.
std::optional<uint64_t> readRangeSize(const std::wstring& text) {
    const size_t slash = text.find(L'/');
    if (slash == text.npos || slash + 1 == text.size() || Digits.find(text[slash + 1]) == Digits.npos)
        return std::nullopt;
    return numberAt(text, slash + 1);
}

} // namespace

HttpHead readHead(int status, const std::wstring& contentLength, const std::wstring& contentRange) {
    return {status, readLength(contentLength), readRangeFrom(contentRange), readRangeSize(contentRange)};
}

HttpBody judgeBody(const HttpHead& head, uint64_t start) {
    if (!isSuccess(head.status))
        return HttpBody::Refused;
    if (start == 0 || head.status != PartialContent)
        return HttpBody::Whole;
    return head.rangeFrom.value_or(start) == start ? HttpBody::Appended : HttpBody::Elsewhere;
}

bool isBeyondResuming(const HttpHead& head, uint64_t start, bool rangeFailed) {
    if (rangeFailed)
        return isSuccess(head.status);
    return head.status == RangeNotSatisfiable && head.rangeSize != start;
}

bool isWholeBody(const HttpHead& head, uint64_t received) {
    return !head.length || received >= *head.length;
}

uint32_t addCounts(uint32_t left, uint32_t right) {
    return left > UINT32_MAX - right ? UINT32_MAX : left + right;
}

uint32_t lengthAsCount(const HttpHead& head) {
    return static_cast<uint32_t>(std::min<uint64_t>(head.length.value_or(UINT64_MAX), UnknownHttpLength));
}

} // namespace utility
