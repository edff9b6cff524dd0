#include "engine/js_bindings.h"

namespace engine {

namespace {

struct Binding {
    std::string name;
    NativeCall call;
    void* parameter;
    unsigned argumentCount;
};

std::vector<Binding>& bindings() {
    static std::vector<Binding> all;
    return all;
}

using Arguments = std::vector<std::u16string>;

const Arguments& argumentsOf(ExecState state) {
    return *reinterpret_cast<const Arguments*>(state);
}

} // namespace

void bindFunction(const char* name, NativeCall call, void* parameter, unsigned argumentCount) {
    if (!name || !call)
        return;
    for (Binding& binding : bindings())
        if (binding.name == name) {
            binding = {name, call, parameter, argumentCount};
            return;
        }
    bindings().push_back({name, call, parameter, argumentCount});
}

std::vector<NativeFunction> boundFunctions() {
    std::vector<NativeFunction> functions;
    for (const Binding& binding : bindings())
        functions.push_back(
            {binding.name, binding.argumentCount,
             [call = binding.call, parameter = binding.parameter](const Arguments& arguments) {
                 auto* state = const_cast<Arguments*>(&arguments);
                 call(reinterpret_cast<ExecState>(state), parameter);
             }});
    return functions;
}

ScriptValue argument(ExecState state, int index) {
    const bool given = state && index >= 0 && static_cast<size_t>(index) < argumentsOf(state).size();
    return given ? index + 1 : Undefined;
}

const wchar_t* textOf(ExecState state, ScriptValue value) {
    if (!state || value < 1 || static_cast<size_t>(value) > argumentsOf(state).size())
        return L"";
    return reinterpret_cast<const wchar_t*>(argumentsOf(state)[static_cast<size_t>(value - 1)].c_str());
}

} // namespace engine
