#pragma once

#include <string>

// Starts the game client, with the rights of the desktop shell where the system can, or
// else with the launcher's. Any thread; does not wait. Nobody is told of a failure but
// the log.
void startClient(const std::wstring& client, const std::wstring& parameters);

// Starting with other rights takes a command line of fewer than 260 characters.
bool fitsUserStart(const std::wstring& client, const std::wstring& parameters);
