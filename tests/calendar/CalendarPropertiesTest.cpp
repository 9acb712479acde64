#include "calendar/CProperties.h"
#include "tests/support/PropertyCases.h"
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

TEST(CalendarProperties, AFontThatIsTakenAwayIsTheContainers) {
    TestCalendar test;
    test.calendar->MonthFont(nullptr);
    test.Paint();
    EXPECT_NE(test.calendar->MonthFont(), nullptr);
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

}  // namespace
}  // namespace velmora::test
