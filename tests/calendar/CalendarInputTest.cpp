#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <functional>

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

constexpr std::int16_t kEnter = 13, kEscape = 27, kPageUp = 33, kPageDown = 34, kLeft = 37,
                       kUp = 38, kRight = 39, kDown = 40, kCtrl = 2;

struct Start {
    DayNumber selected;
    DayNumber shown;  // another month that has been turned to, or 0
    bool showWeekend;
    DayNumber minimum, maximum;
};

Start From(DayNumber selected, DayNumber shown = 0, bool showWeekend = true,
           DayNumber minimum = Day(1000, 1, 1), DayNumber maximum = Day(2999, 12, 31)) {
    return {selected, shown, showWeekend, minimum, maximum};
}

void Begin(TestCalendar& test, const Start& start) {
    VmCalendar& calendar = *test.calendar;
    calendar.DateMin(DateOf(Day(200, 1, 1)));
    calendar.DateMax(DateOf(Day(4600, 12, 31)));
    calendar.DateValue(DateOf(start.selected));
    calendar.DateMin(DateOf(start.minimum));
    calendar.DateMax(DateOf(start.maximum));
    calendar.ShowWeekend(start.showWeekend);
    if (start.shown != 0) calendar.OnDateScroll(MonthIndex(start.shown));
    test.Paint();
    test.TakeLog();
}

TEST(CalendarKeyboard, MovesTheDateWithExactEvents) {
    struct Case {
        const char* name;
        Start start;
        std::int16_t key, shift;
        std::string events;  // after KeyDown
        DayNumber selected;
        const char* keyOnReturn = "0";
    };
    const DayNumber mar15 = Day(2020, 3, 15);
    const Case cases[] = {
        {"week back over the month", From(Day(2020, 3, 3)), kUp, 0,
         "DateChanged 2020-02-25, DayChanged 25, MonthChanged 2, notify DateValue, repaint",
         Day(2020, 2, 25)},
        {"day over the year", From(Day(2020, 12, 31)), kRight, 0,
         "DateChanged 2021-01-01, DayChanged 1, MonthChanged 1, YearChanged 2021, notify "
         "DateValue, repaint",
         Day(2021, 1, 1)},
        {"Monday beyond the limit",
         From(Day(2020, 1, 31), 0, false, Day(2020, 1, 1), Day(2020, 1, 31)), kRight, 0, "",
         Day(2020, 1, 31), "39"},
        {"onto DateMax", From(Day(2020, 3, 30), 0, true, Day(2020, 3, 1), Day(2020, 3, 31)), kRight,
         0,
         "DateChanged 2020-03-31, DayChanged 31, notify DateValue, repaint cell 2020-03-30, "
         "repaint cell 2020-03-31",
         Day(2020, 3, 31)},
        {"page onto DateMin", From(Day(2020, 4, 1), 0, true, Day(2020, 3, 1)), kPageUp, 0,
         "MonthChanged 3, notify DateValue, repaint", Day(2020, 3, 1)},
        {"at DateMax", From(Day(2020, 3, 31), 0, true, Day(2020, 1, 1), Day(2020, 3, 31)), kDown, 0,
         "", Day(2020, 3, 31), "40"},
        {"at DateMin", From(Day(2020, 3, 1), 0, true, Day(2020, 3, 1)), kLeft, 0, "",
         Day(2020, 3, 1), "37"},
        {"first day of 200", From(Day(200, 1, 1), 0, true, Day(200, 1, 1)), kLeft, 0, "",
         Day(200, 1, 1), "37"},
        {"last day of 4600", From(Day(4600, 12, 31), 0, true, mar15, Day(4600, 12, 31)), kRight, 0,
         "", Day(4600, 12, 31), "39"},
        {"page from 31 January", From(Day(2021, 1, 31)), kPageDown, 0,
         "MonthChanged 2, notify DateValue, repaint", Day(2021, 2, 28)},
        {"page over the year", From(Day(2020, 1, 31)), kPageUp, 0,
         "MonthChanged 12, notify DateValue, repaint", Day(2019, 12, 31)},
        {"year from 29 February", From(Day(2000, 2, 29)), kPageUp, kCtrl,
         "YearChanged 1999, notify DateValue, repaint", Day(1999, 2, 28)},
        {"page beyond DateMin", From(mar15, 0, true, Day(2020, 3, 1)), kPageUp, 0, "", mar15, "33"},
        {"year beyond DateMax", From(mar15, 0, true, Day(2020, 1, 1), Day(2021, 2, 28)), kPageDown,
         kCtrl, "", mar15, "34"},
        {"page from the shown month", From(mar15, Day(2020, 6, 1)), kPageDown, 0,
         "MonthChanged 7, notify DateValue, repaint", Day(2020, 7, 15)},
        {"day while another month is shown", From(mar15, Day(2020, 6, 1)), kRight, 0,
         "DateChanged 2020-03-16, DayChanged 16, notify DateValue", Day(2020, 3, 16)},
        {"month while another month is shown", From(Day(2020, 3, 31), Day(2020, 6, 1)), kRight, 0,
         "DateChanged 2020-04-01, DayChanged 1, MonthChanged 4, notify DateValue, repaint",
         Day(2020, 4, 1)}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestCalendar test;
        Begin(test, c.start);
        EXPECT_EQ(test.Key(c.key, c.shift), c.keyOnReturn);
        const std::string down = "KeyDown " + std::to_string(c.key);
        EXPECT_EQ(Joined(test.TakeLog()), Joined({down + ' ' + std::to_string(c.shift), c.events}));
        EXPECT_EQ(IsoDate(DayOf(test.calendar->SelectedDate())), IsoDate(c.selected));
        EXPECT_EQ(test.BrokenInvariant(), "");
    }
}

