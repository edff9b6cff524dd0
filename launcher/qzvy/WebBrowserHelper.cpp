#include "launcher/qzvy/WebBrowserHelper.h"

#include "utility/handles.h"
#include "utility/log.h"
#include "utility/text.h"

#include <cwchar>

namespace webbrowserhelper {

namespace {

constexpr wchar_t ExplorerKey[] = L"SOFTWARE\\Microsoft\\Internet Explorer";
constexpr wchar_t EmulationKey[] =
    L"SOFTWARE\\Microsoft\\Internet Explorer\\MAIN\\FeatureControl\\FEATURE_BROWSER_EMULATION";

int numberAt(const std::vector<std::wstring>& parts, size_t index) {
    return index < parts.size() ? static_cast<int>(std::wcstol(parts[index].c_str(), nullptr, 10)) : 0;
}

} // namespace

Emulation emulationFor(int major, int minor) {
    switch (major) {
    case 7:
        return {7000, L"7.0"};
    case 8:
        return {8888, L"8.0"};
    case 9:
        if (minor < 10)
            return {9999, L"9.0"};
        return minor == 10 ? Emulation{10001, L"10.0"} : Emulation{11001, L"11.0"};
    default:
        return {0, L"6.0"};
    }
}

std::wstring getIEVersion() {
    constexpr char Function[] = "webbrowserhelper::getIEVersion";
    utility::Key key;
    LONG status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, ExplorerKey, 0, KEY_READ, key.out());
    if (status != ERROR_SUCCESS) {
        common::log(Function, __LINE__, L"failed to open key, last error: %d lstatus = %d", GetLastError(),
                    status);
        return {};
    }
    wchar_t version[130] = {};
    DWORD size = sizeof(version) - sizeof(wchar_t); // the stored text need not be terminated
    DWORD type = REG_NONE;
    status = RegQueryValueExW(key.get(), L"Version", nullptr, &type, reinterpret_cast<BYTE*>(version), &size);
    if (status != ERROR_SUCCESS || type != REG_SZ) {
        common::log(Function, __LINE__, L"failed to query key, last error: %d, status:%d", GetLastError(),
                    status);
        return {};
    }
    return version;
}

void setIeVersion(const std::wstring& valueName, DWORD value) {
    constexpr char Function[] = "webbrowserhelper::setIeVersion";
    utility::Key key;
    LONG status = RegCreateKeyExW(HKEY_CURRENT_USER, EmulationKey, 0, nullptr, 0, KEY_WRITE, nullptr,
                                  key.out(), nullptr);
    if (status != ERROR_SUCCESS) {
        common::log(Function, __LINE__, L"setIeVersion failed to open key. last error: %d, status = %d",
                    GetLastError(), status);
        return;
    }
    status = RegSetValueExW(key.get(), valueName.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                            sizeof(value));
    if (status != ERROR_SUCCESS)
        common::log(Function, __LINE__, L"setIeVersion: failed to set key , last error: %d, status:%d",
                    GetLastError(), status);
}

std::wstring registerIENewVersion() {
    constexpr char Function[] = "webbrowserhelper::registerIENewVersion";
    const auto parts = utility::split(getIEVersion(), L".");
    if (parts.empty()) {
        common::log(Function, __LINE__, L"registerIENewVersion error");
        return {};
    }
    const Emulation emulation = emulationFor(numberAt(parts, 0), numberAt(parts, 1));
    if (emulation.value != 0)
        setIeVersion(L"tkvyn.exe", emulation.value);
    common::log(Function, __LINE__, L"ie version %d", emulation.value);
    return emulation.name;
}

} // namespace webbrowserhelper
