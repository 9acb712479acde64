#include "model/MonthGrid.h"
#include "tests/support/Refusals.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace velmora {
namespace {

/// So many of the first columns are wider by a pixel.
int WiderColumns(DayNumber shown) { return (shown % 5 + 5) % 5; }

GridShape ShapeOf(DayNumber shown, int firstDayOfWeek, bool showWeekend) {
    return {.shownDate = shown,
            .firstDayOfWeek = firstDayOfWeek,
            .gridFirstDay = showWeekend ? firstDayOfWeek : 2,
            .showWeekend = showWeekend,
            .gridTop = 40,
            .cellWidth = 29,
            .rowHeight = 20,
            .clientWidth = 2 + (showWeekend ? 7 : 5) * 29 + WiderColumns(shown)};
}

/// Weeks are counted away from the first day of the week nearest to day 0, on both sides of it.
bool BeginsWeek(DayNumber day, int firstDayOfWeek) {
    const int distance = day - firstDayOfWeek;
    return distance > 0 ? distance % 7 == 0 : distance < 0 && (distance - 1) % 7 == 0;
}

/// The grid by walking: dates are laid out one after the other, line by line.
std::map<DayNumber, std::pair<int, int>> WalkGrid(const GridShape& shape) {
    const DayNumber first = FirstOfMonth(shape.shownDate);
    DayNumber weekBegin = first;
    while (WeekDayOf(weekBegin) != shape.gridFirstDay) --weekBegin;

    // Weeks of the user's kind decide whether the month is pushed down.
    int userWeeks = 0;
    for (DayNumber d = first; d <= LastOfMonth(first); ++d) {
        if (d == first || BeginsWeek(d, shape.firstDayOfWeek)) ++userWeeks;
    }
    const int column = first - weekBegin;
    const int columns = shape.showWeekend ? 7 : 5;
    const bool early = column < 6 && column + 1 < (columns + 1) / 2;
    const int offset = userWeeks == 4 || early ? 1 : 0;

    std::map<DayNumber, std::pair<int, int>> places;
    DayNumber day = weekBegin - 7 * offset;
    for (int row = 0; row < 6; ++row) {
        for (int col = 0; col < 7; ++col, ++day) {
            if (col < columns) places[day] = {row, col};
        }
    }
    return places;
}

TEST(MonthGrid, AgreesWithAWalkThroughTheDays) {
    // All 14 shapes of a year, then far ones.
    for (int year = 2000; year <= 4600; year += year < 2027 ? 1 : 367) {
        for (int month = 1; month <= 12; ++month) {
            for (int combination = 0; combination < 14; ++combination) {
                const GridShape shape =
                    ShapeOf(DayFromCivil(year, month, 17), combination % 7 + 1, combination < 7);
                const MonthGrid grid(shape);
                const auto places = WalkGrid(shape);
                for (DayNumber d = shape.shownDate - 60; d < shape.shownDate + 60; ++d) {
                    const auto cell = grid.DayCellRect(d);
                    const auto place = places.find(d);
                    ASSERT_EQ(cell.has_value(), place != places.end())
                        << year << '-' << month << " combination " << combination << " day " << d;
                    if (!cell) continue;
                    const auto [row, col] = place->second;
                    EXPECT_EQ(cell->top, 40 + 20 * row + 1);
                    const int wider = WiderColumns(shape.shownDate);
                    EXPECT_EQ(cell->left, 1 + 29 * col + std::min(col, wider));
                    EXPECT_EQ(cell->right, 29 * (col + 1) + std::min(col + 1, wider));
                    for (const int x : {cell->left, cell->right}) {
                        for (const int y : {cell->top, cell->bottom}) {
                            ASSERT_EQ(
                                grid.DateFromPoint(static_cast<float>(x), static_cast<float>(y)),
                                d);
                        }
                    }
                }
            }
        }
    }
}

TEST(MonthGrid, PointsBesideTheCellsHaveNoDate) {
    const MonthGrid grid(ShapeOf(DayFromCivil(2015, 2, 1), 1, true));
    const Rect cell = *grid.DayCellRect(DayFromCivil(2015, 2, 10));
    const auto at = [&](double x, double y) {
        return grid.DateFromPoint(static_cast<float>(x), static_cast<float>(y));
    };
    EXPECT_EQ(at(cell.right + 0.5, cell.top), std::nullopt);  // between two cells
    EXPECT_EQ(at(cell.right + 1, cell.top), DayFromCivil(2015, 2, 11));
    EXPECT_EQ(at(cell.left, 40), std::nullopt);  // above the grid
    EXPECT_EQ(at(0, cell.top), std::nullopt);
    EXPECT_EQ(at(std::numeric_limits<float>::quiet_NaN(), cell.top), std::nullopt);
}

TEST(DaysInMonth, KnowsLeapYearsAndRefusesWhatOverflows) {
    EXPECT_EQ(DaysInMonth(2, 1900), 28);
    EXPECT_EQ(DaysInMonth(2, 2000), 29);
    EXPECT_EQ(DaysInMonth(12, 9999), 31);
    EXPECT_EQ(DaysInMonth(14, 2023), 29);  // February of the next year
    constexpr std::int16_t kLow = std::numeric_limits<std::int16_t>::min();
    for (const auto& [month, year] :
         {std::pair<std::int16_t, std::int16_t>{1, kLow}, {kLow, 2000}, {1, 99}, {1, 10000}}) {
        const auto refused = [m = month, y = year] { DaysInMonth(m, y); };
        EXPECT_EQ(test::NumberOf(refused), ErrorNumber::Overflow) << month << ' ' << year;
    }
}

}  // namespace
}  // namespace velmora
