#pragma once

#include <cstdint>
#include <optional>
#include <string>

// What the head of a response means for the bytes that a file holds already: the judgement of
// both web clients, over values alone, so that whatever a server may send can be tried. Free
// of Windows.

namespace utility {

struct HttpHead {
    int status = 0;
    std::optional<uint64_t> length = {};    // announced for this body
    std::optional<uint64_t> rangeFrom = {}; // place of the body's first byte in the whole
    std::optional<uint64_t> rangeSize = {}; // of the whole
};

// The header values as the server sent them, empty where it sent none. What is no number is
// absent.
HttpHead readHead(int status, const std::wstring& contentLength, const std::wstring& contentRange);

enum class HttpBody {
    Refused,   // the status is no success
    Elsewhere, // from another place than the one asked for: it would be put where it does not belong
    Appended,  // goes behind what the file holds
    Whole,     // the file begins anew with it
};

// start: the place that was asked for, 0 for a request of the whole. Only status 206 comes with a
// part. A server that knows no ranges sends the whole with status 200, and through some proxies
// with 203; appended, it would leave a file that is neither the old bytes nor the new.
HttpBody judgeBody(const HttpHead& head, uint64_t start);

// For a client that settles ranges by itself: true when the server's answer shows that what
// the file holds can never be continued. rangeFailed: the client ended with a failure of the
// range, not with success.
bool isBeyondResuming(const HttpHead& head, uint64_t start, bool rangeFailed);

// A connection that the server closes early reads like the end of the body.
bool isWholeBody(const HttpHead& head, uint64_t received);

// Counts of 32 bits stop at their largest value instead of beginning again at 0.
inline constexpr uint32_t UnknownHttpLength = 0xFFFFFFFF;
uint32_t addCounts(uint32_t left, uint32_t right);
uint32_t lengthAsCount(const HttpHead& head); // UnknownHttpLength where none was announced

} // namespace utility
