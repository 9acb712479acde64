#include "platform/Keys.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace velmora::test {
namespace {

/// One random input or setting.
void Act(TestCalendar& test, std::mt19937& random) {
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    VmCalendar& calendar = *test.calendar;
    const auto x = static_cast<float>(pick(-20, 280));
    const auto y = static_cast<float>(pick(-20, 230));
    const DayNumber near = DayOf(calendar.SelectedDate()) + pick(-90, 90);
    switch (pick(0, 15)) {
        case 0: calendar.OnMouseDown(static_cast<std::int16_t>(pick(0, 2)), 0, x, y); break;
        case 1: calendar.OnMouseMove(1, 0, x, y); break;
        case 2: calendar.OnMouseUp(static_cast<std::int16_t>(pick(0, 2)), 0, x, y); break;
        case 3:
            calendar.MonthYearSelStyle(static_cast<VmMonthYearSelStyleConstants>(pick(0, 3)));
            break;
        case 4: calendar.ShowWeekend(pick(0, 1) == 1); break;
        case 5: calendar.FirstDayOfWeek(static_cast<VmWeekDays>(pick(1, 7))); break;
        case 6: calendar.DateMax(DateOf(near)); break;
        case 7: calendar.DateMin(DateOf(near)); break;
        case 8: calendar.DateValue(DateOf(near)); break;
        case 9: calendar.OnMonthListClick(pick(-1, 12)); break;
        case 10: calendar.OnYearText(std::to_string(pick(195, 4605))); break;
        case 11: calendar.OnYearSpinner(-pick(YearOf(near) - 2, YearOf(near) + 2)); break;
        case 12: calendar.OnDateScroll(MonthIndex(near) + pick(-30, 30)); break;
        case 13:
            calendar.DateMax(DateOf(Day(4600, 12, 31))), calendar.DateMin(DateOf(Day(200, 1, 1)));
            break;
        default:
            test.Key(static_cast<std::int16_t>(pick(32, 41)),
                     static_cast<std::int16_t>(pick(0, 3)));
    }
}

TEST(Calendar, HoldsItsInvariantsOnARandomWalk) {
    std::mt19937 random(20200315);
    TestCalendar test;
    test.calendar->Events().MonthChanged.Connect([&](std::int16_t&) {
        ASSERT_EQ(test.BrokenInvariant(), "");
        test.calendar->Days()->Item(1)->Caption("first");
    });
    for (int step = 0; step < 100'000; ++step) {
        try {
            Act(test, random);
        } catch (const AutomationError& refused) {
            ASSERT_EQ(refused.Number(), ErrorNumber::InvalidPropertyValue);
        }
        ASSERT_EQ(test.BrokenInvariant(), "") << "step " << step;
        const CivilDate shown = CivilOf(DayOf(test.calendar->ShownDate()));
        if (test.childrenMade >= 3 && test.monthList.visible) {
            ASSERT_EQ(test.yearText.shown, std::to_string(shown.year)) << "step " << step;
        }
        if (step % 50 == 0) {
            ASSERT_TRUE(test.Paint().empty());
            test.drawing.Forget();
            test.log.clear();
        }
    }
}

/// A handler of any event does its worst in the middle of any input.
TEST(Calendar, SurvivesEveryHandlerInEverySequence) {
    using Handler = std::function<void(TestCalendar&)>;
    const Handler handlers[] = {
        [](TestCalendar& t) { t.calendar.reset(); },
        [](TestCalendar& t) { t.calendar->DateValue(DateOf(Day(2031, 7, 7))); },
        [](TestCalendar& t) { t.calendar->DateMax(DateOf(Day(2018, 1, 1))); },
        [](TestCalendar& t) { t.calendar->Enabled(false); },
        [](TestCalendar& t) { t.calendar->MonthYearSelStyle(VmMonthSelNone); },
        [](TestCalendar& t) { t.calendar->ShowWeekend(false); },
        [](TestCalendar& t) { t.Key(kKeyRight); },
    };
    const std::function<void(TestCalendar&)> inputs[] = {
        [](TestCalendar& t) { t.calendar->DateValue(DateOf(Day(2021, 4, 4))); },
        [](TestCalendar& t) { t.Key(kKeyRight); },
        [](TestCalendar& t) { t.Key(kKeyPageDown); },
        [](TestCalendar& t) {
            t.Press(Day(2021, 1, 2));
            if (t.calendar) t.Release(Day(2021, 1, 2));
        },
        [](TestCalendar& t) { t.calendar->OnMonthListClick(4); },
        [](TestCalendar& t) { t.calendar->OnYearText("2019"); },
        [](TestCalendar& t) { t.calendar->OnYearSpinner(-2019); },
        [](TestCalendar& t) { t.calendar->OnDateScroll(MonthIndex(Day(2022, 2, 2))); },
        [](TestCalendar& t) { t.Paint(); },
    };
    for (const auto& input : inputs) {
        for (const auto& handler : handlers) {
            for (int event = 0; event < 8; ++event) {
                TestCalendar test;
                test.calendar->DateValue(DateOf(Day(2020, 12, 31)));
                test.calendar->MonthYearSelStyle(VmMonthSelCombo);
                int depth = 0;
                const auto act = [&](auto&...) {
                    if (depth++ == 0 && test.calendar) handler(test);
                };
                CalendarEvents& events = test.calendar->Events();
                ConnectNth(event, act, events.DateChanged, events.DayChanged, events.MonthChanged,
                           events.YearChanged, events.KeyDown, events.MouseDown, events.MouseUp);
                if (event == 7) test.whenNotified = [&] { act(); };
                input(test);
                if (!test.calendar) continue;
                EXPECT_EQ(test.BrokenInvariant(), "");
                test.whenNotified = nullptr;
                EXPECT_TRUE(test.Paint().empty());
            }
        }
    }
}

}  // namespace
}  // namespace velmora::test
