#pragma once

#include "utility/windows.h"

#include <functional>
#include <string>

// The system's dialog for choosing a folder, opened on the present one; modal to owner.
// Returns at once: the dialog has a message loop of its own, in which owner may be
// destroyed, so it runs from a task, with no frame of a window below it. onChosen is
// called, on the window thread, only when the user chose and owner is still there.
void browseForFolder(HWND owner, const std::wstring& present,
                     std::function<void(const std::wstring& choice)> onChosen);
