#pragma once

// How large the main window is on a work area of a given size, in pixels.

struct WindowSize {
    int width;
    int height;
    bool operator==(const WindowSize&) const = default;
};

inline constexpr WindowSize DesignSize = {1642, 977};

// The design size, or the largest of its shape that leaves a margin.
WindowSize fitWindow(int screenWidth, int screenHeight);

// The window is too low for the full layout.
bool needsSmallLayout(const WindowSize& size);
