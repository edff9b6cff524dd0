#include "kit/command.h"
#include "kit/console.h"
#include "kit/process_counts.h"

#include <cstdio>

namespace kit {

static int run(const Arguments& arguments);

extern const Command countsCommand = {
    "counts", "PROGRAM", "handles, threads, windows and GDI objects of a running program",
    "PROGRAM is a file name such as tkvyn.exe; the first process of that name is looked at.\n"
    "Prints one line: handles N threads N windows N gdi N.\n",
    run};

static int run(const Arguments& arguments) {
    if (arguments.size() != 1)
        return wrongUsage(countsCommand, "one program name is needed");
    ProcessCounts counts;
    const DWORD processId = findProcess(arguments[0].c_str());
    if (!processId || !readProcessCounts(processId, counts)) {
        fprintf(stderr, "vynkit counts: %s does not run\n", toUtf8(arguments[0]).c_str());
        return 1;
    }
    printf("handles %u threads %u windows %u gdi %u\n", counts.handles, counts.threads, counts.windows,
           counts.gdi);
    return 0;
}

} // namespace kit