TEST(CalendarKeyboard, TheHostMayChangeTheKey) {
    TestCalendar test;
    std::int16_t replacement = 0;
    test.calendar->Events().KeyDown.Connect(
        [&](std::int16_t& key, std::int16_t&) { key = replacement; });
    EXPECT_EQ(test.Key(kRight), "39");  // nothing left to do: the key goes on as it came
    replacement = kDown;
    EXPECT_EQ(test.Key(65), "0");
    test.calendar->DateMax(DateOf(Day(2020, 3, 22)));
    test.calendar->DateValue(DateOf(Day(2020, 3, 30)));
    EXPECT_EQ(test.Key(65), "40");  // refused: the handler's own value stays
}

TEST(CalendarKeyboard, DoesNothingWhileDisabledOrWhileTheListIsOpen) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelCombo);
    test.monthList.dropped = true;
    test.TakeLog();
    EXPECT_EQ(test.Key(kRight), "39");
    EXPECT_EQ(test.TakeLog(), (Log{"KeyDown 39 0"}));
    test.enabled = false;
    EXPECT_EQ(test.Key(kRight), "39");
    std::int16_t key = 65, shift = 0;
    test.calendar->OnKeyPress(key);
    test.calendar->OnKeyUp(key, shift);
    EXPECT_TRUE(test.TakeLog().empty());
}

TEST(CalendarMouse, AClickSelectsWithExactEvents) {
    struct Case {
        const char* name;
        Start start;
        DayNumber clicked;
        std::string events;
        DayNumber selected;
    };
    const DayNumber mar15 = Day(2020, 3, 15);
    const Case cases[] = {
        {"same number in the month before", From(Day(2020, 3, 29)), Day(2020, 2, 29),
         "DateChanged 2020-02-29, MonthChanged 2, notify DateValue, repaint", Day(2020, 2, 29)},
        {"year before", From(Day(2020, 1, 5)), Day(2019, 12, 31),
         "DateChanged 2019-12-31, DayChanged 31, MonthChanged 12, YearChanged 2019, notify "
         "DateValue, repaint",
         Day(2019, 12, 31)},
        {"beyond the limits", From(mar15, 0, true, Day(2020, 3, 1)), Day(2020, 2, 28), "", mar15}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestCalendar test;
        Begin(test, c.start);
        const Point at = test.CenterOf(c.clicked);
        test.Press(c.clicked);
        const Log pressed = test.TakeLog();
        EXPECT_EQ(pressed.front(), "capture");
        EXPECT_EQ(pressed.back(), "MouseDown 1");
        test.calendar->OnMouseUp(1, 0, static_cast<float>(at.x), static_cast<float>(at.y));
        Log log = test.TakeLog();
        // The choice goes before the events: its cells, and the capture.
        while (!log.empty() && log.front().rfind("repaint", 0) == 0) log.erase(log.begin());
        ASSERT_EQ(log.front(), "release capture");
        log.erase(log.begin());
        EXPECT_EQ(Joined(log), Joined({c.events, "MouseUp 1"}));
        EXPECT_EQ(IsoDate(DayOf(test.calendar->SelectedDate())), IsoDate(c.selected));
        EXPECT_EQ(test.BrokenInvariant(), "");
    }
}

