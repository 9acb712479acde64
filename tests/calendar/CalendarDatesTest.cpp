#include "tests/support/Refusals.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

TEST(CalendarDates, ConvertsOrRefuses) {
    struct Case {
        Variant value;
        int error;
        DayNumber selected;
    };
    const DayNumber today = Day(2020, 3, 15);
    const double infinity = std::numeric_limits<double>::infinity();
    const Case cases[] = {{{}, 0, today},
                          {DateOf(today, 0.9), 0, today},
                          {"4/5/2020", 0, Day(2020, 4, 5)},
                          {"5 April 2020", 0, Day(2020, 4, 5)},
                          {std::int16_t{0}, 0, 0},
                          {std::int32_t{43000}, 0, 43000},
                          {43000.25, 0, 43000},
                          {Date(-1.25), 0, -1},
                          {"12x", 13, today},
                          {"", 13, today},
                          {Null{}, 13, today},
                          {true, 13, today},
                          {ObjectRef(), 13, today},
                          {infinity, 13, today},
                          {std::numeric_limits<double>::quiet_NaN(), 13, today},
                          {DateOf(Day(199, 12, 31)), 380, today},
                          {DateOf(Day(4601, 1, 1)), 380, today},
                          {1e300, 380, today},
                          {DateOf(Day(999, 12, 31)), 380, today},
                          {DateOf(Day(3000, 1, 1)), 380, today},
                          {DateOf(Day(2999, 12, 31), 0.75), 0, Day(2999, 12, 31)}};
    for (const Case& c : cases) {
        TestCalendar test;
        test.TakeLog();
        const ErrorNumber number = NumberOf([&] { test.calendar->DateValue(c.value); });
        EXPECT_EQ(static_cast<int>(number), c.error);
        EXPECT_EQ(DayOf(test.calendar->SelectedDate()), c.selected);
        EXPECT_EQ(test.TakeLog().empty(), c.selected == today);
        EXPECT_EQ(test.BrokenInvariant(), "");
    }
}

TEST(CalendarDates, AChangeOfMonthAndYearEndsASuspendedPaint) {
    TestCalendar test;
    test.calendar->NoRepaintControl(true);
    test.TakeLog();
    test.calendar->DateValue(DateOf(Day(2020, 5, 1)));
    test.calendar->DateValue(DateOf(Day(2021, 5, 1)));
    for (const std::string& entry : test.TakeLog())
        EXPECT_EQ(entry.find("repaint"), std::string::npos);
    test.calendar->DateValue(DateOf(Day(2022, 6, 1)));
    EXPECT_EQ(test.TakeLog().back(), "repaint");
}

TEST(CalendarDates, AHandlerThatMovesTheDateAgainEndsTheFirstSequence) {
    TestCalendar test;
    test.Paint();
    bool moved = false;
    test.calendar->Events().DateChanged.Connect([&](Date&) {
        if (!std::exchange(moved, true)) test.calendar->DateValue(DateOf(Day(2020, 5, 5)));
    });
    test.TakeLog();
    test.calendar->DateValue(DateOf(Day(2020, 4, 4)));
    EXPECT_EQ(test.TakeLog(),
              (Log{"DateChanged 2020-04-04", "DateChanged 2020-05-05", "DayChanged 5",
                   "MonthChanged 5", "notify DateValue", "repaint", "notify DateValue"}));
    EXPECT_EQ(test.BrokenInvariant(), "");
}

TEST(CalendarDates, AHandlerThatMovesTheDateEndsAStepOfTheMonthToo) {
    TestCalendar test;
    test.calendar->DateValue(DateOf(Day(2020, 1, 15)));
    bool moved = false;
    test.calendar->Events().MonthChanged.Connect([&](std::int16_t&) {
        if (!std::exchange(moved, true)) test.calendar->DateValue(DateOf(Day(2020, 5, 5)));
    });
    test.TakeLog();
    test.calendar->OnDateScroll(MonthIndex(Day(2019, 12, 1)));
    EXPECT_EQ(Joined(test.TakeLog()),
              "MonthChanged 12, DateChanged 2020-05-05, DayChanged 5, MonthChanged 5, notify "
              "DateValue, repaint");
}

TEST(CalendarDates, AHandlerThatMovesTheDateEndsAChoiceInTheListToo) {
    TestCalendar test;
    bool moved = false;
    test.calendar->Events().DateChanged.Connect([&](Date&) {
        if (!std::exchange(moved, true)) test.calendar->DateValue(DateOf(Day(2020, 5, 5)));
    });
    test.TakeLog();
    test.calendar->OnMonthListClick(6);
    EXPECT_EQ(Joined(test.TakeLog()),
              "DateChanged 2020-07-15, DateChanged 2020-05-05, DayChanged 5, MonthChanged 5, "
              "notify DateValue, repaint");
}

TEST(CalendarDates, WhatAHandlerChangesWaitsForTheOneRepaint) {
    TestCalendar test;
    test.calendar->Events().YearChanged.Connect(
        [&](std::int16_t&) { test.calendar->MonthBackColor(0x123456); });
    test.TakeLog();
    test.calendar->DateValue(DateOf(Day(2021, 5, 5)));
    EXPECT_EQ(Joined(test.TakeLog()),
              "DateChanged 2021-05-05, DayChanged 5, MonthChanged 5, YearChanged 2021, notify "
              "MonthBackColor, notify DateValue, repaint");
}

TEST(CalendarDates, InitRaisesMonthAndYearAndTheFirstPaintTheMonthOnceMore) {
    TestCalendar test;
    EXPECT_EQ(test.TakeLog(), (Log{"MonthChanged 3", "YearChanged 2020", "repaint"}));
    test.Paint();
    test.Paint();
    EXPECT_EQ(test.TakeLog(), (Log{"MonthChanged 3"}));
}

}  // namespace
}  // namespace velmora::test
