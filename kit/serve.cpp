#include "publisher/serve.h"

#include "kit/command.h"
#include "kit/console.h"

namespace kit {

static int run(const Arguments& arguments);

static const std::string help = publisher::serveHelp();

extern const Command serveCommand = {"serve", publisher::ServeUsage, publisher::ServeSummary, help.c_str(),
                                     run};

static int run(const Arguments& arguments) {
    std::vector<std::string> texts;
    for (const std::wstring& argument : arguments)
        texts.push_back(toUtf8(argument));
    return publisher::serve(texts);
}

} // namespace kit
