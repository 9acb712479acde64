#include "platform/Keys.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

TEST(CalendarKeyboard, SaysOnReturnWhetherTheKeyIsUsed) {
    TestCalendar test;
    std::int16_t replacement = kKeyRight;
    test.calendar->Events().KeyDown.Connect(
        [&](std::int16_t& key, std::int16_t&) { key = replacement; });
    EXPECT_EQ(test.Key(65), "0");
    test.calendar->DateMax(DateOf(Day(2020, 3, 15)));
    test.calendar->DateValue(DateOf(Day(2020, 3, 31)));
    EXPECT_EQ(test.Key(65), "39");  // refused: the handler's own value stays
    replacement = 0;
    EXPECT_EQ(test.Key(kKeyRight), "0");  // the handler has used it
    replacement = kKeyLeft;
    test.calendar->Events().KeyDown.Connect(
        [&](std::int16_t&, std::int16_t&) { test.calendar->Enabled(false); });
    EXPECT_EQ(test.Key(kKeyLeft), "37");
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2020, 3, 31));
}

TEST(CalendarKeyboard, KeepsTheTimeOfDay) {
    TestCalendar test;
    test.calendar->DateValue(DateOf(Day(2020, 3, 20), 0.75));
    test.Key(kKeyRight);
    EXPECT_EQ(test.calendar->SelectedDate(), DateOf(Day(2020, 3, 21), 0.75));
    test.Key(kKeyPageDown);  // from the shown date, which an arrow within the month leaves
    EXPECT_EQ(test.calendar->SelectedDate(), DateOf(Day(2020, 4, 20), 0.75));
}

TEST(CalendarKeyboard, LeavesTheKeysToAnOpenList) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelCombo);
    test.monthList.dropped = true;
    test.TakeLog();
    EXPECT_EQ(test.Key(kKeyRight), "39");
    EXPECT_EQ(test.TakeLog(), (Log{"KeyDown 39 0"}));
}

TEST(CalendarEvents, AreToldToThoseThatWereThereAndStillAre) {
    Log log;
    std::optional<Event<>> event(std::in_place);
    event->Connect([&] {
        log.push_back("first");
        if (log.size() == 1) event->Connect([&] { log.push_back("new"); });
    });
    const auto second = event->Connect([&] { log.push_back("second"); });
    event->Raise();
    EXPECT_EQ(Joined(log), "first, second");
    event->Disconnect(second);
    event->Raise();
    EXPECT_EQ(Joined(log), "first, second, first, new");
    log.clear();
    event.emplace();
    event->Connect([&] { event.reset(); });
    event->Connect([&] { log.push_back("behind the end"); });
    event->Raise();
    EXPECT_EQ(log, Log());
}

TEST(CalendarSelectors, EscapeInTheListCancelsUntilItsKeyIsReleased) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelCombo);
    test.TakeLog();
    test.calendar->OnMonthListKeyDown(kKeyEscape);
    test.calendar->OnMonthListClick(6);
    test.calendar->OnMonthListKeyDown(kKeyEnter);
    test.calendar->OnYearText("1999");
    EXPECT_TRUE(test.TakeLog().empty());
    test.calendar->OnSelectorEnter();
    test.calendar->OnYearText(" 1999 ");
    EXPECT_EQ(test.TakeLog(), (Log{"YearChanged 1999", "repaint"}));
    test.calendar->OnMonthListClick(12);  // no month
    test.calendar->OnMonthListClick(2);   // the shown one
    EXPECT_TRUE(test.TakeLog().empty());
}

TEST(CalendarSelectors, FollowTheLocale) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelCombo);
    test.Paint();
    DateLocale locale;
    locale.monthNames[6] = "juillet";
    test.dates.Locale(std::make_shared<DateLocale>(locale));
    test.calendar->OnLocaleChanged();
    EXPECT_NE(test.monthList.items.find("June, juillet, August"), std::string::npos);
    EXPECT_EQ(test.monthList.shown, "2");
}

TEST(CalendarSelectors, ATypedYearIsDroppedWhenItsBoxIsGone) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelCombo);
    test.calendar->MonthYearSelStyle(VmMonthSelNone);
    test.TakeLog();
    test.calendar->OnYearText("1999");  // as focus leaves the box that is being hidden
    EXPECT_TRUE(test.TakeLog().empty());
    EXPECT_EQ(test.yearText.shown, "2020");
}

}  // namespace
}  // namespace velmora::test
