#pragma once

#include <string>
#include <string_view>

// The one place that judges the names of an archive's entries, by rule and not by trial:
// Windows and its stand-ins disagree on what they do with such names. Pure.

namespace archive {

inline constexpr size_t nameUnits = 260; // of the sinks' name field, with its terminator

enum class EntryKind { Folder, File };

enum class NameRule {
    Accepted,
    TooLong,            // does not fit the field
    NoName,             // a file without a name, or whose name ends in a separator
    Absolute,           // starts with a separator
    Unc,                // starts with two: a server, or the system's own name spaces
    DriveLetter,        // starts with a letter and a colon
    ClimbsOut,          // has ".." in it, even where it would stay inside
    AlternateStream,    // a colon elsewhere
    ForbiddenCharacter, // that Windows forbids in names, control characters included
    TrailingDotOrBlank, // Windows drops them, so that the name becomes another one
    DeviceName,         // CON, NUL, COM1 and so on, whatever the case and the extension
};

// The accepted name as a path below the destination: '/' between its parts, without
// empty parts and "."; empty for a folder that is the destination itself. Both kinds of
// slash separate. path is untouched when the name is refused.
NameRule judgeName(std::wstring_view name, EntryKind kind, std::wstring& path);

// The rule in words, for the log.
const wchar_t* ruleText(NameRule rule);

} // namespace archive
