#pragma once

#include <string>
#include <string_view>

// Text of the workbench's outputs: UTF-8 with plain newlines, whatever the console's code
// page, so that scripts can read it.

namespace kit {

std::string toUtf8(std::wstring_view text);

// Puts both outputs into binary mode and sends the log's lines to the error output.
// Once, before the first line.
void prepareConsole();

} // namespace kit
