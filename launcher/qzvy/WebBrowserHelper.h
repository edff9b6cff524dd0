#pragma once

#include "utility/windows.h"

#include <string>

// Makes an embedded web browser control of the system render with the installed version,
// not with its oldest one.

namespace webbrowserhelper {

struct Emulation {
    DWORD value;         // of the registry; 0 for none
    const wchar_t* name; // "6.0" when there is none
};

// version: as the registry holds it, "9.11.19041.0". From 10 on the system counts the
// true version behind a 9.
Emulation emulationFor(int major, int minor);

std::wstring getIEVersion(); // empty when it cannot be read
void setIeVersion(const std::wstring& valueName, DWORD value);

// Registers this program. Gives the name of the version; empty when there is none.
std::wstring registerIENewVersion();

} // namespace webbrowserhelper
