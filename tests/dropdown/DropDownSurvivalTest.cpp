#include "tests/dropdown/DropDownFixture.h"

#include <functional>
#include <random>

namespace velmora::test {
namespace {

/// A handler of any event does its worst in the middle of any sequence.
TEST(DropDownHandlers, AreAllSurvived) {
    const std::function<void(TestBoxes&)> handlers[] = {
        [](TestBoxes& t) { t.a.control.reset(); },
        [](TestBoxes& t) { t.a.control->CloseDropDown(); },
        [](TestBoxes& t) { t.a.control->DropDownState(true); },
        [](TestBoxes& t) { t.a.control->DateValue(DateOf(Day(2031, 7, 7))); },
        [](TestBoxes& t) { t.a.control->Enabled(false); },
        [](TestBoxes& t) { t.Key(t.b, kKeyF4); },
    };
    const std::function<void(TestBoxes&)> inputs[] = {
        [](TestBoxes& t) { t.Key(t.a, kKeyF4); },
        [](TestBoxes& t) { t.Key(t.a, kKeyPageDown, kShiftCtrl); },
        [](TestBoxes& t) {
            t.Key(t.a, kKeyF4), t.a.control ? t.ClickDay(Day(2020, 4, 2)) : void();
        },
        [](TestBoxes& t) { t.Key(t.a, kKeyF4), t.PressCalendar(900, 900); },
        [](TestBoxes& t) {
            t.Key(t.a, kKeyF4);
            if (t.a.control) t.Key(t.a, kKeyDown);
            if (t.a.control) t.a.control->OnLostFocus();
        },
    };
    for (const auto& input : inputs) {
        for (const auto& handler : handlers) {
            for (int event = 0; event < 9; ++event) {
                TestBoxes test;
                int depth = 0;
                const auto act = [&](auto&&...) {
                    if (depth++ == 0 && test.a.control) handler(test);
                };
                DropDownEvents& events = test.a.control->Events();
                ConnectNth(event, act, events.CloseUp, events.DropDown, events.DateChanged,
                           events.DayChanged, events.MonthChanged, events.YearChanged,
                           events.KeyDown, events.MouseDown, events.MouseUp);
                input(test);
                if (test.a.control && !test.a.control->DropDownState() &&
                    !test.b.control->DropDownState()) {
                    EXPECT_FALSE(test.visible || test.timer || test.calendarWindow.captured)
                        << "input " << &input - inputs << ", handler " << &handler - handlers
                        << ", event " << event;
                }
            }
        }
    }
}

TEST(DropDownWalk, HoldsItsInvariants) {
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
