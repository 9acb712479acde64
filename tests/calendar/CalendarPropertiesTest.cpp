#include "calendar/CProperties.h"
#include "tests/support/PropertyCases.h"
#include "tests/support/TestBoxes.h"
#include "tests/support/TestCalendar.h"

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;
using Rects = std::vector<std::optional<Rect>>;

const double kNow = Day(2020, 3, 15);

double InitialOf(const PropertyRow& row) { return row.initial == kToday ? kNow : row.initial; }

Rects RepaintedBy(const PropertyRow& row, VmCalendar& calendar) {
    switch (row.repaint) {
        case Repaint::Nothing: return {};
        case Repaint::MonthBand: return {calendar.Layout().MonthBand()};
        case Repaint::WeekDayRow: return {calendar.Layout().WeekDayRow()};
        case Repaint::Whole: break;
    }
    return {std::nullopt};
}

TEST(CalendarProperties, StoreNotifyAndRepaintOrRefuse) {
    for (const PropertyRow& row : kCalendarRows) {
        SCOPED_TRACE(row.name);
        TestCalendar test;
        EXPECT_EQ(ReadBack(*test.calendar, row), InitialOf(row));
        test.TakeLog();
        ExpectTakesAndRefuses(*test.calendar, row, [&](bool changes) {
            const Rects repainted = std::exchange(test.drawing.invalidated, {});
            EXPECT_EQ(repainted, changes ? RepaintedBy(row, *test.calendar) : Rects());
            Log log = test.TakeLog();
            std::erase_if(log, [](const auto& entry) { return !entry.starts_with("notify"); });
            EXPECT_EQ(log, changes ? Log{"notify " + std::string(row.name)} : Log());
        });
    }
}

TEST(CProperties, BeginsAndRefusesAsTheCalendar) {
    const Dates dates(std::make_shared<DateLocale>(), [] { return Date(kNow + 0.5); });
    for (PropertyRow row : kCalendarRows) {
        SCOPED_TRACE(row.name);
        CProperties holder(dates);
        if (row.kind == Kind::Day) row.kind = Kind::Moment;  // moved to the limits
        EXPECT_EQ(ReadBack(holder, row), row.kind == Kind::Font ? 0 : InitialOf(row));
        ExpectTakesAndRefuses(holder, row, [](bool) {});
    }
}

TEST(CalendarProperties, RefuseOtherMembersAndDropModes) {
    TestCalendar test;
    TestBoxes boxes;
    const auto refuse = [](auto& control) {
        for (const char* name : {"Days", "NoSuchName"}) {
            EXPECT_EQ(NumberOf([&] { control.LetMember(name, 1.0); }), ErrorNumber::MemberNotFound);
        }
        for (const int mode : {-1, 3}) {
            const auto refused = static_cast<VmOLEDropModeConstants>(mode);
            EXPECT_EQ(NumberOf([&] { control.OLEDropMode(refused); }),
                      ErrorNumber::InvalidPropertyValue);
        }
    };
    refuse(*test.calendar);
    refuse(*boxes.a.control);
    test.calendar->MonthFont(nullptr);
    test.Paint();
    EXPECT_NE(test.calendar->MonthFont(), nullptr);  // taken from the container
}

TEST(CalendarProperties, LimitsRoundToWholeMonthsAndRefuseWhatCrosses) {
    struct Case {
        const char* name;
        bool maximum;
        DayNumber value;
        bool accepted;
        DayNumber stored;
    };
    const DayNumber min = Day(2020, 2, 1);
    const DayNumber max = Day(2020, 6, 30);
    const Case cases[] = {
        {"last of the month", true, Day(2024, 2, 10), true, Day(2024, 2, 29)},
        {"in the month of DateMin", true, Day(2020, 2, 1), true, Day(2020, 2, 29)},
        {"before DateMin", true, Day(2020, 1, 31), false, max},
        {"first of the month", false, Day(2020, 3, 10), true, Day(2020, 3, 1)},
        {"in the month of DateMax", false, Day(2020, 6, 30), true, Day(2020, 6, 1)},
        {"after DateMax", false, Day(2020, 7, 1), false, min}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestCalendar test;
        test.calendar->DateMax(DateOf(max));
        test.calendar->DateMin(DateOf(min));
        test.TakeLog();
        const ErrorNumber number = NumberOf([&] {
            c.maximum ? test.calendar->DateMax(DateOf(c.value))
                      : test.calendar->DateMin(DateOf(c.value));
        });
        EXPECT_EQ(number, c.accepted ? ErrorNumber{} : ErrorNumber::InvalidPropertyValue);
        EXPECT_EQ(DayOf(c.maximum ? test.calendar->DateMax() : test.calendar->DateMin()), c.stored);
        EXPECT_EQ(test.BrokenInvariant(), "");
        EXPECT_EQ(test.TakeLog().empty(), !c.accepted);
    }
}

TEST(CalendarProperties, ALimitMovesTheDateSilently) {
    TestCalendar test;
    test.Paint();
    test.calendar->Days()->Item(3)->Caption("gone");
    test.TakeLog();
    test.calendar->DateMax(DateOf(Day(2019, 12, 5)));
    EXPECT_EQ(test.TakeLog(), (Log{"notify DateValue", "notify DateMax"}));
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2019, 12, 31));
    EXPECT_EQ(test.BrokenInvariant(), "");
    EXPECT_EQ(test.calendar->Days()->Item(3)->Caption(), "");

    test.calendar->DateMax(DateOf(Day(2999, 1, 1)));
    test.TakeLog();
    test.calendar->DateMin(DateOf(Day(2021, 5, 20)));
    EXPECT_EQ(test.TakeLog(), (Log{"notify DateValue", "notify DateMin"}));
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2021, 5, 1));
    EXPECT_EQ(test.BrokenInvariant(), "");
}

TEST(CalendarProperties, ADisabledCalendarForgetsThePress) {
    TestCalendar test;
    test.Press(Day(2020, 3, 20));
    test.calendar->Enabled(false);
    test.calendar->Enabled(true);
    test.Release(Day(2020, 3, 20));
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2020, 3, 15));
}

TEST(CalendarProperties, SelectorsAreMadeAnewForAnotherWindow) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelCombo);
    test.Paint();
    test.calendar->OnYearText("2021");
    test.TakeLog();
    test.calendar->OnWindowRecreated();
    EXPECT_EQ(test.calendar->cboMonthhwnd(), WindowHandle::None);
    test.monthList = test.yearText = test.yearSpinner = {};
    EXPECT_EQ(test.TakeLog(), Log{"repaint"});
    test.Paint();
    EXPECT_EQ(test.childrenMade, 6);
    EXPECT_TRUE(test.monthList.visible && test.yearText.visible && test.yearSpinner.visible);
    EXPECT_EQ(test.monthList.shown + ' ' + test.yearText.shown + ' ' + test.yearSpinner.shown,
              "2 2021 -2999..-1000: -2021");
    test.calendar->MonthYearSelStyle(VmMonthSelNone);
    EXPECT_FALSE(test.monthList.visible || test.yearText.visible || test.yearSpinner.visible);
}

}  // namespace
}  // namespace velmora::test
