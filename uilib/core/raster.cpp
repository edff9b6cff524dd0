#include "uilib/core/raster.h"

#include <array>
#include <cstring>
#include <vector>

namespace UILib::raster {

namespace {

constexpr uint32_t EvenBytes = 0x00FF00FF; // two channels at a time, with room to multiply
constexpr uint32_t Halves = 0x00800080;

// Each channel times a / 255, rounded.
uint32_t scale(uint32_t pixel, uint32_t a) {
    uint32_t even = (pixel & EvenBytes) * a + Halves;
    uint32_t odd = ((pixel >> 8) & EvenBytes) * a + Halves;
    even = ((even + ((even >> 8) & EvenBytes)) >> 8) & EvenBytes;
    odd = (odd + ((odd >> 8) & EvenBytes)) & ~EvenBytes;
    return even | odd;
}

uint32_t over(uint32_t source, uint32_t target) {
    uint32_t alpha = source >> 24;
    if (alpha == 255)
        return source;
    return source + scale(target, 255 - alpha);
}

uint32_t premultiplied(uint32_t argb) {
    uint32_t alpha = argb >> 24;
    return (scale(argb, alpha) & 0x00FFFFFF) | alpha << 24;
}

void blendRow(uint32_t* target, const uint32_t* source, int count, uint8_t fade) {
    if (fade == 255) {
        for (int i = 0; i < count; ++i)
            if (source[i] != 0)
                target[i] = over(source[i], target[i]);
        return;
    }
    for (int i = 0; i < count; ++i)
        if (source[i] != 0)
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

// One axis of a piece, limited to the target coordinates that are painted.
struct Axis {
    int sourceBegin, sourceLength;
    int targetBegin, targetLength;
    int begin, end; // painted
    bool resampled;

    Axis(int sourceBegin, int sourceEnd, int targetBegin, int targetEnd, int begin, int end, Fit fit)
        : sourceBegin(sourceBegin),
          sourceLength(sourceEnd - sourceBegin),
          targetBegin(targetBegin),
          targetLength(targetEnd - targetBegin),
          begin(begin),
          end(end),
          resampled(fit == Fit::Stretch && sourceLength != targetLength) {}

    // Without resampling: the source position of a target position.
    int sourceOf(int target) const {
        return sourceBegin + static_cast<int>((static_cast<int64_t>(target) - targetBegin) % sourceLength);
    }
};

// The source positions that one target position mixes. The weights add up to 256.
struct Taps {
    static constexpr int Most = 16;

    int count = 0;
    std::array<int, Most> index;
    std::array<uint16_t, Most> weight;

    void add(int position, int share) {
        index[static_cast<size_t>(count)] = position;
        weight[static_cast<size_t>(count++)] = static_cast<uint16_t>(share);
    }
    bool operator==(const Taps& other) const {
        return count == other.count &&
               std::equal(index.begin(), index.begin() + count, other.index.begin()) &&
               std::equal(weight.begin(), weight.begin() + count, other.weight.begin());
    }
};

// Enlarging: between the two nearest, by the pixels' centres.
Taps linear(const Axis& axis, int offset) {
    const int64_t last = axis.sourceLength - 1;
    int64_t position = (2 * int64_t{offset} + 1) * axis.sourceLength * 128 / axis.targetLength - 128;
    position = std::clamp<int64_t>(position, 0, last * 256);
    const int first = static_cast<int>(position / 256), share = static_cast<int>(position % 256);
    Taps taps;
    taps.add(axis.sourceBegin + first, 256 - share);
    if (share > 0)
        taps.add(axis.sourceBegin + first + 1, share);
    return taps;
}

// Shrinking: the mean of samples spread over what the target position covers.
Taps average(const Axis& axis, int offset) {
    const int ratio = axis.sourceLength / axis.targetLength;
    const int samples = ratio < 2 ? 4 : ratio < 4 ? 8 : Taps::Most;
    Taps taps;
    for (int i = 0; i < samples; ++i) {
        int64_t at = (2 * (int64_t{offset} * samples + i) + 1) * axis.sourceLength;
        taps.add(axis.sourceBegin + static_cast<int>(at / (2 * int64_t{samples} * axis.targetLength)),
                 256 / samples);
    }
    return taps;
}

Taps tapsOf(const Axis& axis, int target) {
    if (!axis.resampled) {
        Taps taps;
        taps.add(axis.sourceOf(target), 256);
        return taps;
    }
    const int offset = target - axis.targetBegin;
    return axis.sourceLength > axis.targetLength ? average(axis, offset) : linear(axis, offset);
}

using Channels = std::array<uint16_t, 4>; // each 256 times too large

// Rows of a stretched piece, made one after the other.
class Resampler {
public:
    Resampler(const Raster& image, const Axis& x, const Axis& y) : image(image), y(y) {
        const auto count = static_cast<size_t>(x.end - x.begin);
        columns.reserve(count);
        for (int target = x.begin; target < x.end; ++target)
            columns.push_back(tapsOf(x, target));
        first = columns.front().index[0];
        const Taps& back = columns.back();
        const int last = x.resampled ? back.index[static_cast<size_t>(back.count - 1)]
                                     : x.sourceBegin + x.sourceLength - 1;
        if (!x.resampled)
            first = x.sourceBegin;
        line.resize(static_cast<size_t>(last - first + 1));
        pixels.resize(count);
    }

    const uint32_t* row(int target) {
        const Taps rows = tapsOf(y, target);
        if (!(rows == lastRows)) {
            lastRows = rows;
            mixRows();
            mixColumns();
        }
        return pixels.data();
    }

private:
    void mixRows() {
        std::fill(line.begin(), line.end(), Channels{});
        for (size_t tap = 0; tap < static_cast<size_t>(lastRows.count); ++tap) {
            const uint32_t* source = image.row(lastRows.index[tap]) + first;
            const uint32_t weight = lastRows.weight[tap];
            for (Channels& channels : line) {
                const uint32_t pixel = *source++;
                for (size_t c = 0; c < 4; ++c)
                    channels[c] = static_cast<uint16_t>(channels[c] + (pixel >> (8 * c) & 0xFF) * weight);
            }
        }
    }

    void mixColumns() {
        uint32_t* out = pixels.data();
        for (const Taps& taps : columns) {
            std::array<uint32_t, 4> sum = {};
            for (size_t tap = 0; tap < static_cast<size_t>(taps.count); ++tap) {
                const Channels& channels = line[static_cast<size_t>(taps.index[tap] - first)];
                for (size_t c = 0; c < 4; ++c)
                    sum[c] += uint32_t{channels[c]} * taps.weight[tap];
            }
            *out++ = sum[0] >> 16 | sum[1] >> 16 << 8 | sum[2] >> 16 << 16 | sum[3] >> 16 << 24;
        }
    }

    const Raster& image;
    const Axis& y;
    int first; // source column of line[0]
    std::vector<Taps> columns;
    std::vector<Channels> line;
    std::vector<uint32_t> pixels;
    Taps lastRows;
};

void drawStretched(const Raster& target, const Raster& image, const Axis& x, const Axis& y, Writer writer) {
    Resampler resampler(image, x, y);
    for (int row = y.begin; row < y.end; ++row)
        writer.write(target.row(row) + x.begin, resampler.row(row), x.end - x.begin);
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
              bool vertical, uint8_t alpha) {
    const Box area = intersect(intersect(box, clip), target.bounds());
    if (area.isEmpty())
        return;
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
    if (x.resampled || y.resampled)
        drawStretched(target, image, x, y, writer);
    else
        drawExact(target, image, x, y, writer);
}

} // namespace UILib::raster
