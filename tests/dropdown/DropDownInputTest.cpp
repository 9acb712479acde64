#include "tests/dropdown/DropDownFixture.h"

#include <algorithm>

namespace velmora::test {
namespace {

TEST_F(DropDown, ADayOfANeighbouringMonthClosesToo) {
    struct Case {
        DayNumber from, clicked;
        std::string events;
    };
    const Case cases[] = {{kMar15, Day(2020, 4, 2), "A DayChanged 2, A MonthChanged 4"},
                          {Day(2020, 3, 29), Day(2020, 2, 29), "A MonthChanged 2"}};
    for (const Case& c : cases) {
        TestBoxes fresh;
        VmCalDropDown& control = *fresh.a.control;
        control.DateValue(DateOf(c.from, 0.5));
        fresh.Key(fresh.a, kKeyF4);
        EXPECT_EQ(fresh.TakeLog().back(), "show 100,72 250x200");
        fresh.ClickDay(c.clicked);
        EXPECT_EQ(Joined(fresh.TakeLog()), "A MouseDown, A DateChanged " + IsoDate(c.clicked) +
                                               ", notify DateValue, " + c.events +
                                               ", A MouseUp, hide, A CloseUp");
        EXPECT_EQ(control.DateValue(), DateOf(c.clicked, 0.5));  // its time stays
        EXPECT_FALSE(fresh.timer || fresh.visible || fresh.calendarWindow.captured ||
                     control.DropDownState());
    }
}

TEST_F(DropDown, ArrowsTurnTheMonthAndKeepItOpen) {
    box.Let(kMonthYearSelStyle, VmMonthSelArrows);
    Open();
    const Rect arrow = test.form->Calendar().Layout().arrows[static_cast<int>(Arrow::MonthForward)];
    const auto x = static_cast<float>(arrow.left + 2);
    const auto y = static_cast<float>(arrow.top + 2);
    box.Events().MonthChanged.Connect(
        [&](std::int16_t&) { box.Days()->Item(30)->Caption("rent"); });
    test.PressCalendar(x, y);
    test.ReleaseCalendar(x, y);
    EXPECT_EQ(test.TakeLog(), (Log{"A MouseDown", "A MonthChanged 4", "A MouseUp"}));
    EXPECT_TRUE(test.visible);
    EXPECT_EQ(test.form->Calendar().Days()->Item(30)->Caption(), "rent");
    EXPECT_EQ(DateOfBox(), kMar15);
    test.Key(test.a, kKeyEscape);
    EXPECT_EQ(box.Days()->Count(), 31);  // those of its own month again
}

TEST_F(DropDown, StepsByKeysOpenAndClosed) {
    struct Case {
        const char* name;
        int key, shift;
        DayNumber from;
        bool showWeekend;
        std::string events;
        DayNumber to;
    };
    const Case cases[] = {
        {"week over the month", kKeyUp, 0, Day(2020, 3, 3), true,
         "A DateChanged 2020-02-25, A DayChanged 25, A MonthChanged 2", Day(2020, 2, 25)},
        {"month back over the year", kKeyPageUp, 0, Day(2020, 1, 31), true,
         "A DateChanged 2019-12-31, A MonthChanged 12, A YearChanged 2019", Day(2019, 12, 31)},
        {"year back", kKeyPageUp, kShiftCtrl, Day(2020, 2, 29), true,
         "A DateChanged 2019-02-28, A DayChanged 28, A YearChanged 2019", Day(2019, 2, 28)},
        {"month", kKeyPageDown, 0, Day(2021, 1, 31), true,
         "A DateChanged 2021-02-28, A DayChanged 28, A MonthChanged 2", Day(2021, 2, 28)},
        {"Friday to Monday", kKeyRight, 0, Day(2020, 3, 13), false,
         "A DateChanged 2020-03-16, A DayChanged 16", Day(2020, 3, 16)},
        {"Monday to Friday", kKeyLeft, 0, Day(2020, 3, 16), false,
         "A DateChanged 2020-03-13, A DayChanged 13", Day(2020, 3, 13)},
        {"beyond DateMax", kKeyRight, 0, Day(2700, 12, 31), true, "", Day(2700, 12, 31)},
        {"beyond DateMin", kKeyLeft, 0, Day(1100, 1, 1), true, "", Day(1100, 1, 1)}};
    for (const Case& c : cases) {
        for (const bool open : {false, true}) {
            SCOPED_TRACE(std::string(c.name) + (open ? ", open" : ", closed"));
            TestBoxes fresh;
            VmCalDropDown& control = *fresh.a.control;
            control.DateValue(DateOf(c.from, 0.25));
            control.Let(kShowWeekend, c.showWeekend);
            if (open) fresh.Key(fresh.a, kKeyF4);
            fresh.TakeLog();
            fresh.Key(fresh.a, c.key, c.shift);
            Log log = fresh.TakeLog();
            std::erase(log, "notify DateValue");
            EXPECT_EQ(Joined(log), Joined({"A KeyDown " + std::to_string(c.key), c.events}));
            EXPECT_EQ(control.DateValue(), DateOf(c.to, 0.25));
            EXPECT_EQ(control.Text(), fresh.dates.Format(DateOf(c.to), "Short Date"));
            EXPECT_EQ(fresh.visible, open);
            EXPECT_TRUE(!open || DayOf(fresh.form->Calendar().SelectedDate()) == c.to);
        }
    }
}

TEST_F(DropDown, KeysOpenAndCloseWithTheirModifiersOnly) {
    struct Case {
        int key, shift;
        bool opensClosed, closesOpen;
    };
    const Case cases[] = {{kKeyF4, 1, false, false},
                          {kKeyUp, kShiftAlt, true, true},
                          {kKeyDown, kShiftAlt | kShiftCtrl, false, false},
                          {kKeyEscape, kShiftCtrl, false, false},
                          {kKeyAlt, kShiftAlt, false, true}};
    for (const Case& c : cases) {
        for (const bool open : {false, true}) {
            TestBoxes fresh;
            if (open) fresh.Key(fresh.a, kKeyF4);
            fresh.Key(fresh.a, c.key, c.shift);
            EXPECT_EQ(fresh.visible, open ? !c.closesOpen : c.opensClosed)
                << c.key << ' ' << c.shift << ' ' << open;
        }
    }
}

TEST_F(DropDown, AKeyInTheCalendarIsOneStepToo) {
    Open();
    std::int16_t key = kKeyRight, shift = 0;
    test.form->Calendar().OnKeyDown(key, shift);
    EXPECT_EQ(DateOfBox(), Day(2020, 3, 16));
    EXPECT_EQ(DayOf(test.form->Calendar().SelectedDate()), Day(2020, 3, 16));
}

TEST_F(DropDown, PressesOutsideCloseAndThePointerMovesTheCapture) {
    test.calendarWindow.cursor = Point{150, 60};  // over the box
    Open();
    EXPECT_TRUE(test.timer);
    EXPECT_TRUE(test.calendarWindow.captured);
    test.PointAt({150, 100});
    EXPECT_FALSE(test.calendarWindow.captured);
    test.PointAt({800, 600});
    EXPECT_TRUE(test.calendarWindow.captured);
    test.calendarWindow.cursor = std::nullopt;
    test.form->OnTimer();
    EXPECT_TRUE(test.calendarWindow.captured);
    test.PressCalendar(400, 300);
    EXPECT_EQ(test.TakeLog(), (Log{"A MouseDown", "hide", "A CloseUp"}));
    EXPECT_FALSE(test.timer || test.calendarWindow.captured);
    test.ReleaseCalendar(400, 300);  // finds no owner
    EXPECT_TRUE(test.TakeLog().empty());
}

TEST_F(DropDown, WhereAButtonGoesDownAndUpDecidesWhetherItCloses) {
    const Point day = [&] { return Open(), test.CenterOf(Day(2020, 3, 18)); }();
    const Point title{120, 8}, outside{400, 300};
    const struct {
        std::int16_t button;
        Point down, up;
        bool openBetween, openAfter;
        DayNumber date;
    } cases[] = {{1, outside, outside, false, false, kMar15},
                 {1, title, title, true, true, kMar15},
                 {1, title, outside, true, false, kMar15},
                 {1, day, outside, true, false, kMar15},
                 {1, day, day, true, false, Day(2020, 3, 18)},
                 {2, outside, outside, true, false, kMar15},
                 {2, day, day, true, true, kMar15}};
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        TestBoxes fresh;
        VmCalendar& calendar = fresh.form->Calendar();
        fresh.Key(fresh.a, kKeyF4);
        calendar.OnMouseDown(c.button, 0, static_cast<float>(c.down.x),
                             static_cast<float>(c.down.y));
        EXPECT_EQ(fresh.visible, c.openBetween);
        if (c.button == 1) fresh.a.control->OnLostFocus();  // which is no end of a left press
        EXPECT_EQ(fresh.visible, c.openBetween);
        calendar.OnMouseUp(c.button, 0, static_cast<float>(c.up.x), static_cast<float>(c.up.y));
        EXPECT_EQ(fresh.visible, c.openAfter);
        EXPECT_EQ(DayOf(fresh.a.control->DateValue()), c.date);
    }
    test.Key(test.a, kKeyRight);  // a day that no button has chosen
    test.form->Calendar().OnMouseDown(2, 0, 120, 8);
    test.form->Calendar().OnMouseUp(2, 0, 120, 8);
    EXPECT_TRUE(test.visible);
}

TEST_F(DropDown, ClosesWhenFocusOrWindowGo) {
    Open();
    box.NoLostFocus(true);
    box.OnLostFocus();
    EXPECT_TRUE(test.visible);
    box.NoLostFocus(false);
    box.OnLostFocus();
    EXPECT_FALSE(test.visible);
    Open();
    box.OnWindowChanged();
    EXPECT_FALSE(test.visible);
    Open();
    box.Enabled(false);
    EXPECT_FALSE(test.visible);
    EXPECT_EQ(test.Key(test.a, kKeyF4), "115");
    EXPECT_TRUE(std::find(test.log.begin(), test.log.end(), "A KeyDown 115") == test.log.end());
    box.Enabled(true);
    Open();
    test.a.control.reset();
    EXPECT_FALSE(test.visible || test.timer || test.calendarWindow.captured);
}

TEST_F(DropDown, StateOpensThroughTheFocusAndACancelledOpeningCountsAsOpen) {
    box.DropDownState(true);
    EXPECT_TRUE(test.visible);
    test.TakeLog();
    box.DropDownState(false);
    EXPECT_EQ(test.TakeLog(), (Log{"hide", "A CloseUp"}));
    box.DropDownState(false);
    EXPECT_EQ(test.TakeLog(), (Log{"A CloseUp"}));

    box.Events().DropDown.Connect([](bool& cancel) { cancel = true; });
    box.DropDownState(true);
    EXPECT_TRUE(box.DropDownState());
    EXPECT_FALSE(test.visible || test.timer);
    test.TakeLog();
    box.DropDownState(false);
    EXPECT_EQ(test.TakeLog(), (Log{"A CloseUp"}));
}

}  // namespace
}  // namespace velmora::test
