#include "utility/http_client.h"

#include "utility/log.h"

#include <cwchar>
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

// Empty for a header that the server did not send or that is longer than any sound number.
std::wstring queryText(HINTERNET request, DWORD header) {
    wchar_t text[80];
    DWORD size = sizeof text;
    if (!HttpQueryInfoW(request, header, text, &size, nullptr))
        return {};
    return std::wstring(text, size / sizeof(wchar_t));
}

// The length is read as text, because the numeric query stops at 32 bits and a body cut short
// must be noticed also when it is longer than that.
bool queryHead(HINTERNET request, HttpHead& head) {
    DWORD status = 0;
    DWORD size = sizeof status;
    if (!HttpQueryInfoW(request, HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &status, &size, nullptr))
        return false;
    head = readHead(static_cast<int>(status), queryText(request, HTTP_QUERY_CONTENT_LENGTH),
                    queryText(request, HTTP_QUERY_CONTENT_RANGE));
    return true;
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
    HttpHead head;
    if (!queryHead(request, head))
        return fail(ReadStatus, GetLastError());
    if (!isWantedRange(head) || (sink && !sink->onHttpRecvHeader(lengthAsCount(head), head.status)))
        return false;
    return readBody(request, head);
}

bool CHttpClient::isWantedRange(const HttpHead& head) const {
    constexpr std::wstring_view unit = L"bytes=";
    auto wanted = headers.find(L"Range");
    if (wanted == headers.end() ||
        judgeBody(head, wcstoull(wanted->second.c_str() + unit.size(), nullptr, 10)) != HttpBody::Elsewhere)
        return true;
    common::log("utility::CHttpClient::request", __LINE__, L"asked for %s, got bytes from %I64u",
                wanted->second.c_str(), *head.rangeFrom);
    return false;
}

bool CHttpClient::readBody(HINTERNET request, const HttpHead& head) {
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
    if (!isWholeBody(head, received)) {
        common::log("utility::CHttpClient::request", __LINE__, L"body ends after %I64u of %I64u bytes",
                    received, *head.length);
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
