#pragma once

#include "utility/windows.h"

// Where windows lie, and what there is to lie on.

inline RECT frameOf(HWND window) {
    RECT frame = {};
    GetWindowRect(window, &frame);
    return frame;
}

inline SIZE clientOf(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

inline MONITORINFO monitor() {
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromPoint({}, MONITOR_DEFAULTTOPRIMARY), &info);
    return info;
}
