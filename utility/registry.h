#pragma once

#include "utility/handles.h"

#include <string>

// One open registry key and its string values. Results are the registry's status codes,
// 0 for success; failures are logged. An object belongs to one thread and closes its key.

namespace utility {

class RegKeyEx {
public:
    LONG RegRegOpen(HKEY root, const std::wstring& subkey, REGSAM access);
    LONG RegCreate(HKEY root, const std::wstring& subkey); // creates or opens, to read and write

    // value is untouched on failure; -1 without an open key. Values of 2048 bytes and more
    // cannot be read, the terminator counted. A value of another type than text is refused
    // with ERROR_INVALID_DATA.
    LONG RegRead(const std::wstring& name, std::wstring& value);
    LONG RegWrite(const std::wstring& name, const std::wstring& value);

private:
    Key m_hKey;
};

} // namespace utility
