#include "utility/http_client.h"

#include "utility/log.h"

#include <algorithm>
#include <memory>

namespace utility {

namespace {

constexpr uint32_t BlockSize = 32768;
constexpr DWORD HostCapacity = 255;

// The value 1 keeps non-ASCII host names as they are.
constexpr DWORD RequestFlags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE |
                               INTERNET_FLAG_IGNORE_CERT_CN_INVALID | INTERNET_FLAG_CACHE_ASYNC | 1;
constexpr DWORD_PTR Context = 1;

bool isHttpsUrl(const std::wstring& url) {
    return _wcsnicmp(url.c_str(), L"https://", 8) == 0;
}

bool queryStatus(HINTERNET request, int& status) {
    DWORD value = 0;
    DWORD size = sizeof value;
    if (!HttpQueryInfoW(request, HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &value, &size, nullptr))
        return false;
    status = static_cast<int>(value);
    return true;
}

// Read as text, because the numeric query stops at 32 bits and a body cut short must be
// noticed also when it is longer than that.
std::optional<uint64_t> queryContentLength(HINTERNET request) {
    wchar_t text[20] = {}; // 19 digits and the zero: always fits 64 bits
    DWORD size = sizeof text;
    if (!HttpQueryInfoW(request, HTTP_QUERY_CONTENT_LENGTH, text, &size, nullptr))
        return std::nullopt;
    std::wstring_view digits(text, size / sizeof(wchar_t));
    if (digits.empty() || digits.find_first_not_of(L"0123456789") != digits.npos)
        return std::nullopt;
    return wcstoull(text, nullptr, 10);
}

// The first byte that a "Content-Range: bytes FIRST-LAST/SIZE" names.
std::optional<uint64_t> queryRangeStart(HINTERNET request) {
    wchar_t text[80] = {};
    DWORD size = sizeof text;
    unsigned long long first = 0;
    if (!HttpQueryInfoW(request, HTTP_QUERY_CONTENT_RANGE, text, &size, nullptr) ||
        swscanf(text, L"bytes %llu-", &first) != 1)
        return std::nullopt;
    return first;
}

} // namespace

bool CHttpClient::open(const std::wstring& url, IHttpClientSink* newSink) {
    sink = newSink;
    HINTERNET session = InternetOpenW(L"", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    if (!session)
        return fail(OpenSession, GetLastError());
    {
        std::scoped_lock guard(lock);
        hInternet.reset(session);
    }
    if (!splitUrl(url))
        return fail(SplitUrl, GetLastError());
    isHttps = isHttpsUrl(url);
    return true;
}

bool CHttpClient::splitUrl(const std::wstring& url) {
    wchar_t hostName[HostCapacity] = {};
    URL_COMPONENTSW parts = {};
    parts.dwStructSize = sizeof parts;
    parts.lpszHostName = hostName;
    parts.dwHostNameLength = HostCapacity;
    parts.dwUrlPathLength = 1; // a pointer into url; nobody asks for the query, so it stays in the path
    if (!InternetCrackUrlW(url.c_str(), static_cast<DWORD>(url.size()), 0, &parts))
        return false;
    host = hostName;
    port = parts.nPort;
    path.assign(parts.lpszUrlPath ? parts.lpszUrlPath : L"", parts.dwUrlPathLength);
    return true;
}

bool CHttpClient::request() {
    CHttpConnection connection;
    bool done = openRequest(connection) && sendRequest(connection) && receive(connection.hRequest.get());
    closeRequest(connection);
    return done;
}

// Both calls only make objects and do not touch the network, so they may hold the lock
// that keeps the session alive meanwhile.
bool CHttpClient::openRequest(CHttpConnection& connection) {
    DWORD error = 0;
    HttpStep step = Connect;
    {
        static const wchar_t* accept[] = {L"*/*", nullptr};
        std::scoped_lock guard(lock);
        connection.hConnect.reset(InternetConnectW(hInternet.get(), host.c_str(), port, nullptr, nullptr,
                                                   INTERNET_SERVICE_HTTP, 0, Context));
        if (connection.hConnect) {
            step = SendRequest;
            connection.hRequest.reset(
                HttpOpenRequestW(connection.hConnect.get(), L"GET", path.c_str(), L"HTTP/1.1", nullptr,
                                 accept, RequestFlags | (isHttps ? INTERNET_FLAG_SECURE : 0), Context));
        }
        error = GetLastError();
    }
    return connection.hRequest ? true : fail(step, error);
}

bool CHttpClient::sendRequest(CHttpConnection& connection) {
    std::wstring text = buildHeaderText();
    if (!HttpSendRequestW(connection.hRequest.get(), text.c_str(), static_cast<DWORD>(text.size()), nullptr,
                          0))
        return fail(SendRequest, GetLastError());
    return true;
}

bool CHttpClient::receive(HINTERNET request) {
    int status = 0;
    if (!queryStatus(request, status))
        return fail(ReadStatus, GetLastError());
    if (status == HTTP_STATUS_PARTIAL_CONTENT && !isWantedRange(request))
        return false;
    std::optional<uint64_t> announced = queryContentLength(request);
    uint32_t length =
        announced ? static_cast<uint32_t>(std::min<uint64_t>(*announced, UnknownLength)) : UnknownLength;
    if (sink && !sink->onHttpRecvHeader(length, status))
        return false;
    return readBody(request, announced);
}

// Bytes from another place than the one asked for would be put where they do not belong.
bool CHttpClient::isWantedRange(HINTERNET request) {
    auto wanted = headers.find(L"Range");
    std::optional<uint64_t> start = queryRangeStart(request);
    if (!start || wanted == headers.end() || wanted->second == L"bytes=" + std::to_wstring(*start) + L"-")
        return true;
    common::log("utility::CHttpClient::request", __LINE__, L"asked for %s, got bytes from %I64u",
                wanted->second.c_str(), *start);
    return false;
}

bool CHttpClient::readBody(HINTERNET request, std::optional<uint64_t> announced) {
    auto buffer = std::make_unique<char[]>(BlockSize);
    uint64_t received = 0;
    for (;;) {
        if (!isOpen()) // then request may already name another client's
            return false;
        DWORD length = 0;
        if (!InternetReadFile(request, buffer.get(), BlockSize, &length)) {
            common::log("utility::CHttpClient::request", __LINE__, L"read error %d after %I64u bytes",
                        GetLastError(), received);
            return false;
        }
        if (length == 0)
            break;
        received += length;
        if (sink && !sink->onHttpRecvData(buffer.get(), length))
            return false;
    }
    // A connection that the server closes early reads like the end of the body.
    if (announced && received < *announced) {
        common::log("utility::CHttpClient::request", __LINE__, L"body ends after %I64u of %I64u bytes",
                    received, *announced);
        return false;
    }
    if (sink)
        sink->onHttpFinish();
    return true;
}

// A session closed by another thread has taken its connections and requests with it, and
// their numbers may already name those of another client: they are forgotten, not closed.
void CHttpClient::closeRequest(CHttpConnection& connection) {
    std::scoped_lock guard(lock);
    if (!hInternet) {
        connection.hRequest.release();
        connection.hConnect.release();
    }
    connection.hRequest.reset();
    connection.hConnect.reset();
}

void CHttpClient::close() {
    std::scoped_lock guard(lock);
    hInternet.reset();
}

bool CHttpClient::isOpen() {
    std::scoped_lock guard(lock);
    return static_cast<bool>(hInternet);
}

bool CHttpClient::fail(HttpStep step, uint32_t systemError) {
    if (sink)
        sink->onHttpError(step, systemError);
    return false;
}

std::wstring CHttpClient::buildHeaderText() {
    headers.try_emplace(L"Content-Type", L"application/x-www-form-urlencoded");
    headers.try_emplace(L"User-Agent", L"okhttp/3.5.0L");
    std::wstring text;
    for (const auto& [name, value] : headers)
        text += name + L": " + value + L"\r\n";
    return text;
}

} // namespace utility
