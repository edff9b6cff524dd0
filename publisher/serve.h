#pragma once

#include <string>
#include <vector>

// The publisher as a command: prints "listening PORT" and serves until the process is
// ended. Text is UTF-8.

namespace publisher {

inline constexpr const char* ServeUsage = "DIR [--port=N] [--fault=PATH,KIND[,VALUE[,TIMES]]] ...";
inline constexpr const char* ServeSummary = "serve the files of a folder, as a bad server if wanted";
std::string serveHelp();

// The exit code: 2 for wrong arguments, 1 if folder or port cannot be had; otherwise it does
// not return.
int serve(const std::vector<std::string>& arguments);

} // namespace publisher
