#pragma once

#include <algorithm>

// Whole pixels; right and bottom are the first that lie outside.

namespace engine {

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    bool empty() const { return width <= 0 || height <= 0; }
    bool contains(int px, int py) const { return px >= x && py >= y && px < right() && py < bottom(); }
    Rect moved(int dx, int dy) const { return {x + dx, y + dy, width, height}; }
    bool operator==(const Rect&) const = default;
};

inline Rect intersection(const Rect& a, const Rect& b) {
    const int x = std::max(a.x, b.x);
    const int y = std::max(a.y, b.y);
    return {x, y, std::min(a.right(), b.right()) - x, std::min(a.bottom(), b.bottom()) - y};
}

} // namespace engine
