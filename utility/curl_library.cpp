#include "utility/curl_library.h"

#include "utility/log.h"

#include <curl/curl.h>

#include <atomic>

namespace utility {

namespace {

// The number of transfers in twos, and in the lowest bit whether more are refused: one
// word, so that no transfer can begin between the look at the number and the release. No
// lock: a thread that is ended by force would keep it.
constexpr unsigned Refusing = 1;
constexpr unsigned OneTransfer = 2;
std::atomic<unsigned> transfers = 0;

} // namespace

void CurlLibrary::start() {
    curl_global_init(CURL_GLOBAL_ALL);
    transfers &= ~Refusing;
}

void CurlLibrary::end() {
    const unsigned running = transfers.fetch_or(Refusing) / OneTransfer;
    if (running == 0)
        curl_global_cleanup();
    else
        common::log("CurlLibrary::end", __LINE__, L"transfers under way: %u, the library stays", running);
}

CurlLibrary::Transfer::Transfer() {
    unsigned seen = transfers;
    do {
        admitted = !(seen & Refusing);
    } while (admitted && !transfers.compare_exchange_weak(seen, seen + OneTransfer));
}

CurlLibrary::Transfer::~Transfer() {
    if (admitted)
        transfers -= OneTransfer;
}

} // namespace utility
