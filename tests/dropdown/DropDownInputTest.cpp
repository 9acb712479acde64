#include "tests/dropdown/DropDownFixture.h"

#include <algorithm>

namespace velmora::test {
namespace {

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
    test.PressCalendar(120, 8);
    test.PointAt({150, 100});
    EXPECT_TRUE(test.calendarWindow.captured) << "a press keeps it";
    test.ReleaseCalendar(120, 8);
    test.TakeLog();
    test.calendarWindow.captured = true;
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

TEST_F(DropDown, KeepsItsTimeAndClosesOnlyByTheKeysAsTheyAre) {
    box.DateValue(DateOf(kMar15, 0.25));
    test.Key(test.a, kKeyRight);
    EXPECT_EQ(box.DateValue(), DateOf(Day(2020, 3, 16), 0.25));
    Open();
    test.Key(test.a, kKeyLeft);
    test.ClickDay(Day(2020, 3, 20));
    EXPECT_EQ(box.DateValue(), DateOf(Day(2020, 3, 20), 0.25));
    test.Key(test.a, kKeyDown, kShiftAlt | kShiftCtrl);
    EXPECT_FALSE(test.visible);
}

TEST_F(DropDown, ClosesWhenItsWindowGoesUnlessTheFocusMayGo) {
    Open();
    box.NoLostFocus(true);
    box.OnLostFocus();
    EXPECT_TRUE(test.visible);
    box.OnWindowChanged();
    EXPECT_FALSE(test.visible);
    Open();
    box.OnLostFocus();
    EXPECT_FALSE(test.visible) << "the permission is over";
    Open();
    test.form->OnPaint(StrictDrawing::kWindowSurface, {});
    EXPECT_EQ(test.TakeLog(), Log()) << "the first paint is no news";
    const Point day = test.CenterOf(Day(2020, 3, 20));
    test.PressCalendar(static_cast<float>(day.x), static_cast<float>(day.y));
    test.Key(test.a, kKeyEscape);
    Open();
    test.ReleaseCalendar(static_cast<float>(day.x), static_cast<float>(day.y));
    EXPECT_EQ(DateOfBox(), kMar15) << "the press went with the window";
    test.a.control.reset();
    EXPECT_EQ(test.BrokenInvariant(), "");
}

}  // namespace
}  // namespace velmora::test
