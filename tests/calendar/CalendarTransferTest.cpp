#include "calendar/CProperties.h"
#include "tests/support/PropertyCases.h"
#include "tests/support/TestCalendar.h"

namespace velmora::test {

static VmCalendar& ControlOf(TestCalendar& test) { return *test.calendar; }

namespace {

using Log = std::vector<std::string>;

TEST(CalendarSaving, WritesEachRowInItsForm) {
    TestCalendar test;
    ExpectSavedForms(*test.calendar, kCalendarRows);
    RecordingBag bag;
    test.calendar->ReadProps(bag);
    EXPECT_EQ(bag.reads.size(), 35u);  // the day colours twice
}

TEST(CalendarSaving, EachRowComesBack) { ExpectEachComesBack<TestCalendar>(kCalendarRows); }

TEST(CalendarSaving, WronglyTypedValuesGiveTheDefaults) {
    ExpectDefaultsForWrongTypes<TestCalendar>(kCalendarRows, Day(2020, 3, 15));
}

TEST(CalendarSaving, ReadsAsANewCalendarWithoutChecks) {
    TestCalendar test;
    test.calendar->AlwaysDateChanged(true);
    MemoryBag bag;
    for (const PropertyRow& row : kCalendarRows) {
        if (row.kind == Kind::Choice) bag.WriteProperty(row.Key(), row.high + 1, Variant());
    }
    bag.WriteProperty("DateValue", Date(Day(2021, 2, 3) + 0.75), Variant());
    test.TakeLog();
    test.calendar->ReadProps(bag);
    EXPECT_EQ(test.TakeLog(), (Log{"MonthChanged 2", "repaint"}));
    EXPECT_EQ(DayOf(test.calendar->ShownDate()), Day(2021, 2, 3));
    EXPECT_EQ(test.BrokenInvariant(), "");
    EXPECT_NE(test.calendar->DayFont(), test.calendar->MonthFont());
    EXPECT_NE(test.calendar->DayFont(), test.calendar->WeekDayFont());
    for (const PropertyRow& row : kCalendarRows) {
        if (row.kind == Kind::Choice) {
            EXPECT_EQ(ReadBack(*test.calendar, row), row.high + 1) << row.name;
        }
    }
    EXPECT_TRUE(test.Paint().empty());

    MemoryBag empty;
    test.calendar->ReadProps(empty);
    test.Paint();
    test.TakeLog();
    test.Clicks(Day(2020, 3, 15));
    EXPECT_NE(Joined(test.TakeLog()).find("DayChanged 15"), std::string::npos);
}

TEST(CalendarTransfer, CopiesEachRowAlone) {
    for (const PropertyRow& row : kCalendarRows) {
        for (const double number : {row.low, row.high}) {
            SCOPED_TRACE(row.name);
            TestCalendar test, expected;
            CProperties holder(test.dates);
            holder.LetMember(row.name, ValueOf(row, number));
            if (row.copied) expected.calendar->LetMember(row.name, ValueOf(row, number));
            test.TakeLog();
            test.calendar->SetProps(holder);
            EXPECT_EQ(FaceOf(*test.calendar, kCalendarRows),
                      FaceOf(*expected.calendar, kCalendarRows));
            const Log log = test.TakeLog();
            EXPECT_EQ(std::ranges::count(log, "repaint"), 1);
            EXPECT_EQ(log.back(), "repaint");
        }
    }
}

TEST(CalendarTransfer, CopiesTheWholeDecorationOfDirtyDays) {
    TestCalendar test;
    CProperties holder(test.dates);
    for (const DayRef& day : {test.calendar->Days()->Item(5), test.calendar->Days()->Item(6),
                              test.calendar->Days()->Item(7)})
        day->Caption("its own");
    const DayRef from = holder.Days()->Item(5);
    const PictureRef picture = IconOf(1, 1);
    from->Caption("copied");
    from->BackColor(std::int32_t{0x0000FF});
    from->ForeColor(Null{});
    from->Picture(picture);
    holder.Days()->Item(6)->ForeColor(std::int32_t{0});
    test.calendar->SetProps(holder);
    const DayRef to = test.calendar->Days()->Item(5);
    EXPECT_EQ(to->Caption(), "copied");
    EXPECT_EQ(to->BackColor(), Variant(std::int32_t{0x0000FF}));
    EXPECT_EQ(to->ForeColor(), Variant(Null{}));
    EXPECT_EQ(to->Picture(), picture);
    EXPECT_EQ(test.calendar->Days()->Item(6)->Caption(), "");
    EXPECT_EQ(test.calendar->Days()->Item(7)->Caption(), "its own");
}

TEST(CalendarTransfer, DisjointRangesGoThroughInBothDirections) {
    for (const bool forward : {true, false}) {
        TestCalendar test;
        CProperties holder(test.dates);
        const int target = forward ? 2000 : 1990;
        const int source = forward ? 1990 : 2000;
        test.calendar->DateMin(DateOf(Day(target, 1, 1)));
        test.calendar->DateMax(DateOf(Day(target + 5, 12, 31)));
        holder.DateMin(DateOf(Day(source, 1, 1)));
        holder.DateMax(DateOf(Day(source + 5, 12, 31)));
        holder.DateValue(DateOf(Day(source + 3, 4, 5)));
        test.calendar->SetProps(holder);
        EXPECT_EQ(DayOf(test.calendar->DateMin()), Day(source, 1, 1));
        EXPECT_EQ(DayOf(test.calendar->DateMax()), Day(source + 5, 12, 31));
        EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(source + 3, 4, 5));
        EXPECT_EQ(test.BrokenInvariant(), "");
    }
}

TEST(CalendarTransfer, SkipsWhatIsMissingOrRefusedAndReportsTheFirst) {
    class Holder : public AutomationObject {
    public:
        Variant GetMember(std::string_view name) const override {
            if (name == "FirstDayOfWeek") return std::int32_t{9};
            if (name == "MonthDisplay") return std::int16_t{1};
            if (name == "DateValue") return Date(43000);
            if (name == "WeekDayForeColor") return std::int32_t{0x01000000};  // refused as the last
            throw AutomationError(ErrorNumber::MemberNotFound);
        }
        void LetMember(std::string_view, const Variant&) override {}
    };
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelScrollbar);
    for (int i = 0; i < 2; ++i) {  // the second one moves no date
        test.dateScroll.shown = "moved by the user";
        EXPECT_EQ(NumberOf([&] { test.calendar->SetProps(Holder()); }),
                  ErrorNumber::MemberNotFound);
        EXPECT_EQ(test.dateScroll.shown, "-10799..13200: 1413");  // September 2017
    }
    EXPECT_EQ(test.calendar->FirstDayOfWeek(), VmSunday);
    EXPECT_EQ(test.calendar->MonthDisplay(), VmMonthAbbrName);
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), 43000);
    EXPECT_EQ(test.TakeLog().back(), "repaint");
}

TEST(CProperties, ClipsItsDateAndKeepsItsDaysInStep) {
    TestCalendar test;
    CProperties holder(test.dates);
    holder.Days()->Item(15)->Caption("kept");
    holder.DateValue("3/20/2020 18:00");
    EXPECT_EQ(holder.DateValue(), DateOf(Day(2020, 3, 20), 0.75));
    EXPECT_EQ(holder.Days()->Item(15)->Caption(), "kept");
    holder.DateMax(DateOf(Day(2019, 2, 5)));
    EXPECT_EQ(DayOf(holder.DateValue()), Day(2019, 2, 28));
    EXPECT_EQ(holder.Days()->Count(), 28);
    holder.DateValue(DateOf(Day(2030, 1, 1)));
    EXPECT_EQ(DayOf(holder.DateValue()), Day(2019, 2, 28));
    holder.DateMin(DateOf(Day(2019, 2, 1)));
    holder.DateValue(Date(1));
    EXPECT_EQ(DayOf(holder.DateValue()), Day(2019, 2, 1));
}

}  // namespace
}  // namespace velmora::test
