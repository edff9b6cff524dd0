#include "tests/fuzz/wide_text.h"
#include "uilib/core/attribute_list.h"

#include <cstdlib>

// Any text as an attribute list: each pair is a part of the text, and the list shrinks.

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = wideText(data, size);
    std::wstring_view rest = text, name, value;
    for (size_t before = rest.size(); UILib::takeAttribute(rest, name, value); before = rest.size()) {
        const bool inside =
            name.data() >= text.data() && value.data() + value.size() <= text.data() + text.size();
        if (!inside || rest.size() >= before || value.find(L'"') != std::wstring_view::npos)
            abort();
    }
    return 0;
}
