#include "utility/http_head.h"

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <string_view>

// Any answers of a server to one download that is tried again and again: whatever place a body is
// said to have in the whole, there it must come to lie in the file. Input: lines of
// STATUS|CONTENT-LENGTH|CONTENT-RANGE|BYTES.

namespace {

using utility::HttpBody;
using utility::HttpHead;

void check(bool sound) {
    if (!sound)
        abort();
}

struct Answer {
    std::wstring field[4];
};

Answer readAnswer(std::string_view line) {
    Answer answer;
    size_t field = 0;
    for (const char byte : line)
        if (byte == '|' && field < 3)
            ++field;
        else
            answer.field[field] += static_cast<unsigned char>(byte);
    return answer;
}

// At most 18 digits and nothing else; -1 otherwise.
int64_t plainNumber(std::wstring_view text) {
    int64_t value = text.empty() || text.size() > 18 ? -1 : 0;
    for (size_t i = 0; i < text.size() && value >= 0; ++i)
        value = text[i] >= L'0' && text[i] <= L'9' ? value * 10 + (text[i] - L'0') : -1;
    return value;
}

// The place and the size of "bytes FIRST-LAST/SIZE" that is written as it should be.
bool readRange(std::wstring_view text, int64_t& first, int64_t& size) {
    const size_t dash = text.find(L'-'), slash = text.find(L'/');
    if (!text.starts_with(L"bytes ") || dash == text.npos || slash == text.npos || dash > slash)
        return false;
    first = plainNumber(text.substr(6, dash - 6));
    size = plainNumber(text.substr(slash + 1));
    return first >= 0 && size >= 0 && plainNumber(text.substr(dash + 1, slash - dash - 1)) >= first;
}

void checkNumbers(const HttpHead& head, const Answer& answer) {
    const int64_t length = plainNumber(answer.field[1]);
    check(length < 0 || head.length == static_cast<uint64_t>(length));
    check(head.length.has_value() <=
          (answer.field[1].find_first_not_of(L"0123456789") == std::wstring::npos));
    const uint32_t count = utility::lengthAsCount(head);
    check(head.length && *head.length < UINT32_MAX ? count == *head.length : count == UINT32_MAX);
    check(utility::addCounts(count, 7) >= count);
    check(utility::isWholeBody(head, UINT64_MAX));
    if (length > 0)
        check(!utility::isWholeBody(head, static_cast<uint64_t>(length) - 1));
}

class Download {
public:
    void take(const Answer& answer) {
        const auto status = static_cast<int>(std::wcstol(answer.field[0].c_str(), nullptr, 10));
        const HttpHead head = utility::readHead(status, answer.field[1], answer.field[2]);
        const uint64_t start = held;
        checkNumbers(head, answer);
        int64_t first = 0, size = -1;
        const bool ranged = readRange(answer.field[2], first, size);
        const HttpBody body = utility::judgeBody(head, start);
        check((body == HttpBody::Refused) == (status < 200 || status > 299));
        checkEnd(head, start, ranged ? size : -1, body);
        if (body == HttpBody::Whole)
            held = 0;
        if (body == HttpBody::Whole || body == HttpBody::Appended)
            receive(status != 206 ? 0 : ranged ? first : static_cast<int64_t>(start), answer.field[3].size());
    }

private:
    void receive(int64_t from, size_t count) {
        if (held == 0 && from != 0) // a part that nobody asked for
            return;
        check(static_cast<uint64_t>(from) == held);
        held += count;
    }

    // Bytes that can go on are never given up, those that cannot never kept.
    static void checkEnd(const HttpHead& head, uint64_t start, int64_t size, HttpBody body) {
        const bool given = utility::isBeyondResuming(head, start, false);
        check(!given || body == HttpBody::Refused);
        if (head.status == 416 && size >= 0)
            check(given == (static_cast<uint64_t>(size) != start));
        if (body == HttpBody::Elsewhere)
            check(utility::isBeyondResuming(head, start, true));
        if (body == HttpBody::Refused)
            check(!utility::isBeyondResuming(head, start, true));
    }

    uint64_t held = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Download download;
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        download.take(readAnswer(line));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    return 0;
}
