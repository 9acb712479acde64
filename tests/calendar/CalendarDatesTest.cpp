#include "tests/support/Refusals.h"
#include "tests/support/TestCalendar.h"

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

TEST(CalendarDates, ConvertsOrRefuses) {
    const DayNumber today = Day(2020, 3, 15);
    const double infinity = std::numeric_limits<double>::infinity();
    const std::tuple<Variant, int, DayNumber> cases[] = {
        {Variant(), 0, today},
        {DateOf(today, 0.9), 0, today},
        {"4/5/2020", 0, Day(2020, 4, 5)},
        {std::int16_t{0}, 0, 0},
        {std::int32_t{43000}, 0, 43000},
        {43000.25, 0, 43000},
        {Date(-1.25), 0, -1},
        {"12x", 13, today},
        {"", 13, today},
        {true, 13, today},
        {infinity, 13, today},
        {1e300, 380, today},
        {DateOf(Day(999, 12, 31)), 380, today},
        {DateOf(Day(3000, 1, 1)), 380, today},
        {DateOf(Day(2999, 12, 31), 0.75), 0, Day(2999, 12, 31)}};
    for (const auto& [value, error, selected] : cases) {
        TestCalendar test;
        test.TakeLog();
        const ErrorNumber number = NumberOf([&, &v = value] { test.calendar->DateValue(v); });
        EXPECT_EQ(static_cast<int>(number), error);
        EXPECT_EQ(DayOf(test.calendar->SelectedDate()), selected);
        EXPECT_EQ(test.TakeLog().empty(), selected == today);
        EXPECT_EQ(test.BrokenInvariant(), "");
    }
}

TEST(CalendarDates, AChangeOfMonthAndYearEndsASuspendedPaint) {
    TestCalendar test;
    test.calendar->NoRepaintControl(true);
    test.TakeLog();
    test.calendar->DateValue(DateOf(Day(2020, 5, 1)));
    test.calendar->DateValue(DateOf(Day(2021, 5, 1)));
    EXPECT_EQ(Joined(test.TakeLog()).find("repaint"), std::string::npos);
    test.calendar->DateValue(DateOf(Day(2022, 6, 1)));
    EXPECT_EQ(test.TakeLog().back(), "repaint");
}

TEST(CalendarDates, AHandlerThatMovesTheDateAgainEndsTheFirstSequence) {
    const std::string moved = "DateChanged 2020-05-05, DayChanged 5, MonthChanged 5, ";
    const std::pair<void (*)(VmCalendar&), std::string> kCases[] = {
        {[](VmCalendar& calendar) { calendar.DateValue(DateOf(Day(2020, 4, 4))); },
         "DateChanged 2020-04-04, " + moved + "notify DateValue, repaint, notify DateValue"},
        {[](VmCalendar& calendar) { calendar.OnDateScroll(MonthIndex(Day(2019, 12, 1))); },
         "MonthChanged 12, " + moved + "YearChanged 2020, notify DateValue, repaint"},
        {[](VmCalendar& calendar) { calendar.OnMonthListClick(6); },
         "DateChanged 2020-07-15, " + moved + "notify DateValue, repaint"}};
    for (const auto& [act, log] : kCases) {
        TestCalendar test;
        bool again = false;
        const auto handler = [&](auto&) {
            if (!std::exchange(again, true)) test.calendar->DateValue(DateOf(Day(2020, 5, 5)));
        };
        test.calendar->Events().DateChanged.Connect(handler);
        test.calendar->Events().MonthChanged.Connect(handler);
        test.TakeLog();
        act(*test.calendar);
        EXPECT_EQ(Joined(test.TakeLog()), log);
        EXPECT_EQ(test.BrokenInvariant(), "");
    }
}

TEST(CalendarDates, AHandlerThatThrowsLeavesAWholeMove) {
    for (const int thrower : {1, 2, 3, 4}) {
        TestCalendar test;
        int raised = 0;
        ForEachEvent(test.calendar->Events(), [&](auto& event, const char*) {
            event.Connect([&](auto&...) { ++raised == thrower ? throw thrower : void(); });
        });
        test.TakeLog();
        EXPECT_ANY_THROW(test.calendar->DateValue(DateOf(Day(2021, 4, 1))));
        EXPECT_TRUE(Joined(test.TakeLog()).ends_with(", notify DateValue, repaint"));
        test.calendar->MonthBackColor(1);
        EXPECT_EQ(test.TakeLog().back(), "repaint band");
    }
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

TEST(CalendarDates, TheClockMovesToday) {
    TestCalendar test;
    test.Paint();
    test.TakeLog();
    const std::tuple<double, int, const char*> kCases[] = {// time, minutes to wait, log
                                                           {0.5, 720, ""},
                                                           {0.75, 360, ""},
                                                           {1, 720, "repaint"},
                                                           {1.25, 720, ""},
                                                           {0.5, 720, "repaint"}};
    for (const auto& [time, minutes, log] : kCases) {
        test.now.value = Day(2020, 3, 15) + time;
        EXPECT_EQ(test.calendar->OnClock(), std::chrono::minutes(minutes));
        EXPECT_EQ(Joined(test.TakeLog()), log);
    }
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
