#include <windows.h>

// The least that a Windows program does to show itself: one window of one colour, as large
// as the launcher's. What the launcher's start is measured beside.

static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = windowProc;
    windowClass.hInstance = instance;
    windowClass.hbrBackground = CreateSolidBrush(RGB(0x6D, 0xAB, 0xFF));
    windowClass.lpszClassName = L"EmptyWindow";
    RegisterClassW(&windowClass);
    CreateWindowExW(0, windowClass.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 100, 50, 1642, 977, nullptr,
                    nullptr, instance, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}
