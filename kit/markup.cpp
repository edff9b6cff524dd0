#include "uilib/core/markup.h"
#include "kit/command.h"
#include "kit/console.h"
#include "kit/escape.h"
#include "kit/read_file.h"

#include <cstdio>

namespace kit {

extern const Command markupCommand;

static void printElement(UILib::CMarkupNode& node, size_t depth) {
    std::wstring line(depth * 2, L' ');
    line += node.GetName();
    for (int i = 0; i < node.GetAttributeCount(); ++i)
        line.append(L" ")
            .append(node.GetAttributeName(i))
            .append(L"=\"")
            .append(escaped(node.GetAttributeValue(i)) + L"\"");
    printf("%s\n", toUtf8(line).c_str());
}

// Walks without recursion: a document may be a hundred thousand levels deep.
static void printDocument(UILib::CMarkupNode node) {
    for (size_t depth = 0; node.IsValid();) {
        printElement(node, depth);
        if (node.HasChildren()) {
            node = node.GetChild();
            ++depth;
            continue;
        }
        UILib::CMarkupNode next = node.GetSibling();
        for (; !next.IsValid() && depth > 0; --depth) {
            node = node.GetParent();
            next = node.GetSibling();
        }
        node = next;
    }
}

static int run(const Arguments& arguments) {
    if (arguments.size() != 1)
        return wrongUsage(markupCommand, "one file, please");
    std::string bytes;
    if (!readFile(arguments[0], bytes))
        return 1;
    UILib::CMarkup markup;
    if (!markup.LoadFromMem(bytes.data(), bytes.size(), UILib::CMarkup::Utf8)) {
        printf("error: %s\nlocation: %s\n", toUtf8(markup.GetLastErrorMessage()).c_str(),
               toUtf8(escaped(markup.GetLastErrorLocation())).c_str());
        return 1;
    }
    printDocument(markup.GetRoot());
    return 0;
}

const Command markupCommand = {
    "markup",
    "FILE",
    "show the elements of a skin file",
    "One line an element: two blanks a level, the name, then each attribute as name=\"value\",\n"
    "with \\\\, \\\" and \\xHH for backslash, quote and control characters. A document that does\n"
    "not parse gives its error and the text at that place.\n",
    run,
};

} // namespace kit
