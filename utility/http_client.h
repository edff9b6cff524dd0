#pragma once

#include "utility/handles.h"
#include "utility/http_head.h"

#include <wininet.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

// One GET at a time through the system's web client: session, address, extra headers and
// the sink that receives what comes. No time-out, proxy or redirect option is set, so
// those are the system's.
//
// open and request block and belong to one worker; the sink is called on it. close is
// the one operation for another thread: the worker's blocked call then fails.

namespace utility {

struct InternetHandleTraits {
    using Handle = HINTERNET;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { InternetCloseHandle(handle); }
};
using InternetHandle = Owner<InternetHandleTraits>;

// The two handles of one request. The order matters: the request goes before its
// connection.
struct CHttpConnection {
    InternetHandle hConnect;
    InternetHandle hRequest;
};

class CHttpClient {
public:
    // Where a transfer failed, as onHttpError reports it. A failure while reading the
    // body is not reported there.
    enum HttpStep {
        OpenSession = 0,
        SplitUrl = 1,
        Connect = 2,
        SendRequest = 6,
        ReadStatus = 7,
    };

    class IHttpClientSink {
    public:
        virtual void onHttpError(int step, uint32_t systemError) = 0;

        // contentLength: bytes announced for this body, UnknownLength if the server sent
        // none or one that 32 bits do not hold. False ends the transfer.
        virtual bool onHttpRecvHeader(uint32_t contentLength, int status) = 0;
        virtual bool onHttpRecvData(const void* data, uint32_t length) = 0;
        virtual void onHttpFinish() = 0;

    protected:
        ~IHttpClientSink() = default;
    };
    static constexpr uint32_t UnknownLength = UnknownHttpLength;

    CHttpClient() = default;
    CHttpClient(const CHttpClient&) = delete;
    CHttpClient& operator=(const CHttpClient&) = delete;
    ~CHttpClient() { close(); }

    void setHeader(const std::wstring& name, const std::wstring& value) { headers[name] = value; }
    void removeHeader(const std::wstring& name) { headers.erase(name); }

    // Opens the session and takes url apart. sink is not owned, may be null, and must
    // outlive the request that follows.
    bool open(const std::wstring& url, IHttpClientSink* sink);

    // Runs the request of the last open. True for a whole body: one that ends before its
    // announced length is a failure.
    bool request();

    // Any thread; repeatable.
    void close();

private:
    bool splitUrl(const std::wstring& url);
    bool openRequest(CHttpConnection& connection);
    bool sendRequest(CHttpConnection& connection);
    bool receive(HINTERNET request);
    bool isWantedRange(const HttpHead& head) const;
    bool readBody(HINTERNET request, const HttpHead& head);
    bool isOpen();
    void closeRequest(CHttpConnection& connection);
    bool fail(HttpStep step, uint32_t systemError);
    std::wstring buildHeaderText();

    std::mutex lock; // guards hInternet and what hangs below it; never held while blocking
    InternetHandle hInternet;
    std::wstring host;
    uint16_t port = 0;
    std::wstring path; // with its query
    bool isHttps = false;
    IHttpClientSink* sink = nullptr;
    std::map<std::wstring, std::wstring> headers;
};

} // namespace utility
