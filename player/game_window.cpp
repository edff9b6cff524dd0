#include "player/game_window.h"

#include <cmath>
#include <vector>

namespace player {

namespace {

constexpr int Width = 960;
constexpr int Height = 540;

void fillGradient(HDC dc, const RECT& area, COLORREF top, COLORREF bottom) {
    auto channel = [](BYTE value) { return static_cast<COLOR16>(value << 8); };
    TRIVERTEX corners[2] = {
        {area.left, area.top, channel(GetRValue(top)), channel(GetGValue(top)), channel(GetBValue(top)), 0},
        {area.right, area.bottom, channel(GetRValue(bottom)), channel(GetGValue(bottom)),
         channel(GetBValue(bottom)), 0}};
    GRADIENT_RECT rect = {0, 1};
    GradientFill(dc, corners, 2, &rect, 1, GRADIENT_FILL_RECT_V);
}

void drawStars(HDC dc, const RECT& area) {
    unsigned seed = 7;
    for (int i = 0; i < 160; ++i) {
        seed = seed * 1103515245u + 12345u;
        const int x = static_cast<int>((seed >> 8) % static_cast<unsigned>(area.right));
        seed = seed * 1103515245u + 12345u;
        const int y = static_cast<int>((seed >> 8) % static_cast<unsigned>(area.bottom * 2 / 3));
        const int brightness = 120 + static_cast<int>(seed >> 24) % 136;
        SetPixel(dc, x, y, RGB(brightness, brightness, 255));
    }
}

void drawHills(HDC dc, const RECT& area, double phase, int base, COLORREF colour) {
    std::vector<POINT> line = {{0, area.bottom}};
    for (int x = 0; x <= area.right; x += 8) {
        const double wave = std::sin(x / 140.0 + phase) * 34 + std::sin(x / 47.0 + phase * 3) * 11;
        line.push_back({x, base + static_cast<int>(wave)});
    }
    line.push_back({area.right, area.bottom});
    SelectObject(dc, GetStockObject(DC_BRUSH));
    SelectObject(dc, GetStockObject(NULL_PEN));
    SetDCBrushColor(dc, colour);
    Polygon(dc, line.data(), static_cast<int>(line.size()));
}

void drawTitle(HDC dc, RECT area) {
    HFONT font = CreateFontW(-64, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                             CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH, L"Segoe UI");
    HGDIOBJ old = SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(255, 236, 200));
    area.bottom = area.bottom * 2 / 3;
    DrawTextW(dc, L"VYN", -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    SelectObject(dc, old);
    DeleteObject(font);
}

void paint(HWND window) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    RECT area;
    GetClientRect(window, &area);
    fillGradient(dc, area, RGB(14, 18, 52), RGB(212, 106, 92));
    drawStars(dc, area);
    drawHills(dc, area, 0.4, area.bottom * 3 / 4, RGB(74, 44, 92));
    drawHills(dc, area, 2.1, area.bottom * 5 / 6, RGB(38, 26, 62));
    drawTitle(dc, area);
    EndPaint(window, &paint);
}

LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT:
        paint(window);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

} // namespace

void runGameWindow(HINSTANCE instance, int show) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = windowProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = L"VYNGameWindow";
    RegisterClassW(&windowClass);
    HWND window =
        CreateWindowExW(0, windowClass.lpszClassName, L"VYN Game", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                        CW_USEDEFAULT, CW_USEDEFAULT, Width, Height, nullptr, nullptr, instance, nullptr);
    if (!window)
        return;
    ShowWindow(window, show);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace player
