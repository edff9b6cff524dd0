#pragma once

#include <string>
#include <vector>

// One subcommand of the workbench. Each lives in a file of its own, which defines one
// constant Command; the table in main.cpp lists them, and the help texts come from it.

namespace kit {

using Arguments = std::vector<std::wstring>;

struct Command {
    const char* name;
    const char* usage;   // what follows the name: "ARCHIVE DIR [--memory]"
    const char* summary; // one line for the list of all commands
    const char* help;    // the rest of the command's own help, ends in a newline
    // The arguments after the name. The result is the exit code of the program.
    int (*run)(const Arguments& arguments);
};

// Tells the caller that the arguments make no sense: prints the reason and the usage to
// the error output, and gives the exit code for that, which is 2.
int wrongUsage(const Command& command, const std::string& reason);

} // namespace kit
