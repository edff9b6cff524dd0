#include "uilib/core/nine_slice.h"

namespace UILib {

namespace {

struct Span {
    int begin, end;
};

// Column or row 0, 1 or 2 of a length that is cut by two borders. Borders that are wider
// than the length overlap, and then the middle has none.
Span third(int index, int begin, int end, int before, int after) {
    switch (index) {
    case 0:
        return {begin, begin + before};
    case 1:
        return {begin + before, end - after};
    default:
        return {end - after, end};
    }
}

Box ninth(const Box& box, const Box& corner, int column, int row) {
    Span x = third(column, box.left, box.right, corner.left, corner.right);
    Span y = third(row, box.top, box.bottom, corner.top, corner.bottom);
    return {x.begin, y.begin, x.end, y.end};
}

Box withoutNegatives(const Box& corner) {
    return {std::max(corner.left, 0), std::max(corner.top, 0), std::max(corner.right, 0),
            std::max(corner.bottom, 0)};
}

} // namespace

std::vector<Slice> cut(const NineSlice& image, const Box& paint) {
    const Box corner = withoutNegatives(image.corner);
    std::vector<Slice> slices;
    auto add = [&](int column, int row, Fit horizontal, Fit vertical) {
        Slice slice{ninth(image.target, corner, column, row), ninth(image.source, corner, column, row),
                    horizontal, vertical};
        if (meets(slice.target, paint) && !slice.source.isEmpty())
            slices.push_back(slice);
    };
    if (!image.hole)
        add(1, 1, image.xTiled ? Fit::Tile : Fit::Stretch, image.yTiled ? Fit::Tile : Fit::Stretch);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            if (row != 1 || column != 1)
                add(column, row, Fit::Stretch, Fit::Stretch);
    return slices;
}

} // namespace UILib
