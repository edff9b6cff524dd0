#include "kit/command.h"
#include "kit/console.h"

#include <algorithm>
#include <cstdio>
#include <initializer_list>

namespace kit {

// The table of all subcommands: each is an extern const Command of its own file.
extern const Command countsCommand;
extern const Command fetchCommand;
extern const Command layoutCommand;
extern const Command markupCommand;
extern const Command pageCommand;
extern const Command renderCommand;
extern const Command serveCommand;
extern const Command unpackCommand;

static const std::initializer_list<const Command*> commands = {
    &countsCommand, &fetchCommand,  &layoutCommand, &markupCommand,
    &pageCommand,   &renderCommand, &serveCommand,  &unpackCommand,
};

static void printHelp(const Command& command, FILE* out) {
    fprintf(out, "usage: vynkit %s %s\n\n%s\n", command.name, command.usage, command.summary);
    if (*command.help)
        fprintf(out, "\n%s", command.help);
}

static void printCommands(FILE* out) {
    fputs("usage: vynkit COMMAND ...\n\n", out);
    for (const Command* command : commands)
        fprintf(out, "  %-10s %s\n", command->name, command->summary);
    fputs("\n'vynkit COMMAND --help' tells more. Exit codes: 0 done, 1 failed, 2 wrong usage.\n", out);
}

static const Command* findCommand(const std::string& name) {
    auto found = std::find_if(commands.begin(), commands.end(),
                              [&](const Command* command) { return name == command->name; });
    return found == commands.end() ? nullptr : *found;
}

int wrongUsage(const Command& command, const std::string& reason) {
    fprintf(stderr, "vynkit %s: %s\nusage: vynkit %s %s\n", command.name, reason.c_str(), command.name,
            command.usage);
    return 2;
}

static bool asksForHelp(const std::wstring& argument) {
    return argument == L"--help" || argument == L"-h";
}

static int runTool(const Arguments& arguments) {
    if (arguments.empty()) {
        printCommands(stderr);
        return 2;
    }
    if (asksForHelp(arguments[0])) {
        printCommands(stdout);
        return 0;
    }
    const Command* command = findCommand(toUtf8(arguments[0]));
    if (!command) {
        fprintf(stderr, "vynkit: no command %s\n\n", toUtf8(arguments[0]).c_str());
        printCommands(stderr);
        return 2;
    }
    Arguments rest(arguments.begin() + 1, arguments.end());
    if (std::any_of(rest.begin(), rest.end(), asksForHelp)) {
        printHelp(*command, stdout);
        return 0;
    }
    return command->run(rest);
}

} // namespace kit

int wmain(int count, wchar_t** arguments) {
    kit::prepareConsole();
    return kit::runTool(kit::Arguments(arguments + 1, arguments + count));
}
