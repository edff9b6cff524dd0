#pragma once

#include <algorithm>

// Rectangle in pixels for code that is free of Windows; right and bottom are outside, as
// in RECT. Width and height of a hostile rectangle may not fit an int: callers that take
// numbers from a skin limit them first (readBox does).

namespace UILib {

enum class Direction { Horizontal, Vertical };

struct Box {
    int left = 0, top = 0, right = 0, bottom = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool isEmpty() const { return right <= left || bottom <= top; }
    bool isZero() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    bool contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
    bool operator==(const Box& other) const = default;
};

inline Box intersect(const Box& a, const Box& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

inline bool meets(const Box& a, const Box& b) {
    return !intersect(a, b).isEmpty();
}

} // namespace UILib
