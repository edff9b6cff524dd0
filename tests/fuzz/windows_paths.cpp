#include "tests/fuzz/windows_paths.h"

#include <set>
#include <vector>

namespace {

std::vector<std::wstring> partsOf(std::wstring_view path) {
    std::vector<std::wstring> parts(1);
    for (const wchar_t unit : path)
        if (unit == L'\\' || unit == L'/')
            parts.emplace_back();
        else
            parts.back() += unit;
    return parts;
}

std::wstring inCapitals(std::wstring text) {
    for (wchar_t& unit : text)
        if (unit >= L'a' && unit <= L'z')
            unit = static_cast<wchar_t>(unit - 32);
    return text;
}

// A part opens a device wherever it stands; its extension, and blanks before that, do not count.
bool isDevice(const std::wstring& part) {
    static const std::set<std::wstring> devices = [] {
        std::set<std::wstring> names = {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
        for (const wchar_t digit : std::wstring_view(L"123456789\xB9\xB2\xB3"))
            for (const wchar_t* port : {L"COM", L"LPT"})
                names.insert(std::wstring(port) + digit);
        return names;
    }();
    std::wstring stem = inCapitals(part.substr(0, part.find_first_of(L".:")));
    while (stem.ends_with(L' '))
        stem.pop_back();
    return devices.contains(stem);
}

bool canBeMade(const std::wstring& part) {
    for (const wchar_t unit : part)
        if (unit < 32 || std::wstring_view(L"\"*:<>?|").find(unit) != std::wstring_view::npos)
            return false;
    return !isDevice(part);
}

} // namespace

std::optional<std::wstring> windowsPath(std::wstring_view folder, std::wstring_view name) {
    if (name.size() > 1 && name[1] == L':') // a drive: its root, or wherever its current folder is
        return std::nullopt;
    const std::wstring drive(folder.substr(0, 2));
    std::vector<std::wstring> path;
    if (const bool fromRoot = name.starts_with(L'\\') || name.starts_with(L'/'); !fromRoot)
        path = partsOf(folder.substr(3));
    else if (name.size() > 1 && (name[1] == L'\\' || name[1] == L'/'))
        return std::nullopt;
    for (std::wstring part : partsOf(name)) {
        if (part == L"..") {
            if (!path.empty()) // the root is its own parent
                path.pop_back();
            continue;
        }
        // The system drops them silently. What is left of "..." is nothing, as of ".".
        while (part.ends_with(L'.') || part.ends_with(L' '))
            part.pop_back();
        if (part.empty())
            continue;
        if (!canBeMade(part))
            return std::nullopt;
        path.push_back(part);
    }
    std::wstring result = drive;
    for (const std::wstring& part : path)
        result += L"\\" + inCapitals(part);
    return result;
}
