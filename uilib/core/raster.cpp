#include "uilib/core/raster.h"

#include "uilib/core/pixel_math.h"
#include "uilib/core/resample.h"

#include <cstring>
#include <vector>

namespace UILib::raster {

namespace {

using pixel::over;
using pixel::scale;

uint32_t premultiplied(uint32_t argb) {
    uint32_t alpha = argb >> 24;
    return (scale(argb, alpha) & 0x00FFFFFF) | alpha << 24;
}

void blendRow(uint32_t* target, const uint32_t* source, int count, uint8_t fade) {
    if (fade == 255)
        for (int i = 0; i < count; ++i)
            target[i] = over(source[i], target[i]);
    else
        for (int i = 0; i < count; ++i)
            target[i] = over(scale(source[i], fade), target[i]);
}

struct Writer {
    Compose compose;
    uint8_t fade;

    void write(uint32_t* target, const uint32_t* source, int count) const {
        if (compose == Compose::Copy)
            memcpy(target, source, static_cast<size_t>(count) * sizeof *target);
        else
            blendRow(target, source, count, fade);
    }
};

void drawStretched(const Raster& target, const Raster& image, const Axis& x, const Axis& y, Writer writer) {
    const auto resampler = makeResampler(image, x, y);
    for (int row = y.begin; row < y.end; ++row)
        writer.write(target.row(row) + x.begin, resampler->row(row), x.count());
}

void drawExact(const Raster& target, const Raster& image, const Axis& x, const Axis& y, Writer writer) {
    for (int row = y.begin; row < y.end; ++row) {
        const uint32_t* source = image.row(y.sourceOf(row));
        for (int column = x.begin; column < x.end;) {
            const int from = x.sourceOf(column);
            const int count = std::min(x.end - column, x.sourceBegin + x.sourceLength - from);
            writer.write(target.row(row) + column, source + from, count);
            column += count;
        }
    }
}

} // namespace

void fill(const Raster& target, const Box& clip, const Box& box, uint32_t argb) {
    const Box area = intersect(intersect(box, clip), target.bounds());
    if (area.isEmpty() || argb >> 24 == 0)
        return;
    const uint32_t color = premultiplied(argb);
    for (int y = area.top; y < area.bottom; ++y) {
        uint32_t* row = target.row(y);
        if (color >> 24 == 255)
            std::fill(row + area.left, row + area.right, color);
        else
            std::transform(row + area.left, row + area.right, row + area.left,
                           [color](uint32_t below) { return over(color, below); });
    }
}

void gradient(const Raster& target, const Box& clip, const Box& box, uint32_t first, uint32_t second,
              Direction direction, uint8_t alpha) {
    const Box area = intersect(intersect(box, clip), target.bounds());
    if (area.isEmpty())
        return;
    const bool vertical = direction == Direction::Vertical;
    const int begin = vertical ? area.top : area.left, end = vertical ? area.bottom : area.right;
    const int origin = vertical ? box.top : box.left;
    const int64_t length = vertical ? box.height() : box.width();
    auto colorAt = [&](int position) {
        uint32_t color = 0xFF;
        for (int shift = 16; shift >= 0; shift -= 8) {
            const int from = first >> shift & 0xFF, to = second >> shift & 0xFF;
            color = color << 8 |
                    static_cast<uint32_t>(from + (to - from) * (int64_t{position} - origin) / length);
        }
        return color;
    };
    std::vector<uint32_t> colors;
    for (int position = begin; position < end; ++position)
        colors.push_back(scale(colorAt(position), alpha));
    if (!vertical) {
        for (int y = area.top; y < area.bottom; ++y)
            blendRow(target.row(y) + begin, colors.data(), end - begin, 255);
        return;
    }
    for (int y = begin; y < end; ++y) {
        const uint32_t color = colors[static_cast<size_t>(y - begin)];
        std::transform(target.row(y) + area.left, target.row(y) + area.right, target.row(y) + area.left,
                       [color](uint32_t below) { return over(color, below); });
    }
}

void draw(const Raster& target, const Box& clip, const Raster& image, const Slice& slice, Compose compose,
          uint8_t fade) {
    const Box area = intersect(intersect(slice.target, clip), target.bounds());
    if (area.isEmpty() || slice.source.isEmpty() || intersect(slice.source, image.bounds()) != slice.source)
        return;
    const Axis x(slice.source.left, slice.source.right, slice.target.left, slice.target.right, area.left,
                 area.right, slice.horizontal);
    const Axis y(slice.source.top, slice.source.bottom, slice.target.top, slice.target.bottom, area.top,
                 area.bottom, slice.vertical);
    const Writer writer{compose, fade};
    if (x.grows() || x.shrinks() || y.grows() || y.shrinks())
        drawStretched(target, image, x, y, writer);
    else
        drawExact(target, image, x, y, writer);
}

} // namespace UILib::raster
