#pragma once

#include <optional>
#include <string>
#include <string_view>

// A model of what Windows makes of a path, written apart from the product's rules: the tests'
// oracle on any platform.

// The file or folder that Windows opens for a name below the folder: its absolute path in one
// spelling. Nothing when it is no file of a disk (a device, a server, another stream of a file)
// or has a character that none
// may have.
std::optional<std::wstring> windowsPath(std::wstring_view folder, std::wstring_view name);
