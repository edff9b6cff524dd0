#include "utility/registry.h"

#include "utility/log.h"

namespace utility {

namespace {

constexpr DWORD ReadWriteAccess = 0x2001F; // KEY_READ and KEY_WRITE
constexpr LONG NoKey = -1;
constexpr DWORD ReadLimit = 1024; // characters

// The registry calls return their status; the log tells the last error, so make it that.
bool failed(LONG status) {
    SetLastError(status);
    return status != ERROR_SUCCESS;
}

} // namespace

LONG RegKeyEx::RegRegOpen(HKEY root, const std::wstring& subkey, REGSAM access) {
    const LONG status = RegOpenKeyExW(root, subkey.c_str(), 0, access, m_hKey.out());
    if (failed(status))
        common::log("utility::RegKeyEx::RegRegOpen", __LINE__, L"open reg = %s, lastError = %d",
                    subkey.c_str(), GetLastError());
    return status;
}

LONG RegKeyEx::RegCreate(HKEY root, const std::wstring& subkey) {
    wchar_t noClass[] = L"";
    const LONG status = RegCreateKeyExW(root, subkey.c_str(), 0, noClass, REG_OPTION_NON_VOLATILE,
                                        ReadWriteAccess, nullptr, m_hKey.out(), nullptr);
    if (failed(status))
        common::log("utility::RegKeyEx::RegCreate", __LINE__, L"create reg  lastError = %d", GetLastError());
    return status;
}

LONG RegKeyEx::RegRead(const std::wstring& name, std::wstring& value) {
    if (!m_hKey) {
        common::log("utility::RegKeyEx::RegRead", __LINE__, L"m_hKey is null, query reg = %s", name.c_str());
        return NoKey;
    }
    wchar_t text[ReadLimit] = {};
    DWORD size = sizeof text - sizeof(wchar_t); // stored text need not be terminated
    DWORD type = REG_NONE;
    const LONG status =
        RegQueryValueExW(m_hKey.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
    if (failed(status)) {
        common::log("utility::RegKeyEx::RegRead", __LINE__, L"read reg lastError = %d", GetLastError());
        return status;
    }
    if (type != REG_SZ && type != REG_EXPAND_SZ) {
        common::log("utility::RegKeyEx::RegRead", __LINE__, L"read reg = %s, type = %d is not text",
                    name.c_str(), type);
        return ERROR_INVALID_DATA;
    }
    text[size / sizeof(wchar_t)] = L'\0'; // drops an odd last byte
    value = text;
    return ERROR_SUCCESS;
}

LONG RegKeyEx::RegWrite(const std::wstring& name, const std::wstring& value) {
    if (!m_hKey) {
        common::log("utility::RegKeyEx::RegWrite", __LINE__, L"m_hKey is null, query reg = %s", name.c_str());
        return NoKey;
    }
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    const LONG status = RegSetValueExW(m_hKey.get(), name.c_str(), 0, REG_SZ,
                                       reinterpret_cast<const BYTE*>(value.c_str()), size);
    if (failed(status))
        common::log("utility::RegKeyEx::RegWrite", __LINE__, L"write reg 1 lastError = %d", GetLastError());
    return status;
}

} // namespace utility
