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

TEST(CalendarProperties, RefuseBitmapsAsIconsAndOtherDropModes) {
    TestCalendar test;
    CProperties holder(test.dates);
    TestBoxes boxes;
    const auto bitmap = std::make_shared<StdPicture>(PictureType::Bitmap, Size{}, nullptr);
    for (AutomationObject* const object : std::initializer_list<AutomationObject*>{
             test.calendar.get(), &holder, boxes.a.control.get()}) {
        const auto numberOf = [&](const char* name) {
            return NumberOf([&] { object->LetMember(name, ObjectRef(bitmap)); });
        };
        EXPECT_EQ(numberOf("MouseIcon"), ErrorNumber::InvalidPropertyValue);
        EXPECT_EQ(numberOf("Days"), ErrorNumber::MemberNotFound);
        EXPECT_EQ(numberOf("NoSuchName"), ErrorNumber::MemberNotFound);
    }
    for (const int mode : {-1, 3}) {
        const auto refused = static_cast<VmOLEDropModeConstants>(mode);
        EXPECT_EQ(NumberOf([&] { test.calendar->OLEDropMode(refused); }),
                  ErrorNumber::InvalidPropertyValue);
        EXPECT_EQ(NumberOf([&] { boxes.a.control->OLEDropMode(refused); }),
                  ErrorNumber::InvalidPropertyValue);
    }
}

TEST(CalendarProperties, FontsAreKeptByReferenceAndBeginAsSeparateCopies) {
    TestCalendar test;
    VmCalendar& calendar = *test.calendar;
    EXPECT_NE(calendar.DayFont(), calendar.MonthFont());
    EXPECT_NE(calendar.DayFont(), calendar.WeekDayFont());
    EXPECT_NE(calendar.MonthFont(), calendar.WeekDayFont());
    const auto font = std::make_shared<StdFont>();
    calendar.DayFont(font);
    EXPECT_EQ(calendar.DayFont(), font);
    calendar.MonthFont(nullptr);
    test.Paint();
    EXPECT_NE(calendar.MonthFont(), nullptr);  // taken from the container
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

TEST(CalendarProperties, SelectorsAgreeWithTheShownDate) {
    for (const auto style : {VmMonthSelCombo, VmMonthSelScrollbar}) {
        TestCalendar test;
        EXPECT_EQ(test.childrenMade, 0);
        test.calendar->MonthYearSelStyle(style);
        EXPECT_EQ(test.childrenMade, style == VmMonthSelCombo ? 3 : 1);
        EXPECT_EQ(test.monthList.visible, style == VmMonthSelCombo);
        EXPECT_EQ(test.dateScroll.visible, style == VmMonthSelScrollbar);
        const auto shows = [&] {
            return style == VmMonthSelCombo ? test.monthList.shown + ' ' + test.yearText.shown +
                                                  ' ' + test.yearSpinner.shown
                                            : test.dateScroll.shown;
        };
        const auto expect = [&](const char* combo, const char* scroll) {
            EXPECT_EQ(shows(), style == VmMonthSelCombo ? combo : scroll);
        };
        expect("2 2020 -2999..-1000: -2020", "-10799..13200: 1443");
        test.calendar->DateValue(DateOf(Day(1899, 12, 31)));
        expect("11 1899 -2999..-1000: -1899", "-10799..13200: 0");
        test.calendar->DateMin(DateOf(Day(1950, 2, 3)));
        expect("1 1950 -2999..-1950: -1950", "602..13200: 602");
        test.Key(34, 2);  // Ctrl+Page Down
        expect("1 1951 -2999..-1950: -1951", "602..13200: 614");
        test.calendar->MonthYearSelStyle(VmMonthSelNone);
        EXPECT_FALSE(test.monthList.visible || test.yearText.visible || test.yearSpinner.visible ||
                     test.dateScroll.visible);
    }
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
}

}  // namespace
}  // namespace velmora::test
