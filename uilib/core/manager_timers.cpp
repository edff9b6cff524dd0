#include "uilib/core/paint_manager.h"

#include <algorithm>

namespace UILib {

constexpr UINT TimerNumbers = 255;

bool CPaintManagerUI::SetTimer(CControlUI* control, UINT id, UINT milliseconds) {
    checkThread(L"SetTimer");
    for (Timer& timer : timers) {
        if (timer.control != control || timer.window != window || timer.localId != id)
            continue;
        if (!timer.killed || !::SetTimer(window, timer.number, milliseconds, nullptr))
            return false;
        timer.killed = false;
        return true;
    }
    timerCounter = (timerCounter + 1) % TimerNumbers;
    if (!::SetTimer(window, timerCounter, milliseconds, nullptr))
        return false;
    timers.push_back({control, id, window, timerCounter, false});
    return true;
}

bool CPaintManagerUI::KillTimer(CControlUI* control, UINT id) {
    for (Timer& timer : timers) {
        if (timer.control != control || timer.window != window || timer.localId != id)
            continue;
        if (!timer.killed && IsWindow(window))
            ::KillTimer(timer.window, timer.number);
        timer.killed = true;
        return true;
    }
    return false;
}

// For null: of all controls.
void CPaintManagerUI::KillTimer(CControlUI* control) {
    std::erase_if(timers, [control](const Timer& timer) {
        if (control && timer.control != control)
            return false;
        if (!timer.killed && IsWindow(timer.window))
            ::KillTimer(timer.window, timer.number);
        return true;
    });
}

void CPaintManagerUI::onTimer(UINT number, LPARAM lParam) {
    const auto hit = std::find_if(timers.begin(), timers.end(), [&](const Timer& timer) {
        return timer.window == window && timer.number == number && !timer.killed;
    });
    if (hit != timers.end())
        sendEvent(hit->control, EventTimer, hit->localId, lParam, currentKeyState());
}

} // namespace UILib