TEST(CalendarMouse, AHeldButtonShowsTheChoiceAndGivesItBack) {
    TestCalendar test;
    Begin(test, From(Day(2020, 3, 15), 0, true, Day(2020, 3, 1)));
    test.Press(Day(2020, 3, 10));
    EXPECT_EQ(test.TakeLog(), (Log{"capture", "repaint cell 2020-03-10", "repaint cell 2020-03-15",
                                   "MouseDown 1"}));
    test.MoveTo(Day(2020, 3, 11));
    EXPECT_EQ(test.TakeLog(),
              (Log{"repaint cell 2020-03-10", "repaint cell 2020-03-11", "MouseMove 1"}));
    test.MoveTo(Day(2020, 3, 11));
    EXPECT_EQ(test.TakeLog(), (Log{"MouseMove 1"}));
    test.MoveTo(Day(2020, 2, 29));  // outside the limits
    EXPECT_EQ(test.TakeLog(),
              (Log{"repaint cell 2020-03-11", "repaint cell 2020-03-15", "MouseMove 1"}));
    test.MoveTo(Day(2020, 3, 12));
    test.TakeLog();
    for (const std::string how : {"lost capture", "escape", "disabled"}) {
        test.Press(Day(2020, 3, 12));
        test.TakeLog();
        if (how == "lost capture") test.calendar->OnCaptureLost();
        if (how == "escape") test.Key(kEscape);
        if (how == "disabled") test.calendar->Enabled(false);
        const Log log = test.TakeLog();
        EXPECT_NE(std::find(log.begin(), log.end(), "repaint cell 2020-03-12"), log.end()) << how;
        EXPECT_NE(std::find(log.begin(), log.end(), "repaint cell 2020-03-15"), log.end()) << how;
        test.Release(Day(2020, 3, 12));
        EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2020, 3, 15)) << how;
        test.calendar->Enabled(true);
    }
}

TEST(CalendarMouse, MovingWithoutAButtonPaintsNothing) {
    TestCalendar test;
    Begin(test, From(Day(2020, 3, 15)));
    for (int x = 0; x < 252; x += 3) test.calendar->OnMouseMove(0, 0, static_cast<float>(x), 80);
    for (const std::string& entry : test.TakeLog()) EXPECT_EQ(entry, "MouseMove 0");
}

TEST(CalendarMouse, ArrowsStepTheShownMonthInsideTheLimits) {
    struct Case {
        Arrow arrow;
        Start start;
        std::string events;
        DayNumber shown;
    };
    const Case cases[] = {
        {Arrow::YearBack, From(Day(2020, 3, 15)), "YearChanged 2019, repaint", Day(2019, 3, 15)},
        {Arrow::YearForward, From(Day(2020, 2, 29)), "YearChanged 2021, repaint", Day(2021, 2, 28)},
        {Arrow::MonthBack, From(Day(2020, 1, 31)), "MonthChanged 12, YearChanged 2019, repaint",
         Day(2019, 12, 31)},
        {Arrow::MonthForward, From(Day(2020, 1, 31)), "MonthChanged 2, repaint", Day(2020, 2, 29)},
        {Arrow::MonthBack, From(Day(2020, 3, 15), 0, true, Day(2020, 3, 1)), "", Day(2020, 3, 15)},
        {Arrow::YearForward, From(Day(2020, 3, 15), 0, true, Day(2020, 3, 1), Day(2021, 2, 28)), "",
         Day(2020, 3, 15)}};
    for (const Case& c : cases) {
        TestCalendar test;
        test.calendar->MonthYearSelStyle(VmMonthSelArrows);
        Begin(test, c.start);
        const Rect arrow = test.calendar->Layout().arrows[static_cast<std::size_t>(c.arrow)];
        const auto x = static_cast<float>(arrow.left);
        const auto y = static_cast<float>(arrow.top);
        const auto looksPressed = [&] {
            test.drawing.Forget();
            test.Paint();
            for (const auto state : test.drawing.frameStates) {
                if ((state & kFramePushed) != 0) return true;
            }
            return false;
        };
        test.calendar->OnMouseDown(1, 0, x, y);
        EXPECT_TRUE(looksPressed());
        test.calendar->OnMouseMove(1, 0, x, 150);
        EXPECT_FALSE(looksPressed());
        test.calendar->OnMouseMove(1, 0, x, y);
        EXPECT_TRUE(looksPressed());
        test.TakeLog();
        test.calendar->OnMouseUp(1, 0, x, y);
        EXPECT_EQ(Joined(test.TakeLog()),
                  Joined({"repaint band", "release capture", c.events, "MouseUp 1"}));
        EXPECT_FALSE(looksPressed());
        EXPECT_EQ(IsoDate(DayOf(test.calendar->ShownDate())), IsoDate(c.shown));
        EXPECT_EQ(DayOf(test.calendar->SelectedDate()), c.start.selected);
        EXPECT_EQ(test.BrokenInvariant(), "");
    }
}

TEST(CalendarMouse, AClickWorksBeforeTheFirstPaint) {
    TestCalendar test;
    test.Clicks(Day(2020, 3, 20));
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2020, 3, 20));
}

