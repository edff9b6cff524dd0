#pragma once

#include "publisher/fault.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// How one request for a resource of a known size is answered: a value, decided from the
// faults alone, which the server then acts out.

namespace publisher {

enum class Framing { Length, Chunked, Close };

struct Reply {
    int status = 200;
    uint64_t first = 0;     // offset of the first byte sent
    uint64_t length = 0;    // bytes of the body
    uint64_t announced = 0; // what Content-Length says, under Framing::Length
    Framing framing = Framing::Length;
    uint64_t bytesPerSecond = 0; // 0: as fast as it goes
    uint64_t sent = 0;           // bytes after which the connection closes; length: all
    std::string location;        // of a redirect
    bool hangs = false;
    bool sendsResource = true; // false: the body is a short page
};

// rangeStart: of an open-ended or closed range, rangeEnd its last byte if it has one.
struct RangeRequest {
    uint64_t start = 0;
    std::optional<uint64_t> end;
};

Reply decideReply(const std::string& path, uint64_t size, const std::optional<RangeRequest>& range,
                  const std::vector<Fault>& faults);

} // namespace publisher
