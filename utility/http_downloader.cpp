#include "utility/http_downloader.h"

#include "utility/http_sinks.h"
#include "utility/log.h"
#include "utility/windows.h"

namespace utility {

namespace {

constexpr unsigned StopWaitMs = 2000;

// Stands before the file sink of a resumed transfer, whose file begins again when the whole
// body comes.
class ResumeSink : public CHttpClient::IHttpClientSink {
public:
    ResumeSink(CHttpDownload2FileSink& file, uint32_t startSize) : file(file), startSize(startSize) {}

    void onHttpError(int step, uint32_t systemError) override { file.onHttpError(step, systemError); }
    bool onHttpRecvHeader(uint32_t contentLength, int status) override {
        if (judgeBody({.status = status}, startSize) == HttpBody::Whole)
            file.forgetStart();
        return file.onHttpRecvHeader(contentLength, status);
    }
    bool onHttpRecvData(const void* data, uint32_t length) override {
        return file.onHttpRecvData(data, length);
    }
    void onHttpFinish() override { file.onHttpFinish(); }

private:
    CHttpDownload2FileSink& file;
    uint32_t startSize;
};

} // namespace

bool CHttpDownloader::download2mem(std::string& target, const std::wstring& url) {
    removeHeader(L"Range");
    CHttpDownload2MemSink sink(&target, &worker);
    return transfer(url, sink);
}

bool CHttpDownloader::download2file(const std::wstring& url, const std::wstring& path,
                                    IHttpDownloadSink* progress, bool resume) {
    startSize = 0;
    removeHeader(L"Range");
    if (resume)
        prepareResume(path);
    CHttpDownload2FileSink file(path, &worker, progress, startSize);
    ResumeSink sink(file, startSize);
    bool done = transfer(url, sink);
    file.close();
    return done;
}

void CHttpDownloader::prepareResume(const std::wstring& path) {
    uint64_t size = ufile::sizeOfPartial(path);
    startSize = static_cast<uint32_t>(size);
    common::log("utility::CHttpDownloader::download2file", __LINE__, L"start size %d", startSize);
    // Not the size but its low half: at 0 the file is emptied, and the whole body must come.
    if (startSize != 0)
        setHeader(L"Range", L"bytes=" + std::to_wstring(size) + L"-");
}

bool CHttpDownloader::transfer(const std::wstring& url, IHttpClientSink& sink) {
    close();
    // stop() sets the flag before it closes, so either it meets the new session or the
    // flag is seen here.
    bool done = open(url, &sink) && !worker.isStopRequested() && request();
    close();
    return done;
}

void CHttpDownloader::stop() {
    worker.requestStop();
    close();
    worker.join(StopWaitMs);
}

bool CHttpDownloader::pause(unsigned ms) {
    if (worker.isStopRequested())
        return false;
    worker.waitForStop(ms);
    return !worker.isStopRequested();
}

} // namespace utility
