#pragma once

#include "archive/file_system.h"

#include <string>
#include <string_view>

namespace archive {

// The destination of an extraction. Paths inside it are relative, as judgeName() gives
// them. A link or junction that stands below the destination is never passed: whoever
// made it could lead an elevated program anywhere. The destination itself may be one.
class TargetFolder {
public:
    explicit TargetFolder(const std::wstring& folder) : root(systemPath(folder)) {}

    // Makes the folder with all its parents. Failed is final only for this path.
    FolderState makeFolders(std::wstring_view relative);

    // For the platform's calls.
    std::wstring pathOf(std::wstring_view relative) const;

private:
    FolderState makeRoot();

    std::wstring root;
    std::wstring lastReady; // relative; entries come sorted, so most share their folder
    bool rootReady = false;
};

// "a/b" of "a/b/c", empty for "c".
std::wstring_view parentOf(std::wstring_view relative);

} // namespace archive
