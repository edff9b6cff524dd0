#pragma once

#include "uilib/core/platform.h"

#include <cwchar>
#include <iterator>

// While it exists, windows of a class are destroyed within their WM_CREATE: the nearest to
// what a system does that runs out of something halfway.

class RefusedWindows {
public:
    explicit RefusedWindows(const wchar_t* windowClass)
        : hook(SetWindowsHookExW(WH_CALLWNDPROCRET, onMessage, nullptr, GetCurrentThreadId())) {
        refused = windowClass;
    }
    RefusedWindows(const RefusedWindows&) = delete;
    RefusedWindows& operator=(const RefusedWindows&) = delete;
    ~RefusedWindows() { UnhookWindowsHookEx(hook); }

private:
    static LRESULT CALLBACK onMessage(int code, WPARAM wParam, LPARAM lParam) {
        const auto& message = *reinterpret_cast<CWPRETSTRUCT*>(lParam);
        wchar_t name[64] = {};
        if (code == HC_ACTION && message.message == WM_CREATE &&
            GetClassNameW(message.hwnd, name, static_cast<int>(std::size(name))) &&
            std::wcscmp(name, refused) == 0)
            DestroyWindow(message.hwnd);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline const wchar_t* refused = nullptr;
    HHOOK hook;
};
