#include "archive/entry_name.h"
#include "tests/fuzz/wide_text.h"
#include "tests/fuzz/windows_paths.h"

#include <cstdlib>

// Any text as the name of an archive's entry. What is accepted has to be the same file below
// the destination whether Windows takes the path apart or takes it as it stands, which is what
// the destination's form asks for; and a harmless name is never refused.

namespace {

constexpr std::wstring_view destination = L"C:\\Programs\\Target";

void check(bool sound) {
    if (!sound)
        abort();
}

std::wstring asItStands(std::wstring path) {
    for (wchar_t& unit : path)
        unit = unit == L'/' ? L'\\' : unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - 32) : unit;
    return path;
}

// Separators single and inside only, words of "k" and underscore: no rule is about those.
bool isHarmless(std::wstring_view name) {
    return !name.empty() && name.size() < archive::nameUnits && name.front() != L'/' && name.back() != L'/' &&
           name.find(L"//") == name.npos && name.find_first_not_of(L"/k_") == name.npos;
}

void checkAccepted(std::wstring_view name, archive::EntryKind kind, const std::wstring& path) {
    const auto opened = windowsPath(destination, name);
    std::wstring wanted(destination);
    if (!path.empty())
        wanted += L"\\" + path;
    check(opened && *opened == asItStands(wanted));
    check(kind == archive::EntryKind::Folder || !path.empty());
    std::wstring again;
    check(archive::judgeName(path, kind, again) == archive::NameRule::Accepted && again == path);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring name = wideText(data, size);
    for (const auto kind : {archive::EntryKind::File, archive::EntryKind::Folder}) {
        std::wstring path = L"?";
        const archive::NameRule rule = archive::judgeName(name, kind, path);
        check(*archive::ruleText(rule) != 0);
        if (rule == archive::NameRule::Accepted)
            checkAccepted(name, kind, path);
        else
            check(path == L"?" && !isHarmless(name));
    }
    return 0;
}
