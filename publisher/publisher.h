#pragma once

#include "publisher/fault.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

// Stand-in of the publisher's servers: serves documents, packages, images and pages over
// HTTP on the loopback address, with ranges, and can be a bad server on demand.
//
// A resource is a text given to publish, else a file below the folder. A folder with the
// files en.html, kr.html and so on answers as the page of the language that the query
// names (?language=kr), in English when it has no such file. Each request has a
// connection of its own. All operations may be called from any thread; text is UTF-8,
// paths begin with a slash and carry no query.
//
// While it runs, the same faults can be set from outside, by posts with an empty body
// (Content-Length: 0):
//   POST /control/fault?path=PATH&kind=KIND&value=VALUE&times=TIMES
//   POST /control/clear     takes all faults and the request log away
//   GET  /control/requests  one line for each request: method, path, range

namespace publisher {

struct RequestRecord {
    std::string method;
    std::string path;                                // decoded, without the query
    std::string target;                              // as received
    std::string range;                               // value of the header, or empty
    std::multimap<std::string, std::string> headers; // as received
};

class Publisher {
public:
    // An empty folder: only published texts are served.
    explicit Publisher(std::string folder = {});
    ~Publisher(); // stops

    // Port 0 is the system's choice. False if the port cannot be had.
    bool start(int port = 0);

    // Ends all answers under way, also those that hang, and joins. Repeatable.
    void stop();

    int port() const;
    std::string url(const std::string& path) const; // absolute address of a path

    void publish(const std::string& path, std::string bytes);
    void addFault(const std::string& path, const Fault& fault);
    void clearFaults();

    std::vector<RequestRecord> requests() const;
    void clearRequests();

private:
    struct Impl;
    std::unique_ptr<Impl> impl;
};

} // namespace publisher
