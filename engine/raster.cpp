#include "engine/raster.h"

#include <algorithm>
#include <cmath>

namespace engine {

namespace {

uint32_t scaleChannels(uint32_t pair, uint32_t factor) { // two channels of 8 bits, 16 apart
    const uint32_t scaled = pair * factor + 0x00800080;
    return (scaled + (scaled >> 8 & 0x00FF00FF)) >> 8 & 0x00FF00FF;
}

Color scaled(Color color, uint32_t factor) {
    return scaleChannels(color >> 8 & 0x00FF00FF, factor) << 8 | scaleChannels(color & 0x00FF00FF, factor);
}

Color premultiplied(Color color) {
    return scaled(color | 0xFF000000, color >> 24);
}

// How much of a pixel lies inside a rounded area, 0 to 255.
uint32_t coverageAt(const Rect& area, int radius, int x, int y) {
    const int dx = std::max(area.x + radius - x - 1, x - (area.right() - radius));
    const int dy = std::max(area.y + radius - y - 1, y - (area.bottom() - radius));
    if (dx < 0 || dy < 0)
        return 255;
    const float distance = std::hypot(float(dx) + 0.5f, float(dy) + 0.5f);
    return static_cast<uint32_t>(std::clamp(float(radius) - distance + 0.5f, 0.0f, 1.0f) * 255);
}

Color mixed(Color a, Color b, float part) {
    const auto channel = [&](int shift) {
        const auto from = float(a >> shift & 255), to = float(b >> shift & 255);
        return static_cast<uint32_t>(from + (to - from) * part + 0.5f) << shift;
    };
    return channel(24) | channel(16) | channel(8) | channel(0);
}

Color colorAt(const Gradient& gradient, float place) {
    const auto& stops = gradient.stops;
    if (place <= stops.front().at)
        return stops.front().color;
    for (size_t i = 1; i < stops.size(); i++)
        if (place < stops[i].at)
            return mixed(stops[i - 1].color, stops[i].color,
                         (place - stops[i - 1].at) / (stops[i].at - stops[i - 1].at));
    return stops.back().color;
}

// The mean of four neighbours by 1/256ths.
Color bilinear(const Image& image, const Rect& source, int fx, int fy) {
    const int x0 = std::clamp(fx >> 8, source.x, source.right() - 1),
              x1 = std::min(x0 + 1, source.right() - 1);
    const int y0 = std::clamp(fy >> 8, source.y, source.bottom() - 1),
              y1 = std::min(y0 + 1, source.bottom() - 1);
    const auto at = [&](int x, int y) { return image.pixels[size_t(y) * size_t(image.width) + size_t(x)]; };
    const uint32_t px = fx & 255, py = fy & 255;
    const auto mix = [](Color a, Color b, uint32_t part) { // parts add up to 255, so no channel overflows
        return scaled(a, 255 - part) + scaled(b, part);
    };
    return mix(mix(at(x0, y0), at(x1, y0), px), mix(at(x0, y1), at(x1, y1), px), py);
}

} // namespace

void Raster::blend(int x, int y, Color color, uint32_t coverage) {
    if (coverage < 255)
        color = scaled(color, coverage);
    Color& pixel = target.pixels[size_t(y) * size_t(target.width) + size_t(x)];
    const uint32_t alpha = color >> 24;
    if (alpha != 0)
        pixel = 0xFF000000 | (alpha == 255 ? color : color + scaled(pixel, 255 - alpha));
}

template <class Paint>
void Raster::forEach(const Rect& area, int radius, Paint paint) {
    const Rect visible = intersection(area, clipRect);
    if (visible.empty())
        return;
    const size_t count = size_t(visible.width) * size_t(visible.height);
    if (count > budget)
        return;
    budget -= count;
    radius = std::min({radius, area.width / 2, area.height / 2});
    for (int y = visible.y; y < visible.bottom(); y++) {
        const bool inCorner = y < area.y + radius || y >= area.bottom() - radius;
        for (int x = visible.x; x < visible.right(); x++)
            if (const uint32_t coverage = inCorner ? coverageAt(area, radius, x, y) : 255)
                paint(x, y, coverage);
    }
}

void Raster::fill(const Rect& area, int radius, Color color) {
    if (color >> 24 == 0)
        return;
    const Color ink = premultiplied(color);
    forEach(area, radius, [&](int x, int y, uint32_t coverage) { blend(x, y, ink, coverage); });
}

void Raster::fillGradient(const Rect& area, int radius, const Gradient& gradient) {
    if (gradient.stops.size() < 2 || area.empty())
        return;
    constexpr float degree = 3.14159265f / 180;
    const float dx = std::sin(gradient.degrees * degree), dy = -std::cos(gradient.degrees * degree);
    const float length = std::fabs(float(area.width) * dx) + std::fabs(float(area.height) * dy);
    constexpr int Steps = 512; // colours are worked out once each
    Color inks[Steps + 1];
    for (int i = 0; i <= Steps; i++)
        inks[i] = premultiplied(colorAt(gradient, float(i) / Steps));
    const float centerX = float(area.x) + float(area.width) / 2,
                centerY = float(area.y) + float(area.height) / 2;
    forEach(area, radius, [&](int x, int y, uint32_t coverage) {
        const float along = (float(x) + 0.5f - centerX) * dx + (float(y) + 0.5f - centerY) * dy;
        const float place = std::clamp(along / length + 0.5f, 0.0f, 1.0f);
        blend(x, y, inks[static_cast<int>(place * Steps + 0.5f)], coverage);
    });
}

void Raster::frame(const Rect& area, int radius, int thickness, Color color) {
    if (thickness <= 0 || color >> 24 == 0)
        return;
    const Color ink = premultiplied(color);
    const Rect inner = {area.x + thickness, area.y + thickness, area.width - 2 * thickness,
                        area.height - 2 * thickness};
    const int innerRadius = std::max(0, std::min({radius, area.width / 2, area.height / 2}) - thickness);
    forEach(area, radius, [&](int x, int y, uint32_t coverage) {
        if (inner.contains(x, y))
            coverage -= std::min(coverage, coverageAt(inner, innerRadius, x, y));
        blend(x, y, ink, coverage);
    });
}

void Raster::drawImage(const Rect& area, int radius, const Image& image, const Rect& source) {
    if (area.empty() || source.empty())
        return;
    const bool exact = source.width == area.width && source.height == area.height;
    const int64_t stepX = (int64_t{source.width} << 16) / area.width;
    const int64_t stepY = (int64_t{source.height} << 16) / area.height;
    forEach(area, radius, [&](int x, int y, uint32_t coverage) {
        const int column = x - area.x, row = y - area.y;
        if (exact) {
            const size_t at = size_t(source.y + row) * size_t(image.width) + size_t(source.x + column);
            return blend(x, y, image.pixels[at], coverage);
        }
        const int fx = std::max(0, static_cast<int>((stepX * column + stepX / 2) >> 8) - 128);
        const int fy = std::max(0, static_cast<int>((stepY * row + stepY / 2) >> 8) - 128);
        blend(x, y, bilinear(image, source, fx + (source.x << 8), fy + (source.y << 8)), coverage);
    });
}

Rect sourceFor(const Image& image, const Rect& area, bool cover) {
    const Rect whole = {0, 0, image.width, image.height};
    if (!cover || area.empty())
        return whole;
    const int64_t across = int64_t{image.width} * area.height, along = int64_t{image.height} * area.width;
    if (across > along) {
        const int width = std::max(1, static_cast<int>(along / area.height));
        return {(image.width - width) / 2, 0, width, image.height};
    }
    const int height = std::max(1, static_cast<int>(across / area.width));
    return {0, (image.height - height) / 2, image.width, height};
}

} // namespace engine
