#pragma once

#include "utility/windows.h"

#include <string>

// One open registry key and its string values. Results are the registry's status codes,
// 0 for success; failures are logged. An object belongs to one thread and closes its key.

namespace utility {

class RegKeyEx {
public:
    RegKeyEx() = default;
    RegKeyEx(const RegKeyEx&) = delete;
    RegKeyEx& operator=(const RegKeyEx&) = delete;
    ~RegKeyEx();

    LONG RegRegOpen(HKEY root, const std::wstring& subkey, REGSAM access);
    LONG RegCreate(HKEY root, const std::wstring& subkey); // creates or opens, to read and write

    // value is untouched on failure; -1 without an open key. Text of 1024 characters and
    // more cannot be read. A value of another type than text is refused.
    LONG RegRead(const std::wstring& name, std::wstring& value);
    LONG RegWrite(const std::wstring& name, const std::wstring& value);

private:
    HKEY m_hKey = nullptr;
};

} // namespace utility
