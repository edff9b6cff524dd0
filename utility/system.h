#pragma once

#include "utility/windows.h"

#include <string>

// Questions about the machine and small services of the desktop. Free functions without
// state; any thread, but bringing to front belongs to the window thread.

namespace utility::usystem {

bool isVistaOrLater();

// True on Windows 8 and later. Logs its reading.
bool isWin8OS();

// Null when another process holds the name and failIfExists is set, or when the system
// refuses. The caller owns the handle; the name is free again when all are closed.
HANDLE createSingleMutex(const std::wstring& name, bool initialOwner, bool failIfExists);

// Lets senders with lower rights than the program's reach its windows with this message.
// False where the system has no such service; a refusal is not told.
bool admitMessage(UINT message);

// Restores a minimised window, raises it and gives it the focus.
void bringToFront(HWND window);

// The same for a window that has others of its own, which may have disabled it: the one
// that was in front of it stays there and gets the focus.
void bringToFrontWithDialog(HWND window);

// Opens the address in the user's browser.
void openUrl(const std::wstring& url);

} // namespace utility::usystem
