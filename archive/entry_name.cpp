#include "archive/entry_name.h"

#include <algorithm>

namespace archive {

namespace {

bool isSeparator(wchar_t unit) {
    return unit == L'/' || unit == L'\\';
}

wchar_t upper(wchar_t unit) {
    return unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - L'a' + L'A') : unit;
}

bool isDigitOfDevice(wchar_t unit) {
    // Windows takes the superscripts one, two and three for digits.
    return (unit >= L'0' && unit <= L'9') || unit == 0xB9 || unit == 0xB2 || unit == 0xB3;
}

// What Windows compares with its devices: the part before the first dot, without blanks
// at its end, in capitals.
std::wstring deviceStem(std::wstring_view part) {
    std::wstring stem(part.substr(0, part.find(L'.')));
    stem.erase(stem.find_last_not_of(L' ') + 1);
    std::transform(stem.begin(), stem.end(), stem.begin(), upper);
    return stem;
}

bool isDevice(std::wstring_view part) {
    const std::wstring stem = deviceStem(part);
    if (stem.size() == 4 && (stem.starts_with(L"COM") || stem.starts_with(L"LPT")))
        return isDigitOfDevice(stem[3]);
    return stem == L"CON" || stem == L"PRN" || stem == L"AUX" || stem == L"NUL" || stem == L"CONIN$" ||
           stem == L"CONOUT$";
}

bool isForbidden(wchar_t unit) {
    return static_cast<unsigned>(unit) < 0x20 ||
           std::wstring_view(L"<>\"|?*").find(unit) != std::wstring_view::npos;
}

NameRule judgePart(std::wstring_view part) {
    if (part == L"..")
        return NameRule::ClimbsOut;
    if (part.find(L':') != std::wstring_view::npos)
        return NameRule::AlternateStream;
    if (std::any_of(part.begin(), part.end(), isForbidden))
        return NameRule::ForbiddenCharacter;
    if (part.back() == L'.' || part.back() == L' ')
        return NameRule::TrailingDotOrBlank;
    return isDevice(part) ? NameRule::DeviceName : NameRule::Accepted;
}

NameRule judgeStart(std::wstring_view name) {
    if (!name.empty() && isSeparator(name[0]))
        return name.size() > 1 && isSeparator(name[1]) ? NameRule::Unc : NameRule::Absolute;
    const bool drive = name.size() > 1 && name[1] == L':' && upper(name[0]) >= L'A' && upper(name[0]) <= L'Z';
    return drive ? NameRule::DriveLetter : NameRule::Accepted;
}

std::wstring_view cutPart(std::wstring_view& rest) {
    const size_t end = std::min(rest.find_first_of(L"/\\"), rest.size());
    const std::wstring_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return part;
}

} // namespace

NameRule judgeName(std::wstring_view name, EntryKind kind, std::wstring& path) {
    if (name.size() >= nameUnits)
        return NameRule::TooLong;
    NameRule rule = judgeStart(name);
    if (rule != NameRule::Accepted)
        return rule;
    std::wstring result;
    bool endsInName = false;
    for (std::wstring_view rest = name; !rest.empty();) {
        const std::wstring_view part = cutPart(rest);
        endsInName = !part.empty() && part != L".";
        if (!endsInName)
            continue;
        rule = judgePart(part);
        if (rule != NameRule::Accepted)
            return rule;
        result.append(result.empty() ? L"" : L"/").append(part);
    }
    if (kind == EntryKind::File && (!endsInName || isSeparator(name.back())))
        return NameRule::NoName;
    path = std::move(result);
    return NameRule::Accepted;
}

const wchar_t* ruleText(NameRule rule) {
    switch (rule) {
    case NameRule::Accepted:
        return L"accepted";
    case NameRule::TooLong:
        return L"the name is too long";
    case NameRule::NoName:
        return L"the file has no name";
    case NameRule::Absolute:
        return L"the path is absolute";
    case NameRule::Unc:
        return L"the path names a server or a device";
    case NameRule::DriveLetter:
        return L"the path has a drive letter";
    case NameRule::ClimbsOut:
        return L"the path climbs out of its folder";
    case NameRule::AlternateStream:
        return L"the name has a colon";
    case NameRule::ForbiddenCharacter:
        return L"the name has a forbidden character";
    case NameRule::TrailingDotOrBlank:
        return L"the name ends in a dot or a blank";
    case NameRule::DeviceName:
        return L"the name is that of a device";
    }
    return L"";
}

} // namespace archive
