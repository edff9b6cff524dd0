#pragma once

#include <string>

namespace kit {

// The whole file, for commands that read one. A failure is told on the error output.
bool readFile(const std::wstring& path, std::string& bytes);

} // namespace kit
