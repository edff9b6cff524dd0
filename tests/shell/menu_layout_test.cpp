#include "shell/menu_layout.h"

#include <gtest/gtest.h>

#include <vector>

using UILib::Box;

namespace UILib {
void PrintTo(const Box& box, std::ostream* out) {
    *out << box.left << "," << box.top << "," << box.right << "," << box.bottom;
}
} // namespace UILib

namespace {

constexpr MenuRow Item = MenuRow::Item, Separator = MenuRow::Separator;
constexpr Box Work = {0, 0, 1920, 1040};

TEST(MenuLayout, LiesWhereThePlacementSays) {
    const struct {
        MenuPlacement placement;
        int left, top;
    } cases[] = {{MenuPlacement::AboveLeft, 329, 320},  {MenuPlacement::BelowLeft, 329, 400},
                 {MenuPlacement::AboveRight, 500, 320}, {MenuPlacement::BelowRight, 500, 400},
                 {static_cast<MenuPlacement>(4), 0, 0}, {static_cast<MenuPlacement>(-1), 0, 0}};
    for (const auto& [placement, left, top] : cases)
        EXPECT_EQ(placeMenu(500, 400, placement, 170, 80, Work), (Box{left, top, left + 170, top + 80}))
            << static_cast<int>(placement);
}

TEST(MenuLayout, StaysInTheWorkAreaWithItsSize) {
    constexpr Box second = {-1280, -200, 0, 824}; // a monitor to the left of and above the first
    const struct {
        int x, y;
        Box work;
        int left, top;
    } cases[] = {{1919, 1079, Work, 1750, 960}, // the corners, with the task bar below
                 {0, 1079, Work, 0, 960},
                 {0, 0, Work, 0, 0},
                 {1919, 0, Work, 1750, 0},
                 {-1300, -300, second, -1280, -200},
                 {-1, 823, second, -170, 743},
                 {-600, 10, second, -600, -70},
                 {10, 10, {0, 0, 100, 50}, -70, -30}}; // no room at all
    for (const auto& [x, y, work, left, top] : cases)
        EXPECT_EQ(placeMenu(x, y, MenuPlacement::AboveRight, 170, 80, work),
                  (Box{left, top, left + 170, top + 80}))
            << x << "," << y;
}

TEST(MenuLayout, RowsAndSeparatorsAddUp) {
    EXPECT_EQ(menuHeight({}, 40), 0);
    EXPECT_EQ(menuHeight(std::vector{Item, Item}, 40), 80);
    EXPECT_EQ(menuHeight(std::vector{Item, Separator, Item}, 38), 77);
}

TEST(MenuLayout, APointMeansTheRowThatEndsAtOrBelowIt) {
    const std::vector rows = {Item, Separator, Item};
    const struct {
        int y, row; // -1: none
    } cases[] = {{0, 0}, {41, 0}, {42, 2}, {43, 2}, {82, 2}, {83, -1}, {5000, -1}};
    for (const auto& [y, row] : cases)
        EXPECT_EQ(menuRowAt(rows, 40, y), row == -1 ? std::nullopt : std::optional<size_t>(row)) << y;
    EXPECT_EQ(menuRowAt(std::vector{Separator}, 40, 1), std::nullopt);
    EXPECT_EQ(menuRowAt({}, 40, 0), std::nullopt);
}

} // namespace
