#include "kit/command.h"
#include "kit/console.h"
#include "utility/curl_downloader.h"
#include "utility/curl_library.h"
#include "utility/encoding.h"
#include "utility/files.h"
#include "utility/http_downloader.h"
#include "utility/log.h"

#include <cstdio>

namespace kit {

static int run(const Arguments& arguments);

extern const Command fetchCommand = {
    "fetch", "wininet|curl URL FILE [--resume]", "download a file with one of the launcher's web clients",
    "With --resume, what FILE already holds is continued. Prints the progress and last\n"
    "\"ok BYTES\" with the size of FILE, or \"failed\"; the clients' log goes to the error output.\n",
    run};

namespace {

constexpr DWORD ReportIntervalMs = 200;

void printLog(const char* function, int, const wchar_t* text) {
    fprintf(stderr, "%s: %s\n", function, toUtf8(text).c_str());
}

void printProgress(double done, double total) {
    printf("%3.0f%% %.0f of %.0f\n", total > 0 ? done / total * 100 : 0, done, total);
    fflush(stdout);
}

class ProgressPrinter : public utility::CHttpDownloader::IHttpDownloadSink {
public:
    bool onHttpDownload(const void*, uint32_t, uint32_t received, uint32_t total) override {
        if (GetTickCount() - lastTick >= ReportIntervalMs) {
            lastTick = GetTickCount();
            printProgress(received, total);
        }
        return true;
    }

private:
    DWORD lastTick = 0;
};

bool fetchWithWininet(const std::wstring& url, const std::wstring& path, bool resume) {
    utility::CHttpDownloader client;
    ProgressPrinter printer;
    return client.download2file(url, path, &printer, resume);
}

// This client always continues a file that is there.
bool fetchWithCurl(const std::wstring& url, const std::wstring& path, bool resume) {
    if (!resume && utility::ufile::isExist(path))
        utility::ufile::removeFile(path);
    utility::CurlLibrary::start();
    bool done = utility::QzCurlDownloader::downloadFile(
        utility::wideToAnsi(path), utility::wideToAnsi(url),
        [](int, int downloaded, int total) { printProgress(downloaded, total); });
    utility::CurlLibrary::end();
    return done;
}

} // namespace

static int run(const Arguments& arguments) {
    const bool resume = arguments.size() == 4 && arguments[3] == L"--resume";
    if (arguments.size() != 3 && !resume)
        return wrongUsage(fetchCommand, "a client, an address and a file are needed");
    const bool curl = arguments[0] == L"curl";
    if (!curl && arguments[0] != L"wininet")
        return wrongUsage(fetchCommand, "no client " + toUtf8(arguments[0]));
    common::setLogSink(printLog);
    const bool done = (curl ? fetchWithCurl : fetchWithWininet)(arguments[1], arguments[2], resume);
    uint64_t size = 0;
    if (!done || !utility::ufile::getFileSize(arguments[2], size)) {
        puts("failed");
        return 1;
    }
    printf("ok %llu\n", static_cast<unsigned long long>(size));
    return 0;
}

} // namespace kit
