#include "utility/process.h"

#include "utility/handles.h"
#include "utility/log.h"

#include <cwchar>
#include <psapi.h>

namespace utility::process {

namespace {

constexpr size_t RootLength = 4;   // "C:\" and its end
constexpr size_t LetterLength = 2; // "C:"

bool isFloppy(const wchar_t* root) {
    return _wcsicmp(root, L"A:\\") == 0 || _wcsicmp(root, L"B:\\") == 0;
}

// A device name counts only as a whole: volume 1 is not the start of volume 10.
bool isBelow(const std::wstring& path, const wchar_t* device) {
    const size_t length = std::wcslen(device);
    return _wcsnicmp(path.c_str(), device, length) == 0 && (path[length] == L'\\' || path[length] == L'\0');
}

// Turns a path that begins with a device name into one that begins with a drive letter.
// On failure drivePath is the source as it came.
bool DosPathToNtPath(const std::wstring& devicePath, std::wstring& drivePath) {
    drivePath = devicePath;
    wchar_t roots[1000] = {};
    if (GetLogicalDriveStringsW(std::size(roots) - 1, roots) >= std::size(roots))
        return false;
    for (const wchar_t* root = roots; *root; root += RootLength) {
        if (isFloppy(root))
            continue;
        const std::wstring letter(root, LetterLength);
        wchar_t device[100];
        if (!QueryDosDeviceW(letter.c_str(), device, std::size(device)))
            return false;
        if (isBelow(devicePath, device)) {
            drivePath = letter + devicePath.substr(std::wcslen(device));
            return true;
        }
    }
    return false;
}

} // namespace

std::wstring GetProcessPath(DWORD processId) {
    const KernelHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId));
    if (!process)
        return {};
    wchar_t devicePath[MAX_PATH] = {};
    GetProcessImageFileNameW(process.get(), devicePath, MAX_PATH);
    std::wstring path;
    if (!DosPathToNtPath(devicePath, path))
        common::log("utility::process::GetProcessPath", __LINE__,
                    L"DosPathToNtPath failed. pid:%d, error:%d \n", processId, GetLastError());
    return path;
}

} // namespace utility::process
