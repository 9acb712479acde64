#include "model/MonthGrid.h"
#include "model/VmDays.h"
#include "tests/support/Refusals.h"
#include "tests/support/TestCalendar.h"

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

class VmDaysTest : public testing::Test {
protected:
    VmDaysTest() {
        days->LoadMonth(DayFromCivil(2024, 2, 10));
        days->DayChanged.Connect([this](Date& key, std::string& property) {
            log.push_back(std::to_string(DayOf(key) - DayFromCivil(2024, 1, 31)) + ' ' + property);
        });
    }

    DaysRef days = std::make_shared<VmDays>();
    std::vector<std::string> log;  // day of February 2024 and property
};

using test::NumberOf;

TEST_F(VmDaysTest, EveryChangeIsReportedAndMarksTheDay) {
    const std::pair<Variant, bool> kColors[] = {
        {Variant(), true},          {Null{}, true}, {std::int32_t{255}, true},
        {std::int16_t{255}, false}, {255.0, false}, {"255", false}};
    const DayRef day = days->Item(29);
    for (const auto& [value, accepted] : kColors) {
        day->BackColor(std::int32_t{1});
        log.clear();
        EXPECT_EQ(NumberOf([&, &color = value] { day->BackColor(color); }),
                  accepted ? ErrorNumber{} : ErrorNumber::InvalidPropertyValue);
        EXPECT_EQ(day->BackColor(), accepted ? value : Variant(std::int32_t{1}));
        EXPECT_EQ(test::Joined(log), accepted ? "29 BackColor" : "");
    }
    log.clear();
    days->Item(2)->ForeColor(Null{});
    days->Item(3)->Caption("three");
    days->Item(4)->Picture(nullptr);
    days->Item(5)->DayDate(DateOf(DayFromCivil(2024, 2, 9)));
    EXPECT_EQ(test::Joined(log), "2 ForeColor, 3 Caption, 4 Picture, 9 DayDate");
    for (std::int16_t i = 2; i < 6; ++i) EXPECT_EQ(days->Item(i)->Dirty(), i < 5);
}

TEST_F(VmDaysTest, ADroppedDayReportsThroughItsFormerParentButIsNoItem) {
    std::vector<int> changedItems;
    days->WhenItemChanges([&](std::int16_t position) { changedItems.push_back(position); });
    const DayRef dropped = days->Item(5);
    const std::weak_ptr<VmDay> watched = days->Item(7);
    days->LoadMonth(DayFromCivil(2024, 2, 1));
    EXPECT_TRUE(watched.expired());
    EXPECT_TRUE(log.empty());
    dropped->Caption("late");
    days->Item(6)->Caption("current");
    EXPECT_EQ(log, (std::vector<std::string>{"5 Caption", "6 Caption"}));
    EXPECT_EQ(changedItems, std::vector<int>{6});

    days->DayChanged.Connect([this](Date&, std::string&) { days.reset(); });
    days->Item(1)->Caption("last");
    dropped->Caption("alone");  // nobody hears it
    EXPECT_EQ(log.size(), 3u);
}

TEST_F(VmDaysTest, AddDayChecksItsColoursFirst) {
    EXPECT_EQ(NumberOf([&] { days->AddDay(Date(1.5), std::int16_t{3}); }),
              ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(days->AddDay(Date(-1.25), std::int32_t{3})->DayDate(), Date(-1));
    EXPECT_EQ(days->Count(), 30);
    days->RemoveDay(30);
    for (const std::int16_t index : {std::int16_t{0}, std::int16_t{30}, std::int16_t{-1}}) {
        EXPECT_EQ(NumberOf([&] { days->Item(index); }), ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(NumberOf([&] { days->RemoveDay(index); }), ErrorNumber::SubscriptOutOfRange);
    }
}

}  // namespace
}  // namespace velmora
