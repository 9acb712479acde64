#include "calendar/SelectorInput.h"
#include "platform/Keys.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

TEST(CalendarKeyboard, SaysOnReturnWhetherTheKeyIsUsed) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelCombo);
    test.monthList.dropped = true;
    EXPECT_EQ(test.Key(kKeyRight), "39");  // the open list's
    test.monthList.dropped = false;
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2020, 3, 15));
    std::int16_t replacement = kKeyRight;
    test.calendar->Events().KeyDown.Connect(
        [&](std::int16_t& key, std::int16_t&) { key = replacement; });
    EXPECT_EQ(test.Key(65), "0");
    test.calendar->DateMax(DateOf(Day(2020, 3, 15)));
    test.calendar->DateValue(DateOf(Day(2020, 3, 31)));
    EXPECT_EQ(test.Key(65), "39");  // refused: the handler's own value stays
    replacement = 0;
    EXPECT_EQ(test.Key(kKeyRight), "0");  // the handler has used it
    replacement = 66;
    EXPECT_EQ(test.Key(kKeyRight), "39");  // no key of the calendar's: as it came
    replacement = kKeyLeft;
    test.calendar->Events().KeyDown.Connect(
        [&](std::int16_t&, std::int16_t&) { test.calendar->Enabled(false); });
    EXPECT_EQ(test.Key(kKeyLeft), "37");
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2020, 3, 31));
}

TEST(CalendarMouse, ADragTakesTheRelease) {
    TestCalendar test;
    const auto [x, y] = CenterOf(*test.calendar, Day(2020, 3, 20));
    test.calendar->OnMouseDown(1, 0, static_cast<float>(x), static_cast<float>(y));
    test.calendar->OleDrag();
    test.calendar->OnMouseUp(1, 0, static_cast<float>(x), static_cast<float>(y));
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2020, 3, 15));
    EXPECT_FALSE(test.captured);
}

TEST(CalendarKeyboard, KeepsTheTimeOfDay) {
    TestCalendar test;
    test.calendar->DateValue(DateOf(Day(2020, 3, 20), 0.75));
    test.Key(kKeyRight);
    EXPECT_EQ(test.calendar->SelectedDate(), DateOf(Day(2020, 3, 21), 0.75));
    test.Key(kKeyPageDown);  // from the shown date, which an arrow within the month leaves
    EXPECT_EQ(test.calendar->SelectedDate(), DateOf(Day(2020, 4, 20), 0.75));
    test.calendar->ExtendedNavigation(true);
    test.Key(kKeyHome, kShiftCtrl);
    EXPECT_EQ(test.calendar->SelectedDate(), DateOf(Day(2020, 3, 15), 0.75)) << "today";
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

TEST(CalendarMouse, AnArrowAnswersUpToItsEdges) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelArrows);
    for (const Rect& arrow : test.calendar->Layout().arrows) {
        for (const int beyond : {0, 1}) {
            const Date before = test.calendar->ShownDate();
            const auto x = static_cast<float>(arrow.right);
            const auto y = static_cast<float>(arrow.bottom + beyond);
            test.calendar->OnMouseDown(kButtonLeft, 0, x, y);
            test.calendar->OnMouseUp(kButtonLeft, 0, x, y);
            EXPECT_EQ(test.calendar->ShownDate() == before, beyond != 0);
        }
    }
}

TEST(CalendarMouse, ARightDoubleClickLeavesTheHeldLeftButtonItsClick) {
    TestCalendar test;
    test.Press(Day(2020, 3, 18));
    test.calendar->OnMouseDoubleClick(kButtonRight, 0, 9, 9);
    test.Release(Day(2020, 3, 18));
    EXPECT_TRUE(Joined(test.TakeLog()).ends_with("MouseUp 1, Click"));
}

TEST(SelectorInput, WakesItsHostWhenSomethingBeginsToWait) {
    TestCalendar test;
    Log told;
    SelectorInput input([&] { told.push_back("wake"); });
    const auto post = [&](const char* name) {
        input.Post([&told, name](VmCalendar&) { told.push_back(name); });
    };
    post("first");
    input.Post([](VmCalendar&) { throw 1; });
    post("rest");
    EXPECT_ANY_THROW(input.Deliver(*test.calendar));
    input.Deliver(*test.calendar);
    post("forgotten");
    input.Clear();
    post("last");
    input.Deliver(*test.calendar);
    EXPECT_EQ(Joined(told), "wake, first, wake, rest, wake, wake, last");
}

}  // namespace
}  // namespace velmora::test
