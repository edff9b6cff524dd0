#pragma once

#include "engine/abi.h"
#include "engine/script.h"

#include <string>
#include <vector>

// Functions of the program that the scripts of all pages can call, and the values that
// travel in such a call: a value is the number of an argument, 0 is undefined.

namespace engine {

void bindFunction(const char* name, NativeCall call, void* parameter, unsigned argumentCount);
std::vector<NativeFunction> boundFunctions(); // for a new page

inline constexpr ScriptValue Undefined = 0;

ScriptValue argument(ExecState state, int index);          // from 0; undefined past the end
const wchar_t* textOf(ExecState state, ScriptValue value); // empty for undefined; until the call ends

} // namespace engine
