#include "uilib/core/resample.h"

#include "uilib/core/pixel_math.h"

#include <algorithm>

namespace UILib::raster {

namespace {

// A position between two neighbours.
struct Between {
    int index;      // the first of the two
    uint32_t share; // of the second, in 256ths; 0 where there is none
};

Between betweenAt(const Axis& axis, int target) {
    if (!axis.grows())
        return {axis.sourceOf(target), 0};
    const int64_t offset = int64_t{target} - axis.targetBegin, last = axis.sourceLength - 1;
    const int64_t position = (2 * offset + 1) * axis.sourceLength * 128 / axis.targetLength - 128;
    const int64_t within = std::clamp<int64_t>(position, 0, last * 256);
    return {axis.sourceBegin + static_cast<int>(within / 256), static_cast<uint32_t>(within % 256)};
}

// The source positions that one target position mixes. The weights add up to 256.
struct Taps {
    static constexpr int Most = 16;

    int count = 0;
    std::array<int, Most> index;
    std::array<uint16_t, Most> weight;

    void add(int position, uint32_t share) {
        index[static_cast<size_t>(count)] = position;
        weight[static_cast<size_t>(count++)] = static_cast<uint16_t>(share);
    }
};

Taps tapsAt(const Axis& axis, int target) {
    Taps taps;
    if (!axis.shrinks()) {
        const Between between = betweenAt(axis, target);
        taps.add(between.index, 256 - between.share);
        if (between.share > 0)
            taps.add(between.index + 1, between.share);
        return taps;
    }
    const int ratio = axis.sourceLength / axis.targetLength;
    const int samples = ratio < 3 ? 4 : ratio < 6 ? 8 : Taps::Most;
    for (int i = 0; i < samples; ++i) {
        const int64_t offset = int64_t{target} - axis.targetBegin;
        const int64_t at = (2 * (offset * samples + i) + 1) * axis.sourceLength;
        taps.add(axis.sourceBegin + static_cast<int>(at / (2 * int64_t{samples} * axis.targetLength)),
                 static_cast<uint32_t>(256 / samples));
    }
    return taps;
}

struct Columns {
    int first, count;
};

// Those of the image that the painted part of an axis needs.
Columns columnsOf(const Axis& x) {
    if (x.tiled)
        return {x.sourceBegin, x.sourceLength};
    const Taps begin = tapsAt(x, x.begin), end = tapsAt(x, x.end - 1);
    const int first = begin.index[0], last = end.index[static_cast<size_t>(end.count - 1)];
    return {first, last - first + 1};
}

class Enlarger final : public Resampler {
public:
    Enlarger(const Raster& image, const Axis& x, const Axis& y)
        : image(image),
          y(y),
          source(columnsOf(x)),
          line(static_cast<size_t>(source.count) + 1),
          pixels(static_cast<size_t>(x.count())) {
        columns.reserve(pixels.size());
        for (int target = x.begin; target < x.end; ++target) {
            Between column = betweenAt(x, target);
            column.index -= source.first;
            columns.push_back(column);
        }
    }

    const uint32_t* row(int target) override {
        const Between rows = betweenAt(y, target);
        if (rows.index != last.index || rows.share != last.share) {
            last = rows;
            mixRows();
            mixColumns();
        }
        return pixels.data();
    }

private:
    void mixRows() {
        const uint32_t* upper = image.row(last.index) + source.first;
        const uint32_t* lower = last.share ? image.row(last.index + 1) + source.first : upper;
        for (size_t i = 0; i + 1 < line.size(); ++i)
            line[i] = pixel::mix(upper[i], lower[i], last.share);
    }
    void mixColumns() {
        for (size_t i = 0; i < pixels.size(); ++i) {
            const uint32_t* at = &line[static_cast<size_t>(columns[i].index)];
            pixels[i] = pixel::mix(at[0], at[1], columns[i].share);
        }
    }

    const Raster& image;
    const Axis& y;
    const Columns source;
    Between last = {-1, 0};
    std::vector<Between> columns;
    std::vector<uint32_t> line; // and one more, that counts for nothing
    std::vector<uint32_t> pixels;
};

using Channels = std::array<uint16_t, 4>; // each 256 times too large

class Shrinker final : public Resampler {
public:
    Shrinker(const Raster& image, const Axis& x, const Axis& y)
        : image(image),
          y(y),
          source(columnsOf(x)),
          line(static_cast<size_t>(source.count)),
          pixels(static_cast<size_t>(x.count())) {
        columns.reserve(pixels.size());
        for (int target = x.begin; target < x.end; ++target)
            columns.push_back(tapsAt(x, target));
    }

    const uint32_t* row(int target) override {
        mixRows(tapsAt(y, target));
        std::transform(columns.begin(), columns.end(), pixels.begin(),
                       [this](const Taps& taps) { return mixColumn(taps); });
        return pixels.data();
    }

private:
    void mixRows(const Taps& rows) {
        std::fill(line.begin(), line.end(), Channels{});
        for (size_t tap = 0; tap < static_cast<size_t>(rows.count); ++tap) {
            const uint32_t* from = image.row(rows.index[tap]) + source.first;
            const uint32_t weight = rows.weight[tap];
            for (Channels& channels : line) {
                const uint32_t pixel = *from++;
                for (size_t c = 0; c < 4; ++c)
                    channels[c] = static_cast<uint16_t>(channels[c] + (pixel >> (8 * c) & 0xFF) * weight);
            }
        }
    }
    uint32_t mixColumn(const Taps& taps) const {
        std::array<uint32_t, 4> sum = {};
        for (size_t tap = 0; tap < static_cast<size_t>(taps.count); ++tap) {
            const Channels& channels = line[static_cast<size_t>(taps.index[tap] - source.first)];
            for (size_t c = 0; c < 4; ++c)
                sum[c] += uint32_t{channels[c]} * taps.weight[tap];
        }
        return sum[0] >> 16 | sum[1] >> 16 << 8 | sum[2] >> 16 << 16 | sum[3] >> 16 << 24;
    }

    const Raster& image;
    const Axis& y;
    const Columns source;
    std::vector<Taps> columns;
    std::vector<Channels> line;
    std::vector<uint32_t> pixels;
};

} // namespace

std::unique_ptr<Resampler> makeResampler(const Raster& image, const Axis& x, const Axis& y) {
    if (x.shrinks() || y.shrinks())
        return std::make_unique<Shrinker>(image, x, y);
    return std::make_unique<Enlarger>(image, x, y);
}

} // namespace UILib::raster
