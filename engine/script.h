#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The scripts of one page. They know the language's own objects, window, and the functions
// that are handed in; no document, no network, no timers. What a script may take of time,
// memory and native calls is bounded: one that asks for more is ended. Errors in scripts go
// nowhere. Used by one thread.

struct duk_hthread;

namespace engine {

// A function that pages can call. Gets as many texts as the page gave arguments, at most
// argumentCount; the page gets undefined.
struct NativeFunction {
    std::string name;
    unsigned argumentCount;
    std::function<void(const std::vector<std::u16string>& arguments)> call;
};

namespace limits {
inline constexpr size_t ScriptMemory = 8 * 1024 * 1024;
inline constexpr std::chrono::milliseconds ScriptTime{300}; // of one run, without native calls
inline constexpr unsigned NativeCalls = 8;                  // of one run: each may start a program
} // namespace limits

class Script {
public:
    explicit Script(std::vector<NativeFunction> functions);
    ~Script();
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    // True when the script came to its end. False also inside of a run: a native function
    // may lead here again by way of window messages.
    bool run(std::string_view source);
    bool runHandler(std::string_view body); // of an event, in which return is allowed

    // One after the other, whatever becomes of each; for the limits they are one run.
    void runTogether(const std::vector<std::string>& sources);

    bool isExpired() const; // for the interpreter

private:
    static void* allocate(void* self, size_t size);
    static void* reallocate(void* self, void* block, size_t size);
    static void release(void* self, void* block);
    static int callNative(duk_hthread* context);

    void define(duk_hthread* context);
    void beginRun();
    bool execute(std::string_view source);

    std::vector<NativeFunction> functions;
    duk_hthread* context = nullptr; // null when there was no memory for it
    size_t memory = 0;              // bytes in use
    std::chrono::steady_clock::time_point deadline;
    unsigned nativeCalls = 0; // of the present run
    bool running = false;
};

} // namespace engine
