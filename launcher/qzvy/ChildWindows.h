#pragma once

#include "utility/windows.h"

#include <functional>
#include <string>

class QzHubUpdateCheckFrame;
class QzNimUpdateFrame;
class QzVySetupFrame;

// The main window's windows on demand: settings, update check, update. There is at most
// one of each; a second wish for it shows the one that is there.
//
// The windows are owned by the main window in the system's sense and delete themselves,
// with it at the latest; each clears its pointer here when it goes. So this object lives
// longer than the main window. Window thread only.

class ChildWindows {
public:
    // onPathChanged: the settings have stored a new install path.
    void showSettings(HWND owner, std::function<void()> onPathChanged);

    // The result of a check; an empty version means that there is nothing newer. Does not
    // return before a forced update is over: this object may be gone by then.
    void showUpdateResult(HWND owner, const std::wstring& version, bool force);

private:
    void showUpdateCheck(HWND owner);
    void showUpdate(HWND owner, const std::wstring& version, bool force);

    QzVySetupFrame* setupFrame = nullptr;
    QzHubUpdateCheckFrame* updateCheckFrame = nullptr;
    QzNimUpdateFrame* updateFrame = nullptr;
};
