#pragma once

#include "uilib/core/paint_manager.h"

#include <functional>

// The message loop of a test, as the program's does it. Pending paints are done last.

inline void pumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (UILib::CPaintManagerUI::TranslateMessage(&message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// False when the condition did not come true in time.
inline bool pumpUntil(const std::function<bool()>& condition) {
    constexpr DWORD patience = 20000; // milliseconds
    for (const DWORD start = GetTickCount(); !condition();) {
        if (GetTickCount() - start > patience)
            return false;
        pumpMessages();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return true;
}
