#include "bench/publisher_process.h"
#include "utility/curl_downloader.h"
#include "utility/encoding.h"
#include "utility/files.h"
#include "utility/handles.h"
#include "utility/http_downloader.h"

#include <curl/curl.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>
#include <optional>
#include <string>

// A download to a file through each client, beside a bare loop over the same API with the
// same options that writes to the same disk. Both in turn, from a publisher in a process
// of its own; what counts is the ratio.

namespace {

constexpr int wininetMebibytes = 256;
constexpr int curlMebibytes = 60; // its client takes 20 MiB a second at most

std::wstring benchFolder() {
    wchar_t temp[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, temp);
    return std::wstring(temp) + L"vynbench-download";
}

// The publisher over a folder with one file, for the time of one benchmark.
class FileServer {
public:
    explicit FileServer(int mebibytes) {
        utility::ufile::makeDir(folder);
        std::ofstream file(utility::wideToAnsi(folder + L"\\file"), std::ios::binary);
        const std::string block(1 << 20, 'x');
        for (int index = 0; index < mebibytes; ++index)
            file << block;
        file.close();
        publisher.emplace(folder);
    }
    ~FileServer() {
        publisher.reset();
        utility::ufile::removeDir(folder);
    }

    std::wstring url() const { return L"http://127.0.0.1:" + std::to_wstring(publisher->port()) + L"/file"; }
    std::wstring target() const { return folder + L"\\target"; }
    bool runs() const { return publisher->port() != 0; }

private:
    std::wstring folder = benchFolder();
    std::optional<bench::PublisherProcess> publisher;
};

utility::FileOwner createTarget(const std::wstring& path) {
    return utility::FileOwner(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool bareWininet(const FileServer& server) {
    constexpr DWORD flags = 0x84001081;
    const wchar_t* accept[] = {L"*/*", nullptr};
    const std::wstring headers =
        L"Content-Type: application/x-www-form-urlencoded\r\nUser-Agent: okhttp/3.5.0L\r\n";
    URL_COMPONENTSW parts = {};
    parts.dwStructSize = sizeof parts;
    parts.dwHostNameLength = 1;
    if (!InternetCrackUrlW(server.url().c_str(), 0, 0, &parts))
        return false;
    utility::InternetHandle session(InternetOpenW(L"", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
    utility::InternetHandle connection(InternetConnectW(session.get(), L"127.0.0.1", parts.nPort, nullptr,
                                                        nullptr, INTERNET_SERVICE_HTTP, 0, 1));
    utility::InternetHandle request(
        HttpOpenRequestW(connection.get(), L"GET", L"/file", L"HTTP/1.1", nullptr, accept, flags, 1));
    if (!HttpSendRequestW(request.get(), headers.c_str(), static_cast<DWORD>(headers.size()), nullptr, 0))
        return false;
    utility::FileOwner file = createTarget(server.target());
    auto buffer = std::make_unique<char[]>(32768);
    DWORD length = 0, written = 0;
    while (InternetReadFile(request.get(), buffer.get(), 32768, &length) && length != 0)
        WriteFile(file.get(), buffer.get(), length, &written, nullptr);
    return true;
}

bool ownWininet(const FileServer& server) {
    utility::CHttpDownloader client;
    return client.download2file(server.url(), server.target(), nullptr, false);
}

size_t bareWrite(char* data, size_t size, size_t count, void* file) {
    DWORD written = 0;
    WriteFile(static_cast<HANDLE>(file), data, static_cast<DWORD>(size * count), &written, nullptr);
    return written;
}

bool bareCurl(const FileServer& server) {
    utility::FileOwner file = createTarget(server.target());
    const std::string url = utility::wideToAnsi(server.url());
    CURL* curl = curl_easy_init();
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, bareWrite);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, file.get());
    curl_easy_setopt(curl, CURLOPT_MAX_RECV_SPEED_LARGE, curl_off_t{20 * 1024 * 1024});
    curl_easy_setopt(curl, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
    const CURLcode code = curl_easy_perform(curl);
    curl_easy_cleanup(curl);
    return code == CURLE_OK;
}

bool ownCurl(const FileServer& server) {
    utility::ufile::removeFile(server.target()); // what is there would be continued
    return utility::QzCurlDownloader::downloadFile(utility::wideToAnsi(server.target()),
                                                   utility::wideToAnsi(server.url()), {});
}

struct Cost {
    double seconds = 0;    // by the clock
    double cpuSeconds = 0; // of this process
};

double cpuSeconds() {
    FILETIME created, exited, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
    const auto ticks = [](FILETIME time) {
        return static_cast<double>((static_cast<uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime);
    };
    return (ticks(kernel) + ticks(user)) / 1e7;
}

double measure(benchmark::State& state, const FileServer& server, bool (*fetch)(const FileServer&),
               Cost& cost) {
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    const double cpuStart = cpuSeconds();
    QueryPerformanceCounter(&start);
    if (!fetch(server))
        state.SkipWithError("a download failed");
    QueryPerformanceCounter(&end);
    const double seconds =
        static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart);
    cost.seconds += seconds;
    cost.cpuSeconds += cpuSeconds() - cpuStart;
    return seconds;
}

void compare(benchmark::State& state, int mebibytes, bool (*own)(const FileServer&),
             bool (*bare)(const FileServer&)) {
    curl_global_init(CURL_GLOBAL_ALL);
    const FileServer server(mebibytes);
    if (!server.runs()) {
        state.SkipWithError("publisher.exe does not start");
        return;
    }
    bare(server); // both begin with the file warm
    Cost ownCost, bareCost;
    for (auto _ : state) {
        state.SetIterationTime(measure(state, server, own, ownCost));
        measure(state, server, bare, bareCost);
    }
    const double whole = mebibytes * static_cast<double>(state.iterations());
    state.counters["own_MiB_per_s"] = whole / ownCost.seconds;
    state.counters["bare_MiB_per_s"] = whole / bareCost.seconds;
    state.counters["ratio"] = bareCost.seconds / ownCost.seconds;
    state.counters["cpu_ratio"] = bareCost.cpuSeconds / ownCost.cpuSeconds;
}

void downloadWithWininet(benchmark::State& state) {
    compare(state, wininetMebibytes, ownWininet, bareWininet);
}
void downloadWithCurl(benchmark::State& state) {
    compare(state, curlMebibytes, ownCurl, bareCurl);
}

} // namespace

BENCHMARK(downloadWithWininet)->Iterations(8)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(downloadWithCurl)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
