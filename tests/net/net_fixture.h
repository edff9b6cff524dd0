#pragma once

#include "publisher/publisher.h"
#include "utility/http_downloader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

// A publisher in this process, and a folder of its own for targets.

class NetTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    std::wstring url(const std::string& path) const;
    std::string target(const std::string& name) const; // below the folder; Latin-1 letters at most
    std::wstring targetWide(const std::wstring& name) const { return folder + name; }

    // A fault for /file, given as on the command line: "cut,1000".
    void spoil(const std::string& rule);

    publisher::Publisher server;
    std::wstring folder; // ends in a backslash
};

// Bytes that differ at each offset, so that a piece in the wrong place is noticed.
std::string patternBytes(size_t size);

// A target that opens and takes nothing: a write to it fails as on a full disk. Empty
// where the platform has none.
std::wstring fullDisk();

std::string readFile(const std::wstring& path);
void writeFile(const std::wstring& path, const std::string& bytes);

// How many lines of the running test hold this text. They are no surprise then.
int logged(const std::wstring& text);

// False if condition does not come true in time.
bool waitFor(const std::function<bool()>& condition,
             std::chrono::milliseconds limit = std::chrono::seconds(20));

// Remembers what it was told; may stop the transfer.
class ProgressProbe : public utility::CHttpDownloader::IHttpDownloadSink {
public:
    bool onHttpDownload(const void*, uint32_t length, uint32_t received, uint32_t total) override;

    std::atomic<uint32_t> calls = 0;
    std::atomic<uint32_t> lastReceived = 0;
    std::atomic<uint32_t> lastTotal = 0;
    uint32_t firstReceived = 0;
    uint32_t stopAtCall = 0; // 0: never
};