/// What the user does with a selector, and what follows.
TEST(CalendarSelectors, MoveTheShownDateWithExactEvents) {
    using Act = std::function<void(VmCalendar&)>;
    const auto list = [](int index) {
        return Act([=](VmCalendar& c) { c.OnMonthListClick(index); });
    };
    const auto year = [](const char* text) {
        return Act([=](VmCalendar& c) { c.OnYearText(text); });
    };
    const auto spin = [](int y) { return Act([=](VmCalendar& c) { c.OnYearSpinner(-y); }); };
    const auto scroll = [](DayNumber to) {
        return Act([=](VmCalendar& c) { c.OnDateScroll(MonthIndex(to)); });
    };
    struct Case {
        const char* name;
        Start start;
        Act act;
        std::string events;
        DayNumber shown;
    };
    const DayNumber jan31 = Day(2021, 1, 31);
    const Start narrow = From(Day(2020, 3, 15), 0, true, Day(2020, 2, 1), Day(2021, 6, 30));
    const Case cases[] = {
        {"list", From(jan31), list(1), "DateChanged 2021-02-28, MonthChanged 2, repaint",
         Day(2021, 2, 28)},
        {"list, same month", From(jan31), list(0), "", jan31},
        {"list, beyond the limits", narrow, list(0), "", Day(2020, 3, 15)},
        {"list, no item", narrow, list(12), "", Day(2020, 3, 15)},
        {"year, the same", From(jan31), year(" 2021 "), "", jan31},
        {"year, beyond the limits", narrow, year("2022"), "YearChanged 2020", Day(2020, 3, 15)},
        {"year, empty", narrow, year(""), "YearChanged 2020", Day(2020, 3, 15)},
        {"year, letters", narrow, year("12x"), "YearChanged 2020", Day(2020, 3, 15)},
        {"year, too large", narrow, year("99999"), "YearChanged 2020", Day(2020, 3, 15)},
        {"spinner", From(jan31), spin(2022), "YearChanged 2022, repaint", Day(2022, 1, 31)},
        {"spinner, the same", From(jan31), spin(2021), "repaint", jan31},
        {"spinner, over a limit inside its year",
         From(Day(2020, 12, 15), 0, true, Day(2020, 2, 1), Day(2021, 6, 30)), spin(2021),
         "YearChanged 2021, repaint", Day(2021, 12, 15)},
        {"scroll over the year", From(jan31), scroll(Day(2020, 12, 1)),
         "MonthChanged 12, YearChanged 2020, repaint", Day(2020, 12, 31)},
        {"scroll, beyond the limits", narrow, scroll(Day(2030, 1, 1)),
         "MonthChanged 6, YearChanged 2021, repaint", Day(2021, 6, 15)}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestCalendar test;
        test.calendar->MonthYearSelStyle(VmMonthSelCombo);
        Begin(test, c.start);
        c.act(*test.calendar);
        EXPECT_EQ(Joined(test.TakeLog()), c.events);
        const CivilDate shown = CivilOf(DayOf(test.calendar->ShownDate()));
        EXPECT_EQ(IsoDate(DayOf(test.calendar->ShownDate())), IsoDate(c.shown));
        EXPECT_EQ(DayOf(test.calendar->SelectedDate()), c.start.selected);
        EXPECT_EQ(test.BrokenInvariant(), "");
        EXPECT_EQ(test.yearText.shown, std::to_string(shown.year));
        EXPECT_EQ(test.monthList.shown, std::to_string(shown.month - 1));
    }
}

TEST(CalendarSelectors, EscapeInTheListCancelsUntilItsKeyIsReleased) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelCombo);
    Begin(test, From(Day(2020, 3, 15)));
    test.monthList.dropped = true;
    test.calendar->OnMonthListClick(6);  // while it is open nothing counts
    test.monthList.dropped = false;
    test.calendar->OnMonthListKeyDown(kEscape);
    test.calendar->OnMonthListClick(6);
    test.calendar->OnMonthListKeyDown(kEnter);
    test.calendar->OnYearText("1999");
    EXPECT_TRUE(test.TakeLog().empty());
    test.calendar->OnSelectorEnter();
    test.calendar->OnMonthListKeyDown(kEnter);
    EXPECT_EQ(test.TakeLog(), (Log{"MonthChanged 3", "repaint"}));
    test.calendar->OnMonthListKeyDown(kEscape);
    test.calendar->OnMonthListKeyUp(kEscape);
    EXPECT_EQ(test.TakeLog(), (Log{"MonthChanged 3"}));
    test.calendar->OnMonthListClick(6);
    EXPECT_EQ(test.TakeLog(), (Log{"DateChanged 2020-07-15", "MonthChanged 7", "repaint"}));
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
