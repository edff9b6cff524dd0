#include "utility/http_sinks.h"

#include "utility/log.h"
#include "utility/windows.h"

namespace utility {

namespace {

constexpr uint32_t TotalOfEmptyBody = 10485760;

bool isRefused(int status) {
    return judgeBody({.status = status}, 0) == HttpBody::Refused;
}

} // namespace

bool CHttpDownload2MemSink::onHttpRecvHeader(uint32_t, int status) {
    return !isRefused(status);
}

bool CHttpDownload2MemSink::onHttpRecvData(const void* data, uint32_t length) {
    if (stop->isStopRequested())
        return false;
    if (target->size() + length > MaxBody) {
        common::log("utility::CHttpDownload2MemSink::onHttpRecvData", __LINE__,
                    L"body above %d bytes refused", static_cast<int>(MaxBody));
        return false;
    }
    target->append(static_cast<const char*>(data), length);
    return true;
}

void CHttpDownload2FileSink::onHttpError(int step, uint32_t systemError) {
    close();
    common::log("utility::CHttpDownload2FileSink::onHttpError", __LINE__, L"onHttpErro %d, %d", step,
                systemError);
}

bool CHttpDownload2FileSink::onHttpRecvHeader(uint32_t contentLength, int status) {
    if (isRefused(status)) {
        common::log("utility::CHttpDownload2FileSink::onHttpRecvHeader", __LINE__, L"onHttpErro status = %d",
                    status);
        return false;
    }
    total = addCounts(contentLength == 0 ? TotalOfEmptyBody : contentLength, startSize);
    received = startSize;
    return startSize != 0 ? openToAppend() : createEmpty();
}

bool CHttpDownload2FileSink::openToAppend() {
    if (!file.open(path, true)) {
        common::log("utility::CHttpDownload2FileSink::onHttpRecvHeader", __LINE__,
                    L"downloader error open file error: lasterror %d", GetLastError());
        return false;
    }
    seekToStart();
    return true;
}

// Not simply the end: the launcher of another session may have written to the same file
// since its size was measured, and what comes was asked for from there.
void CHttpDownload2FileSink::seekToStart() {
    const uint64_t size = file.size();
    const uint32_t grown = static_cast<uint32_t>(size) - startSize; // startSize is the low half only
    if (grown <= size)
        file.seekTo(size - grown);
    else
        file.seekToEnd();
}

bool CHttpDownload2FileSink::createEmpty() {
    if (!file.create(path)) {
        common::log("utility::CHttpDownload2FileSink::onHttpRecvHeader", __LINE__,
                    L"create file error; filename %s lasterror:%d", path.c_str(), GetLastError());
        return false;
    }
    return true;
}

bool CHttpDownload2FileSink::onHttpRecvData(const void* data, uint32_t length) {
    if (stop->isStopRequested())
        return false;
    received = addCounts(received, length);
    if (progress && !progress->onHttpDownload(data, length, received, total))
        return false;
    return file.write(data, length);
}

} // namespace utility
