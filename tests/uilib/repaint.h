#pragma once

#include "tests/uilib/message_loop.h"
#include "uilib/controls/control.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/paint_manager.h"

#include <cstring>
#include <functional>
#include <string>

// What an event makes of a window: which part of it became invalid, and whether the window,
// with no more than that part painted, shows what painting everything afresh would show.

class Repaints {
public:
    Repaints(HWND window, UILib::CPaintManagerUI& manager) : window(window), manager(manager) {
        constexpr uint32_t ground = 0xFF203040; // without one the window keeps what it has
        manager.GetRoot()->SetBkColor(ground);
        settle();
    }

    // Does the layouts and paints that are pending, and nothing else: no message is taken from
    // the queue, so that no timer runs.
    void settle() const {
        constexpr int limit = 100; // a layout that asks for itself would never settle
        for (int round = 0; round < limit && GetUpdateRect(window, nullptr, FALSE); ++round)
            UpdateWindow(window);
    }

    // "left,top,right,bottom" of what the event invalidates, or "" for nothing. Is painted
    // afterwards.
    std::string by(const std::function<void()>& event) const {
        settle();
        event();
        RECT part = {};
        const bool any = GetUpdateRect(window, &part, FALSE) && part.right > part.left;
        settle();
        return any ? std::to_string(part.left) + "," + std::to_string(part.top) + "," +
                         std::to_string(part.right) + "," + std::to_string(part.bottom)
                   : "";
    }

    // Where the window shows something else than a fresh painting, as "x,y: shown, not wanted";
    // "" where it is right. Native windows of edit controls lie on top and are left out.
    std::string stale() const {
        settle();
        const SIZE size = manager.GetClientSize();
        const UILib::DibSurface shown(nullptr, size.cx, size.cy), fresh(nullptr, size.cx, size.cy);
        const HDC screen = GetDC(window);
        BitBlt(shown.context(), 0, 0, size.cx, size.cy, screen, 0, 0, SRCCOPY);
        ReleaseDC(window, screen);
        manager.PaintTree(fresh.context(), {0, 0, size.cx, size.cy}, nullptr);
        for (const UILib::DibSurface* surface : {&shown, &fresh})
            coverChildWindows(surface->context());
        GdiFlush();
        for (int y = 0; y < size.cy; ++y) {
            const uint32_t *is = shown.raster().row(y), *wanted = fresh.raster().row(y);
            for (int x = 0; x < size.cx; ++x)
                if ((is[x] ^ wanted[x]) & 0xFFFFFF)
                    return std::to_string(x) + "," + std::to_string(y) + ": " + hex(is[x] & 0xFFFFFF) +
                           ", not " + hex(wanted[x] & 0xFFFFFF);
        }
        return "";
    }

    // What the window shows there, "RRGGBB".
    std::string at(int x, int y) const {
        settle();
        const HDC screen = GetDC(window);
        const COLORREF found = GetPixel(screen, x, y);
        ReleaseDC(window, screen);
        return hex(uint32_t(GetRValue(found)) << 16 | GetGValue(found) << 8 | GetBValue(found));
    }

private:
    static std::string hex(uint32_t rgb) {
        char text[8] = {};
        std::snprintf(text, sizeof text, "%06X", rgb);
        return text;
    }
    void coverChildWindows(HDC context) const {
        for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            RECT place = {};
            GetWindowRect(child, &place);
            MapWindowPoints(HWND_DESKTOP, window, reinterpret_cast<POINT*>(&place), 2);
            if (IsWindowVisible(child))
                PatBlt(context, place.left, place.top, place.right - place.left, place.bottom - place.top,
                       BLACKNESS);
        }
    }

    HWND window;
    UILib::CPaintManagerUI& manager;
};
