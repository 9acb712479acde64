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
    const DayNumber min = Day(2020, 2, 1);
    const DayNumber max = Day(2020, 6, 30);
    const std::tuple<const char*, DayNumber, DayNumber> kCases[] = {
        // what is kept, 0 for 380
        {"DateMax", Day(2024, 2, 10), Day(2024, 2, 29)},
        {"DateMax", min, Day(2020, 2, 29)},
        {"DateMax", min - 1, 0},
        {"DateMin", Day(2020, 3, 10), Day(2020, 3, 1)},
        {"DateMin", max, Day(2020, 6, 1)},
        {"DateMin", max + 1, 0}};
    for (const auto& [name, value, kept] : kCases) {
        SCOPED_TRACE(std::string(name) + ' ' + IsoDate(value));
        TestCalendar test;
        test.calendar->DateMax(DateOf(max));
        test.calendar->DateMin(DateOf(min));
        const Variant before = test.calendar->GetMember(name);
        test.TakeLog();
        EXPECT_EQ(NumberOf([&, n = name, v = value] { test.calendar->LetMember(n, DateOf(v)); }),
                  kept ? ErrorNumber{} : ErrorNumber::InvalidPropertyValue);
        EXPECT_EQ(test.calendar->GetMember(name), kept ? Variant(DateOf(kept)) : before);
        EXPECT_EQ(test.BrokenInvariant(), "");
        EXPECT_EQ(test.TakeLog().empty(), !kept);
    }
}

TEST(CalendarProperties, ANewBeginningHasTheFirstValues) {
    TestCalendar test;
    const std::string face = FaceOf(*test.calendar, kCalendarRows);
    ChangeAll(*test.calendar, kCalendarRows);
    for (const PropertyRow& row : kCalendarRows) {  // what lives on the window stays
        if (row.kind != Kind::Pointer && row.kind != Kind::Icon && row.name != "Enabled") continue;
        test.calendar->LetMember(row.name, ValueOf(row, row.initial));
    }
    test.calendar->InitProperties();
    EXPECT_EQ(FaceOf(*test.calendar, kCalendarRows), face);
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
