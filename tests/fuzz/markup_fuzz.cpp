#include "uilib/core/markup.h"
#include "uilib/core/utf8.h"

#include <cstdlib>
#include <cwchar>
#include <iterator>

// Any bytes as a document in each encoding; then every node and attribute is read. A
// walk over the table must meet every element once, and the same text has to be the same
// document as bytes and as wide characters.

// By their numbers and by their names, the first of which counts; and into a buffer, which
// nothing leaves.
static void readAttributes(UILib::CMarkupNode& node, size_t limit) {
    for (int i = 0; i < node.GetAttributeCount(); ++i) {
        const wchar_t* name = node.GetAttributeName(i);
        const wchar_t* value = node.FindAttribute(name);
        if (!value || std::wcslen(name) + std::wcslen(node.GetAttributeValue(i)) > limit)
            abort();
        wchar_t buffer[8];
        if (!node.GetAttributeValue(name, buffer, std::size(buffer)) || std::wcsncmp(buffer, value, 8) != 0)
            abort();
    }
    const int count = node.GetAttributeCount();
    if (*node.GetAttributeName(count) || *node.GetAttributeValue(-1) || node.FindAttribute(L"<"))
        abort();
}

static void checkErrorTexts(const UILib::CMarkup& markup) {
    wchar_t message[8], location[200];
    markup.GetLastErrorMessage(message, std::size(message));
    markup.GetLastErrorLocation(location, std::size(location));
    if (std::wcslen(message) > 7 || std::wcslen(location) > 199 ||
        std::wcsncmp(message, markup.GetLastErrorMessage(), std::wcslen(message)) != 0)
        abort();
}

static void walk(const UILib::CMarkup& markup, size_t limit) {
    size_t visited = 0;
    UILib::CMarkupNode node = markup.GetRoot();
    while (node.IsValid()) {
        if (++visited > limit || std::wcslen(node.GetName()) > limit)
            abort();
        readAttributes(node, limit);
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
    checkErrorTexts(markup);
    compareWithWide(markup, bytes);
    if (markup.LoadUtf16(bytes))
        walk(markup, size + 1);
    return 0;
}
