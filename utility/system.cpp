#include "utility/system.h"

#include "utility/handles.h"
#include "utility/log.h"

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
