#include "publisher/serve.h"

#include "publisher/publisher.h"
#include "publisher/resource.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <optional>
#include <string_view>
#include <thread>

namespace publisher {

namespace {

struct Options {
    std::string folder;
    int port = 0;
    std::vector<FaultRule> faults;
};

bool parsePort(std::string_view text, int& port) {
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
    return error == std::errc() && end == text.data() + text.size() && port >= 0 && port <= 65535;
}

bool parseFaultOption(std::string_view text, std::vector<FaultRule>& faults) {
    std::optional<FaultRule> rule = parseFaultRule(text);
    if (rule)
        faults.push_back(*rule);
    return rule.has_value();
}

// "--name=value", or "--name" with the value as the next argument.
bool takeOption(const std::vector<std::string>& arguments, size_t& index, std::string_view name,
                std::string_view& value) {
    std::string_view argument = arguments[index];
    if (!argument.starts_with(name))
        return false;
    argument.remove_prefix(name.size());
    if (argument.starts_with("=")) {
        value = argument.substr(1);
        return true;
    }
    if (!argument.empty() || index + 1 == arguments.size())
        return false;
    value = arguments[++index];
    return true;
}

std::optional<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (size_t index = 0; index < arguments.size(); ++index) {
        std::string_view value;
        bool good = true;
        if (takeOption(arguments, index, "--port", value))
            good = parsePort(value, options.port);
        else if (takeOption(arguments, index, "--fault", value))
            good = parseFaultOption(value, options.faults);
        else if (!arguments[index].starts_with("--") && options.folder.empty())
            options.folder = arguments[index];
        else
            good = false;
        if (!good) {
            std::fprintf(stderr, "serve: cannot read \"%s\"\n", arguments[index].c_str());
            return std::nullopt;
        }
    }
    return options.folder.empty() ? std::nullopt : std::optional(options);
}

} // namespace

int serve(const std::vector<std::string>& arguments) {
    std::optional<Options> options = parseOptions(arguments);
    if (!options) {
        std::fprintf(stderr, "usage: %s\n\n%s", ServeUsage, serveHelp().c_str());
        return 2;
    }
    if (!isFolder(options->folder)) {
        std::fprintf(stderr, "serve: no folder %s\n", options->folder.c_str());
        return 1;
    }
    Publisher server(options->folder);
    for (const FaultRule& rule : options->faults)
        server.addFault(rule.path, rule.fault);
    if (!server.start(options->port)) {
        std::fprintf(stderr, "serve: port %d cannot be had\n", options->port);
        return 1;
    }
    std::printf("listening %d\n", server.port());
    std::fflush(stdout);
    for (;;)
        std::this_thread::sleep_for(std::chrono::hours(1));
}

std::string serveHelp() {
    return "Serves on the loopback address and prints \"listening PORT\". A fault hits the first\n"
           "TIMES requests of PATH, or all. Kinds of faults and their values:\n" +
           describeFaults();
}

} // namespace publisher
