#pragma once

#include <atomic>
#include <cstddef>
#include <optional>
#include <string>

// One file over HTTP or HTTPS through WinINet, whole and in memory.

namespace engine {

struct Fetched {
    std::wstring address; // where it was found in the end
    std::string body;
};

struct FetchOrder {
    std::wstring address;
    std::wstring userAgent;
    size_t mostBytes;
};

// Blocks; for worker threads. Nothing for another scheme, a status other than 200, more
// than five redirections, a body longer than allowed or shorter than announced, 20 seconds
// over, or as soon as cancelled is seen.
std::optional<Fetched> fetch(const FetchOrder& order, const std::atomic<bool>& cancelled);

// A link as it stands in a page at base; empty when it makes no address.
std::wstring resolveAddress(const std::wstring& base, const std::wstring& link);

} // namespace engine
