#pragma once

#include "uilib/core/geometry.h"

#include <optional>
#include <span>

// Where the popup menu lies on the screen and which of its rows a point means. Plain
// numbers in pixels, free of windows; places are screen coordinates, the y of a hit is
// the menu's own.

enum class MenuPlacement { AboveLeft, BelowLeft, AboveRight, BelowRight }; // seen from the point

enum class MenuRow { Item, Separator };

int menuHeight(std::span<const MenuRow> rows, int rowHeight);

// The index of the item at that y; none for a separator and below the last row.
std::optional<size_t> menuRowAt(std::span<const MenuRow> rows, int rowHeight, int y);

// The rectangle that the point and the placement ask for, moved into the work area without
// a change of size. A menu that is larger than the area ends at its right and lower edge.
// A placement that is none of the four starts at 0,0.
UILib::Box placeMenu(int x, int y, MenuPlacement placement, int width, int height,
                     const UILib::Box& workArea);
