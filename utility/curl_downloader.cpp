#include "utility/curl_downloader.h"

#include "utility/curl_library.h"
#include "utility/encoding.h"
#include "utility/files.h"
#include "utility/handles.h"
#include "utility/http_head.h"
#include "utility/log.h"

#define CURL_DISABLE_DEPRECATION // the progress function is the one that counts in doubles
#include <curl/curl.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

namespace utility {

namespace {

constexpr curl_off_t MaxBytesPerSecond = 20 * 1024 * 1024;
constexpr long MemoryTimeoutMs = 8000;
constexpr long FileTimeoutMs = 30 * 60 * 1000;
constexpr DWORD ReportIntervalMs = 1000;
constexpr uint32_t MaxBody = 64 * 1024 * 1024; // a document without end must not eat the address space

struct CurlTraits {
    using Handle = CURL*;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { curl_easy_cleanup(handle); }
};
using CurlHandle = Owner<CurlTraits>;

struct FreeBlock {
    void operator()(char* block) const { std::free(block); }
};

struct MemoryChunk {
    std::unique_ptr<char, FreeBlock> memory;
    uint32_t size = 0;
};

struct ProgressContext {
    DWORD lastTick = 0;
    uint64_t startSize = 0; // bytes that the target held when the call began
    const QzCurlDownloader::Progress& progress;
};

size_t WriteMemoryCallback(char* data, size_t size, size_t count, void* user) {
    auto& chunk = *static_cast<MemoryChunk*>(user);
    size_t length = size * count;
    void* grown = nullptr;
    if (length <= MaxBody - chunk.size)
        grown = std::realloc(chunk.memory.get(), chunk.size + length);
    if (!grown) {
        common::log("WriteMemoryCallback", __LINE__, L"not enough memory error %d", GetLastError());
        return 0;
    }
    (void)chunk.memory.release(); // realloc has taken the old block
    chunk.memory.reset(static_cast<char*>(grown));
    std::memcpy(chunk.memory.get() + chunk.size, data, length);
    chunk.size += static_cast<uint32_t>(length);
    return length;
}

size_t writeFileCallback(char* data, size_t size, size_t count, void* user) {
    auto length = static_cast<DWORD>(size * count);
    DWORD written = 0;
    if (!WriteFile(static_cast<HANDLE>(user), data, length, &written, nullptr) || written != length) {
        common::log("QzCurlDownloader::downloadFile", __LINE__, L"write file error:%d", GetLastError());
        return 0;
    }
    return written;
}

int toInt(double value) {
    return static_cast<int>(std::min<double>(value, std::numeric_limits<int>::max()));
}

int progressCallback(void* user, double total, double now, double, double) {
    auto& context = *static_cast<ProgressContext*>(user);
    bool lengthUnknown = total > -0.1 && total < 0.1;
    if (lengthUnknown || !context.progress)
        return 0;
    double downloaded = static_cast<double>(context.startSize) + now;
    double whole = static_cast<double>(context.startSize) + total;
    int percent = toInt(downloaded / whole * 100.0);
    DWORD tick = GetTickCount();
    if (tick - context.lastTick > ReportIntervalMs && percent != 100) {
        context.lastTick = tick;
        context.progress(percent, toInt(downloaded), toInt(whole));
    }
    return 0;
}

void setBodyOptions(CURL* curl, curl_write_callback write, void* writeData) {
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, write);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, writeData);
    curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYPEER, 0L);
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYHOST, 0L);
}

void setConnectionOptions(CURL* curl, long timeoutMs) {
    curl_easy_setopt(curl, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT_MS, 4000L);
    curl_easy_setopt(curl, CURLOPT_TIMEOUT_MS, timeoutMs);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
}

void setMemoryOptions(CURL* curl, MemoryChunk& chunk, const std::string& url) {
    setBodyOptions(curl, WriteMemoryCallback, &chunk);
    setConnectionOptions(curl, MemoryTimeoutMs);
    curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
}

void setFileOptions(CURL* curl, HANDLE file, ProgressContext& context, const std::string& url) {
    if (context.startSize > 0)
        curl_easy_setopt(curl, CURLOPT_RESUME_FROM_LARGE, static_cast<curl_off_t>(context.startSize));
    setBodyOptions(curl, writeFileCallback, file);
    curl_easy_setopt(curl, CURLOPT_MAX_RECV_SPEED_LARGE, MaxBytesPerSecond);
    curl_easy_setopt(curl, CURLOPT_MAXREDIRS, 5L);
    setConnectionOptions(curl, FileTimeoutMs);
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_PROGRESSDATA, &context);
    curl_easy_setopt(curl, CURLOPT_PROGRESSFUNCTION, progressCallback);
    curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
}

