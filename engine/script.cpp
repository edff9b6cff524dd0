#include "engine/script.h"

#include "engine/text.h"

#include <duktape.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>

// The hook that the interpreter is built with: looked at every few thousand steps.
extern "C" int duk_user_is_expired(void* self) {
    return self && static_cast<const engine::Script*>(self)->isExpired();
}

namespace engine {

namespace {

using Clock = std::chrono::steady_clock;

// Keeps the size of a block before it, and the eight-byte alignment that the interpreter
// needs.
union BlockHead {
    size_t size;
    uint64_t alignment;
};

// Text of the interpreter is UTF-8 but for pairs of surrogates, which it writes one by one.
std::u16string fromScriptText(std::string_view text) {
    std::u16string out;
    while (!text.empty()) {
        const auto byte = [&](size_t at) { return static_cast<unsigned char>(text[at]); };
        if (text.size() >= 3 && byte(0) == 0xED && byte(1) >= 0xA0) {
            out += static_cast<char16_t>(0xD000 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F));
            text.remove_prefix(3);
            continue;
        }
        const size_t end = std::min(text.find('\xED', 1), text.size());
        out += toUtf16(text.substr(0, end));
        text.remove_prefix(end);
    }
    return out;
}

} // namespace

// The interpreter asks for memory often, also in loops of its own that look at no clock:
// so memory is refused too when the time is up.
void* Script::allocate(void* self, size_t size) {
    auto& script = *static_cast<Script*>(self);
    if (size == 0 || size > limits::ScriptMemory - script.memory || script.isExpired())
        return nullptr;
    auto* head = static_cast<BlockHead*>(std::malloc(sizeof(BlockHead) + size));
    if (!head)
        return nullptr;
    head->size = size;
    script.memory += size;
    return head + 1;
}

void Script::release(void* self, void* block) {
    if (!block)
        return;
    BlockHead* head = static_cast<BlockHead*>(block) - 1;
    static_cast<Script*>(self)->memory -= head->size;
    std::free(head);
}

void* Script::reallocate(void* self, void* block, size_t size) {
    if (!block)
        return allocate(self, size);
    if (size == 0) {
        release(self, block);
        return nullptr;
    }
    const size_t before = (static_cast<BlockHead*>(block) - 1)->size;
    void* larger = allocate(self, size);
    if (!larger)
        return nullptr;
    std::copy_n(static_cast<const char*>(block), std::min(before, size), static_cast<char*>(larger));
    release(self, block);
    return larger;
}

Script::Script(std::vector<NativeFunction> functions) : functions(std::move(functions)) {
    beginRun();
    const duk_fatal_function fatal = [](void*, const char*) { std::abort(); };
    context = duk_create_heap(allocate, reallocate, release, this, fatal);
    if (!context)
        return;
    const duk_safe_call_function define = [](duk_context* context, void* self) -> duk_ret_t {
        static_cast<Script*>(self)->define(context);
        return 0;
    };
    duk_safe_call(context, define, this, 0, 1);
    duk_pop(context);
}

Script::~Script() {
    if (context)
        duk_destroy_heap(context);
}

bool Script::isExpired() const {
    return Clock::now() > deadline;
}

void Script::define(duk_hthread* context) {
    duk_push_global_object(context);
    duk_dup(context, -1);
    duk_put_prop_string(context, -2, "window");
    for (size_t i = 0; i < functions.size(); i++) {
        duk_push_c_function(context, callNative, DUK_VARARGS);
        duk_set_magic(context, -1, static_cast<duk_int_t>(i));
        duk_put_prop_string(context, -2, functions[i].name.c_str());
    }
    duk_pop(context);
}

// An error of the interpreter leaves this function by a jump that runs no destructor, so
// all that may fail comes before the first object.
int Script::callNative(duk_hthread* context) {
    duk_memory_functions memory;
    duk_get_memory_functions(context, &memory);
    auto& script = *static_cast<Script*>(memory.udata);
    if (script.nativeCalls == limits::NativeCalls)
        return duk_generic_error(context, "too many calls");
    script.nativeCalls++;
    const NativeFunction& function = script.functions[static_cast<size_t>(duk_get_current_magic(context))];
    const auto count = std::min(static_cast<unsigned>(duk_get_top(context)), function.argumentCount);
    for (unsigned i = 0; i < count; i++)
        duk_to_string(context, static_cast<duk_idx_t>(i));
    const auto before = Clock::now();
    try {
        std::vector<std::u16string> arguments;
        for (unsigned i = 0; i < count; i++) {
            duk_size_t length = 0;
            const char* text = duk_get_lstring(context, static_cast<duk_idx_t>(i), &length);
            arguments.push_back(fromScriptText({text, length}));
        }
        function.call(arguments);
    } catch (const std::bad_alloc&) { // a text too large for the machine: the call is left out
    }
    script.deadline += Clock::now() - before;
    return 0;
}

bool Script::run(std::string_view source) {
    beginRun();
    return execute(source);
}

bool Script::runHandler(std::string_view body) {
    return run("(function(){" + std::string(body) + "\n})()");
}

void Script::runTogether(const std::vector<std::string>& sources) {
    beginRun();
    for (const std::string& source : sources)
        execute(source);
}

void Script::beginRun() {
    if (running) // refused, and not to lengthen the run that it is in
        return;
    deadline = Clock::now() + limits::ScriptTime;
    nativeCalls = 0;
}

bool Script::execute(std::string_view source) {
    if (!context || running)
        return false;
    running = true;
    const duk_safe_call_function evaluate = [](duk_context* context, void* text) -> duk_ret_t {
        const auto& source = *static_cast<const std::string_view*>(text);
        duk_eval_lstring_noresult(context, source.data(), source.size());
        return 0;
    };
    const bool done = duk_safe_call(context, evaluate, &source, 0, 1) == DUK_EXEC_SUCCESS;
    duk_pop(context);
    running = false;
    return done;
}

} // namespace engine
