#pragma once

#include <string>
#include <vector>

// The publisher as a command: "DIR [--port=N] [--fault=PATH,KIND[,VALUE[,TIMES]]] ...",
// prints "listening PORT" and serves until the process is ended.

namespace publisher {

// UTF-8. The exit code: 2 for wrong arguments, 1 if the port cannot be had; otherwise it
// does not return.
int serve(const std::vector<std::string>& arguments);

std::string serveUsage();

} // namespace publisher