bool fail(const char* function, CURLcode code, const std::string& url) {
    common::log(function, __LINE__, L"curl download error %s %s",
                ansiToWide(curl_easy_strerror(code)).c_str(), ansiToWide(url).c_str());
    return false;
}

bool refuse(const char* function) {
    common::log(function, __LINE__, L"curl has ended");
    return false;
}

std::wstring headerText(CURL* curl, const char* name) {
    curl_header* header = nullptr;
    if (curl_easy_header(curl, name, 0, CURLH_HEADER, -1, &header) != CURLHE_OK)
        return {};
    return ansiToWide(header->value);
}

HttpHead headOf(CURL* curl) {
    long status = 0;
    curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);
    return readHead(static_cast<int>(status), headerText(curl, "Content-Length"),
                    headerText(curl, "Content-Range"));
}

void emptyFile(HANDLE file) {
    SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    SetEndOfFile(file);
}

// After a request for the rest of a file: true unless the server's answer shows that what
// the file holds cannot be continued. Such bytes would fail every later try in the same
// way, so they go, and the next try begins anew. libcurl takes a refused range for a file
// that is complete already; that holds only for this size.
bool settleResume(CURL* curl, CURLcode code, HANDLE file, uint64_t startSize) {
    const bool rangeFailed = code == CURLE_RANGE_ERROR;
    const HttpHead head = headOf(curl);
    if ((code != CURLE_OK && !rangeFailed) || !isBeyondResuming(head, startSize, rangeFailed))
        return true;
    common::log("QzCurlDownloader::downloadFile", __LINE__,
                L"no way to continue at %I64u, status %d: start anew", startSize, head.status);
    emptyFile(file);
    return false;
}

} // namespace

bool QzCurlDownloader::downloadMemory(const std::string& url, std::string& body) {
    constexpr const char* function = "QzCurlDownloader::downloadMemory";
    common::log(function, __LINE__, L"QzCurlDownloader::downloadMemory start");
    const CurlLibrary::Transfer transfer;
    if (!transfer)
        return refuse(function);
    CurlHandle curl(curl_easy_init());
    if (!curl) {
        common::log(function, __LINE__, L"curl init error");
        return false;
    }
    MemoryChunk chunk;
    setMemoryOptions(curl.get(), chunk, url);
    common::log(function, __LINE__, L"1111111111111111111111");
    CURLcode code = curl_easy_perform(curl.get());
    if (code != CURLE_OK)
        return fail(function, code, url);
    common::log(function, __LINE__, L"curl download sucess %d", chunk.size);
    body.assign(chunk.memory ? chunk.memory.get() : "", chunk.size);
    return true;
}

bool QzCurlDownloader::downloadFile(const std::string& path, const std::string& url,
                                    const Progress& progress) {
    constexpr const char* function = "QzCurlDownloader::downloadFile";
    common::log(function, __LINE__, L"QzCurlDownloader::downloadfile start");
    const CurlLibrary::Transfer transfer;
    if (!transfer)
        return refuse(function);
    uint64_t startSize = ufile::sizeOfPartial(path);
    common::log(function, __LINE__, L"start size %d", static_cast<int>(startSize));
    FileOwner file(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                               nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        common::log(function, __LINE__, L"open file error  error:%d %s", GetLastError(),
                    ansiToWide(path).c_str());
        return false;
    }
    LARGE_INTEGER start = {}; // the end, unless another session's launcher writes there, too
    start.QuadPart = static_cast<LONGLONG>(startSize);
    SetFilePointerEx(file.get(), start, nullptr, FILE_BEGIN);

    ProgressContext context{.startSize = startSize, .progress = progress};
    CurlHandle curl(curl_easy_init());
    if (!curl) {
        common::log(function, __LINE__, L"curl init error");
        return false;
    }
    setFileOptions(curl.get(), file.get(), context, url);
    CURLcode code = curl_easy_perform(curl.get());
    bool continued = startSize == 0 || settleResume(curl.get(), code, file.get(), startSize);
    if (code != CURLE_OK)
        return fail(function, code, url);
    if (!continued)
        return false;
    common::log(function, __LINE__, L"curl download  file sucess");
    return true;
}

} // namespace utility
