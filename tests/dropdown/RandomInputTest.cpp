#include "tests/support/TestBoxes.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

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

TEST(RandomInput, LeavesACalendarWhole) {
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

TEST(RandomInput, LeavesTwoBoxesWhole) {
    std::mt19937 random(31);
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    TestBoxes test;
    for (int step = 0; step < 20'000; ++step) {
        TestBoxes::Box& box = pick(0, 1) == 0 ? test.a : test.b;
        const DayNumber near = DayOf(box.control->DateValue()) + pick(-60, 60);
        try {
            switch (pick(0, 9)) {
                case 0: box.control->DropDownState(pick(0, 1) == 1); break;
                case 1: box.control->DateMax(DateOf(near)); break;
                case 2: box.control->DateMin(DateOf(near)); break;
                case 3: box.control->DateMax(DateOf(Day(4600, 1, 1))); break;
                case 4: box.control->DateMin(DateOf(Day(200, 1, 1))); break;
                case 5: test.PressCalendar(static_cast<float>(pick(-50, 300)), 90); break;
                case 6: test.ReleaseCalendar(static_cast<float>(pick(-50, 300)), 90); break;
                case 7: test.PointAt({pick(0, 600), pick(0, 300)}); break;
                default: test.Key(box, pick(32, 41), pick(0, 7));
            }
        } catch (const AutomationError& refused) {
            ASSERT_EQ(refused.Number(), ErrorNumber::InvalidPropertyValue);
        }
        for (const TestBoxes::Box* each : {&test.a, &test.b}) {
            const VmCalDropDown& c = *each->control;
            ASSERT_TRUE(c.DateMin().value <= DayOf(c.DateValue()) &&
                        DayOf(c.DateValue()) <= c.DateMax().value)
                << step;
            ASSERT_EQ(c.Text(), test.dates.Format(c.DateValue(), "Short Date")) << step;
            ASSERT_EQ(c.DropDownState(), test.form->GetOwner() == &c) << step;
        }
        ASSERT_EQ(test.visible, test.form->GetOwner() != nullptr);
        test.log.clear();
        test.drawing.Forget();
    }
}

}  // namespace
}  // namespace velmora::test
