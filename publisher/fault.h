#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a bad server does to the requests of one path. Several faults of one path act
// together: slow and cut, for example.

namespace publisher {

enum class FaultKind {
    Slow,         // number: bytes a second
    Cut,          // number: bytes of the body after which the connection closes
    IgnoreRange,  // the whole body with status 200, whatever range was asked for
    WrongRange,   // number: bytes by which the range sent begins too early
    Chunked,      // in chunks, without a length
    NoLength,     // ends with the connection, without a length
    WrongLength,  // number: bytes that are announced beyond those that come
    Status,       // number: status, with a short page as body
    Redirect,     // text: the address to go to
    RedirectLoop, // to itself
    Hang,         // no answer until the server stops
};

struct Fault {
    FaultKind kind;
    uint64_t number = 0;
    std::string text;
    unsigned times = 0; // how many requests it hits; 0: all
};

struct FaultRule {
    std::string path;
    Fault fault;
};

// kind: "slow", "cut", "ignore-range", "wrong-range", "chunked", "no-length", "wrong-length", "status",
// "redirect", "redirect-loop" or "hang". Nothing for an unknown kind, or for a value or
// count that is no number where one is meant.
std::optional<Fault> parseFault(std::string_view kind, std::string_view value, std::string_view times);

// "PATH,KIND[,VALUE[,TIMES]]".
std::optional<FaultRule> parseFaultRule(std::string_view text);

// One line for each kind, for the help of the programs.
std::string describeFaults();

} // namespace publisher
