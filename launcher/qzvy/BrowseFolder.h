#pragma once

#include "utility/windows.h"

#include <optional>
#include <string>

// The system's dialog for choosing a folder, opened on the present one. Modal to owner;
// tasks go on running meanwhile. Nothing when the user cancels.
std::optional<std::wstring> browseForFolder(HWND owner, const std::wstring& present);
