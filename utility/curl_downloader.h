#pragma once

#include <functional>
#include <string>

// One transfer with libcurl, into memory or into a file. Synchronous: call it on a
// worker. Keeps no state; calls may run side by side, from CurlLibrary's start to its end.
// Text is in the system code page.
//
// An HTTP error status is no failure here: the body of the error page is the result,
// and judging it is up to the caller.

namespace utility {

class QzCurlDownloader {
public:
    // Percent and bytes count from the start of the file, what was there before
    // included. At most once a second, on the thread of the transfer; never at 100
    // percent, and never while the length is unknown.
    using Progress = std::function<void(int percent, int downloaded, int total)>;

    // body is assigned only on success.
    static bool downloadMemory(const std::string& url, std::string& body);

    // Continues behind the bytes that path already holds; a failed transfer leaves
    // what has arrived.
    static bool downloadFile(const std::string& path, const std::string& url, const Progress& progress);
};

} // namespace utility
