#include "utility/system.h"

#include "utility/handles.h"
#include "utility/log.h"

#include <commctrl.h>
#include <cwchar>
#include <shellapi.h>

namespace utility::usystem {

namespace {

// Without a list of supported systems in the manifest, Windows answers 6.2 at most.
OSVERSIONINFOEXW readVersion() {
    OSVERSIONINFOEXW version = {};
    const auto basic = reinterpret_cast<OSVERSIONINFOW*>(&version);
    version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOEXW);
    if (!GetVersionExW(basic)) {
        version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOW);
        GetVersionExW(basic);
    }
    return version;
}

struct DialogSearch {
    HWND owner;
    HWND found = nullptr;
};

bool isOwnedBy(HWND window, HWND owner) {
    while (window && window != owner)
        window = GetWindow(window, GW_OWNER);
    return window != nullptr;
}

// A menu or a list: open while its owner's user chooses. A dialog may have the same style,
// but disables its owner.
bool isPassing(HWND window) {
    const HWND owner = GetWindow(window, GW_OWNER);
    return owner && IsWindowEnabled(owner) && GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW;
}

bool isToolTip(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, std::size(name));
    return std::wcscmp(name, TOOLTIPS_CLASSW) == 0;
}

BOOL CALLBACK isDialog(HWND window, LPARAM parameter) {
    DialogSearch& search = *reinterpret_cast<DialogSearch*>(parameter);
    if (!IsWindowVisible(window) || !IsWindowEnabled(window) || !isOwnedBy(window, search.owner) ||
        isToolTip(window) || isPassing(window))
        return TRUE;
    search.found = window;
    return FALSE;
}

// The topmost that answers the user, of the owner, its windows and theirs.
HWND findDialog(HWND owner) {
    DialogSearch search = {owner};
    EnumWindows(isDialog, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

} // namespace

bool isVistaOrLater() {
    return readVersion().dwMajorVersion >= 6;
}

bool isWin8OS() {
    const OSVERSIONINFOEXW version = readVersion();
    common::log("utility::usystem::isWin8OS", __LINE__, L"isWin8OS major = %d, minor = %d",
                version.dwMajorVersion, version.dwMinorVersion);
    return version.dwMajorVersion >= 6 && version.dwMinorVersion >= 2;
}

HANDLE createSingleMutex(const std::wstring& name, bool initialOwner, bool failIfExists) {
    KernelHandle mutex(CreateMutexW(nullptr, initialOwner, name.c_str()));
    const bool existed = GetLastError() == ERROR_ALREADY_EXISTS;
    if (mutex && existed && failIfExists)
        return nullptr;
    return mutex.release();
}

bool admitMessage(UINT message) {
    using Filter = BOOL(WINAPI*)(UINT message, DWORD flag);
    constexpr DWORD add = 1; // MSGFLT_ADD
    const auto filter = reinterpret_cast<Filter>(
        GetProcAddress(GetModuleHandleW(L"User32.dll"), "ChangeWindowMessageFilter"));
    if (filter)
        filter(message, add);
    return filter != nullptr;
}

void bringToFront(HWND window) {
    if (IsIconic(window))
        SendMessageW(window, WM_SYSCOMMAND, SC_RESTORE, 0);
    if (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) {
        ShowWindow(window, SW_SHOW);
        return;
    }
    constexpr UINT inPlace = SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW;
    SetForegroundWindow(window);
    BringWindowToTop(window);
    // A visit to the topmost band raises the window also where the foreground is locked.
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, inPlace);
    SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, inPlace);
}

void bringToFrontWithDialog(HWND window) {
    bringToFront(window);
    if (IsIconic(window)) // a disabled window need not obey the system command
        ShowWindow(window, SW_RESTORE);
    if (const HWND dialog = findDialog(window); dialog && dialog != window) {
        SetForegroundWindow(dialog);
        BringWindowToTop(dialog);
    }
}

void openUrl(const std::wstring& url) {
    SHELLEXECUTEINFOW request = {};
    request.cbSize = sizeof request;
    request.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI;
    request.lpVerb = L"open";
    request.lpFile = url.c_str();
    request.nShow = SW_SHOW;
    if (!ShellExecuteExW(&request))
        ShellExecuteW(nullptr, L"open", L"iexplore.exe", url.c_str(), nullptr, SW_SHOW);
    const KernelHandle browser(request.hProcess);
}

} // namespace utility::usystem
