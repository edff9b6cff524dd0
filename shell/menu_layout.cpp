#include "shell/menu_layout.h"

using UILib::Box;

namespace {

constexpr int SeparatorHeight = 1;

int heightOf(MenuRow row, int rowHeight) {
    return row == MenuRow::Separator ? SeparatorHeight : rowHeight;
}

// Moves the interval into the limits; the upper one wins.
void moveInto(int& from, int& to, int lower, int upper) {
    const auto move = [&](int by) {
        from += by;
        to += by;
    };
    if (from < lower)
        move(lower - from);
    if (to > upper)
        move(upper - to);
}

} // namespace

int menuHeight(std::span<const MenuRow> rows, int rowHeight) {
    int sum = 0;
    for (const MenuRow row : rows)
        sum += heightOf(row, rowHeight);
    return sum;
}

std::optional<size_t> menuRowAt(std::span<const MenuRow> rows, int rowHeight, int y) {
    int bottom = 1; // the frame above the first row
    for (size_t i = 0; i < rows.size(); ++i) {
        bottom += heightOf(rows[i], rowHeight);
        if (rows[i] == MenuRow::Item && y <= bottom)
            return i;
    }
    return std::nullopt;
}

Box placeMenu(int x, int y, MenuPlacement placement, int width, int height, const Box& workArea) {
    const int besideLeft = x - width - 1, above = y - height;
    Box place;
    switch (placement) {
    case MenuPlacement::AboveLeft:
        place = {besideLeft, above};
        break;
    case MenuPlacement::BelowLeft:
        place = {besideLeft, y};
        break;
    case MenuPlacement::AboveRight:
        place = {x, above};
        break;
    case MenuPlacement::BelowRight:
        place = {x, y};
        break;
    }
    place.right = place.left + width;
    place.bottom = place.top + height;
    moveInto(place.left, place.right, workArea.left, workArea.right);
    moveInto(place.top, place.bottom, workArea.top, workArea.bottom);
    return place;
}
