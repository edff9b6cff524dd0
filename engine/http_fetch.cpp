#include "engine/http_fetch.h"

#include "engine/handles.h"

#include <algorithm>
#include <chrono>

namespace engine {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int MostRedirections = 5;
constexpr std::chrono::seconds MostTime{20};
constexpr DWORD SilenceMilliseconds = 10000;
constexpr DWORD LongestAddress = 2083;

struct Place {
    std::wstring host;
    std::wstring object; // path and query
    INTERNET_PORT port;
    bool secure;
};

std::optional<Place> crack(const std::wstring& address) {
    URL_COMPONENTSW parts{};
    parts.dwStructSize = sizeof(parts);
    parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength =
        1; // asks for pointers into address
    if (address.size() > LongestAddress || !InternetCrackUrlW(address.c_str(), 0, 0, &parts) ||
        (parts.nScheme != INTERNET_SCHEME_HTTP && parts.nScheme != INTERNET_SCHEME_HTTPS))
        return std::nullopt;
    Place place{{parts.lpszHostName, parts.dwHostNameLength},
                {},
                parts.nPort,
                parts.nScheme == INTERNET_SCHEME_HTTPS};
    place.object.assign(parts.lpszUrlPath, parts.dwUrlPathLength);
    if (parts.dwExtraInfoLength > 0)
        place.object.append(parts.lpszExtraInfo, parts.dwExtraInfoLength);
    place.object.erase(std::min(place.object.find(L'#'), place.object.size()));
    return place;
}

std::optional<DWORD> queryNumber(HINTERNET request, DWORD what) {
    DWORD value = 0, size = sizeof(value);
    if (!HttpQueryInfoW(request, what | HTTP_QUERY_FLAG_NUMBER, &value, &size, nullptr))
        return std::nullopt;
    return value;
}

std::wstring queryText(HINTERNET request, DWORD what) {
    wchar_t text[LongestAddress + 1];
    DWORD size = sizeof(text);
    return HttpQueryInfoW(request, what, text, &size, nullptr) ? std::wstring(text, size / sizeof(wchar_t))
                                                               : L"";
}

bool isRedirection(DWORD status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

class Fetcher {
public:
    Fetcher(const FetchOrder& order, const std::atomic<bool>& cancelled)
        : order(order), cancelled(cancelled) {}

    std::optional<Fetched> run() {
        session.reset(
            InternetOpenW(order.userAgent.c_str(), INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
        std::wstring address = order.address;
        for (int hop = 0; hop <= MostRedirections && !address.empty() && !isOver(); hop++) {
            if (!open(address))
                return std::nullopt;
            const DWORD status = queryNumber(request.get(), HTTP_QUERY_STATUS_CODE).value_or(0);
            if (status == 200)
                return readBody(address);
            address = isRedirection(status)
                          ? resolveAddress(address, queryText(request.get(), HTTP_QUERY_LOCATION))
                          : L"";
        }
        return std::nullopt;
    }

private:
    bool isOver() const { return cancelled || Clock::now() > deadline; }

    bool open(const std::wstring& address) {
        const auto place = crack(address);
        if (!place)
            return false;
        request.reset();
        connection.reset(InternetConnectW(session.get(), place->host.c_str(), place->port, nullptr, nullptr,
                                          INTERNET_SERVICE_HTTP, 0, 0));
        const DWORD flags = INTERNET_FLAG_NO_AUTO_REDIRECT | INTERNET_FLAG_NO_COOKIES | INTERNET_FLAG_NO_UI |
                            INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE |
                            (place->secure ? INTERNET_FLAG_SECURE : 0);
        request.reset(HttpOpenRequestW(connection.get(), L"GET", place->object.c_str(), nullptr, nullptr,
                                       nullptr, flags, 0));
        // On the session these limits are not passed on everywhere.
        for (const DWORD option : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                                   INTERNET_OPTION_RECEIVE_TIMEOUT}) {
            DWORD limit = SilenceMilliseconds;
            InternetSetOptionW(request.get(), option, &limit, sizeof(limit));
        }
        return request && HttpSendRequestW(request.get(), nullptr, 0, nullptr, 0);
    }

    // Reads only what is there: a read of more would block until all of it has come.
    std::optional<Fetched> readBody(const std::wstring& address) {
        const auto announced = queryNumber(request.get(), HTTP_QUERY_CONTENT_LENGTH);
        Fetched fetched{address, {}};
        char buffer[16384];
        while (!isOver()) {
            DWORD available = 0, got = 0;
            if (!InternetQueryDataAvailable(request.get(), &available, 0, 0))
                return std::nullopt;
            const DWORD wanted = std::min<DWORD>(std::max<DWORD>(available, 1), sizeof(buffer));
            if (!InternetReadFile(request.get(), buffer, wanted, &got))
                return std::nullopt;
            if (got == 0) // a clean close in the middle looks like an end
                return announced && *announced != fetched.body.size() ? std::nullopt : std::optional(fetched);
            if (got > order.mostBytes - fetched.body.size())
                return std::nullopt;
            fetched.body.append(buffer, got);
        }
        return std::nullopt;
    }

    const FetchOrder& order;
    const std::atomic<bool>& cancelled;
    const Clock::time_point deadline = Clock::now() + MostTime;
    InternetHandle session, connection, request;
};

} // namespace

std::optional<Fetched> fetch(const FetchOrder& order, const std::atomic<bool>& cancelled) {
    return Fetcher(order, cancelled).run();
}

std::wstring resolveAddress(const std::wstring& base, const std::wstring& link) {
    // Where the result has no room, not every system says so.
    wchar_t address[LongestAddress + 1] = {};
    DWORD size = LongestAddress + 1;
    if (link.empty() || base.size() + link.size() > LongestAddress ||
        !InternetCombineUrlW(base.c_str(), link.c_str(), address, &size, 0))
        return {};
    return address;
}

} // namespace engine
