#include "uilib/core/markup.h"

#include <cstdlib>
#include <cwchar>

// Any bytes as a document in each encoding; then every node and attribute is read. A
// walk over the table must meet every element once.

static void walk(const UILib::CMarkup& markup, size_t limit) {
    size_t visited = 0;
    UILib::CMarkupNode node = markup.GetRoot();
    while (node.IsValid()) {
        if (++visited > limit || std::wcslen(node.GetName()) > limit)
            abort();
        for (int i = 0; i < node.GetAttributeCount(); ++i)
            if (std::wcslen(node.GetAttributeName(i)) + std::wcslen(node.GetAttributeValue(i)) > limit)
                abort();
        if (node.HasChildren()) {
            node = node.GetChild();
            continue;
        }
        UILib::CMarkupNode next = node.GetSibling();
        while (!next.IsValid() && (node = node.GetParent()).IsValid())
            next = node.GetSibling();
        node = next;
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    UILib::CMarkup markup;
    if (markup.LoadUtf8(bytes))
        walk(markup, size + 1);
    else if (markup.GetRoot().IsValid() || !*markup.GetLastErrorMessage())
        abort();
    if (markup.LoadUtf16(bytes))
        walk(markup, size + 1);
    return 0;
}
