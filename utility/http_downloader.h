#pragma once

#include "utility/http_client.h"
#include "utility/worker_thread.h"

#include <cstdint>
#include <string>

// A web client over WinINet with the worker thread of its owner's flow and the two
// whole-transfer entry points. One object serves one transfer at a time and is reused.
//
// download2mem and download2file block: they run on the worker. stop() is the one
// operation for another thread.

namespace utility {

class CHttpDownloader : public CHttpClient {
public:
    class IHttpDownloadSink {
    public:
        // On the worker, before the piece is written. received and total count from the
        // start of the file. False stops the transfer.
        virtual bool onHttpDownload(const void* data, uint32_t length, uint32_t received, uint32_t total) = 0;

    protected:
        ~IHttpDownloadSink() = default;
    };

    // Appends the body to target. True for a status of 200 to 299 and a whole body.
    bool download2mem(std::string& target, const std::wstring& url);

    // Writes the body to path; with resume, behind the bytes that it already holds.
    // progress may be null. A failed transfer leaves what has arrived.
    bool download2file(const std::wstring& url, const std::wstring& path, IHttpDownloadSink* progress,
                       bool resume);

    // Runs the owner's flow on the worker; see WorkerThread::start.
    bool start(common::Runable* task) { return worker.start(task); }

    // Ends a running transfer and waits for the worker, 2 seconds at most. Later
    // transfers fail until the next start: who runs them on a thread of his own calls
    // close() instead.
    void stop();

    // Sleeps on the worker between two tries. False when a stop was requested.
    bool pause(unsigned ms);

private:
    void prepareResume(const std::wstring& path);
    bool transfer(const std::wstring& url, IHttpClientSink& sink);

    common::WorkerThread worker;
    uint32_t startSize = 0;
};

} // namespace utility
