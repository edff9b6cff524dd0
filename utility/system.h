#pragma once

#include "utility/windows.h"

#include <string>

// Questions about the machine and small services of the desktop. Free functions without
// state; any thread, but bringToFront belongs to the window thread.

namespace utility::usystem {

bool isVistaOrLater();

// True on Windows 8 and later. Logs its reading.
bool isWin8OS();

// Null when another process holds the name and failIfExists is set, or when the system
// refuses. The caller owns the handle; the name is free again when all are closed.
HANDLE createSingleMutex(const std::wstring& name, bool initialOwner, bool failIfExists);

// Restores a minimised window, raises it and gives it the focus.
void bringToFront(HWND window);

// Opens the address in the user's browser.
void openUrl(const std::wstring& url);

} // namespace utility::usystem
