#pragma once

#include "uilib/core/platform.h"

#include <algorithm>

// Arithmetic on the system's rectangles; right and bottom lie outside. An empty
// rectangle meets nothing and adds nothing to a union.

namespace UILib {

constexpr int width(const RECT& r) {
    return r.right - r.left;
}
constexpr int height(const RECT& r) {
    return r.bottom - r.top;
}
constexpr bool isEmpty(const RECT& r) {
    return r.right <= r.left || r.bottom <= r.top;
}
constexpr bool equal(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
constexpr bool contains(const RECT& r, POINT p) {
    return p.x >= r.left && p.x < r.right && p.y >= r.top && p.y < r.bottom;
}

// All zeros when the two do not meet.
constexpr RECT intersect(const RECT& a, const RECT& b) {
    const RECT common = {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                         std::min(a.bottom, b.bottom)};
    return isEmpty(common) ? RECT{} : common;
}
constexpr bool meets(const RECT& a, const RECT& b) {
    return !isEmpty(intersect(a, b));
}
constexpr RECT join(const RECT& a, const RECT& b) {
    if (isEmpty(a) || isEmpty(b))
        return isEmpty(a) ? b : a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}
constexpr RECT moved(const RECT& r, int dx, int dy) {
    return {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
}
constexpr RECT shrunk(const RECT& r, const RECT& by) {
    return {r.left + by.left, r.top + by.top, r.right - by.right, r.bottom - by.bottom};
}

// The lower limit wins where the two contradict.
constexpr int limited(int value, int lowest, int highest) {
    return std::max(std::min(value, highest), lowest);
}

} // namespace UILib
