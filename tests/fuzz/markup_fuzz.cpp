#include "uilib/core/markup.h"
#include "uilib/core/utf8.h"

#include <cstdlib>
#include <cwchar>

// Any bytes as a document in each encoding; then every node and attribute is read. A
// walk over the table must meet every element once, and the same text has to be the same
// document as bytes and as wide characters.

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

static void compareWithWide(const UILib::CMarkup& fromBytes, std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    UILib::CMarkup wide;
    wide.Load(UILib::wideFromUtf8(bytes));
    if (std::wcscmp(fromBytes.GetLastErrorMessage(), wide.GetLastErrorMessage()) != 0)
        abort();
    UILib::CMarkupNode one = fromBytes.GetRoot(), other = wide.GetRoot();
    for (; one.IsValid() && other.IsValid(); one = one.GetChild(), other = other.GetChild()) {
        if (std::wcscmp(one.GetName(), other.GetName()) != 0 ||
            one.GetAttributeCount() != other.GetAttributeCount())
            abort();
        for (int i = 0; i < one.GetAttributeCount(); ++i)
            if (std::wcscmp(one.GetAttributeName(i), other.GetAttributeName(i)) != 0 ||
                std::wcscmp(one.GetAttributeValue(i), other.GetAttributeValue(i)) != 0)
                abort();
    }
    if (one.IsValid() != other.IsValid())
        abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    UILib::CMarkup markup;
    if (markup.LoadUtf8(bytes))
        walk(markup, size + 1);
    else if (markup.GetRoot().IsValid() || !*markup.GetLastErrorMessage())
        abort();
    compareWithWide(markup, bytes);
    if (markup.LoadUtf16(bytes))
        walk(markup, size + 1);
    return 0;
}
