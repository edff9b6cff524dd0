#pragma once

#include "utility/files.h"
#include "utility/http_downloader.h"

#include <cstdint>
#include <string>

// The two sinks of CHttpDownloader: a body kept in memory, and a body written to a file.
// Made for one transfer, on its worker. Both take a status of 200 to 299 only, and both
// end the transfer when a stop was requested on the worker. Nothing is owned but the
// file.

namespace utility {

class CHttpDownload2MemSink : public CHttpClient::IHttpClientSink {
public:
    // Documents are small. A body without end must not eat the address space.
    static constexpr size_t MaxBody = 64 * 1024 * 1024;

    CHttpDownload2MemSink(std::string* target, common::WorkerThread* stop) : target(target), stop(stop) {}

    void onHttpError(int, uint32_t) override {}
    bool onHttpRecvHeader(uint32_t contentLength, int status) override;
    bool onHttpRecvData(const void* data, uint32_t length) override;
    void onHttpFinish() override {}

private:
    std::string* target;
    common::WorkerThread* stop;
};

// Counts stop at the largest 32-bit value instead of beginning again at 0.
class CHttpDownload2FileSink : public CHttpClient::IHttpClientSink {
public:
    // A startSize other than 0 appends behind what path holds. progress may be null.
    CHttpDownload2FileSink(std::wstring path, common::WorkerThread* stop,
                           CHttpDownloader::IHttpDownloadSink* progress, uint32_t startSize)
        : path(std::move(path)), stop(stop), progress(progress), startSize(startSize) {}

    void onHttpError(int step, uint32_t systemError) override;
    bool onHttpRecvHeader(uint32_t contentLength, int status) override;
    bool onHttpRecvData(const void* data, uint32_t length) override;
    void onHttpFinish() override { close(); }

    // The body that comes is the whole one: start the file anew.
    void forgetStart() { startSize = 0; }

    // Repeatable; whoever made the sink calls it last.
    void close() { file.close(); }

private:
    bool openToAppend();
    void seekToStart();
    bool createEmpty();

    ufile::FileHandle file;
    std::wstring path;
    common::WorkerThread* stop;
    CHttpDownloader::IHttpDownloadSink* progress;
    uint32_t received = 0; // bytes that the target holds so far
    uint32_t total = 0;    // bytes expected of the whole target
    uint32_t startSize;
};

} // namespace utility
