#include "calendar/CProperties.h"
#include "tests/support/PropertyCases.h"
#include "tests/support/TestCalendar.h"

namespace velmora::test {

static VmCalendar& ControlOf(TestCalendar& test) { return *test.calendar; }

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
    test.TakeLog();
    ExpectKeepsWhatIsStored(*test.calendar, kCalendarRows);
    EXPECT_EQ(test.TakeLog(), (Log{"MonthChanged 2", "repaint"}));
    EXPECT_EQ(DayOf(test.calendar->ShownDate()), Day(2021, 2, 3));
    EXPECT_EQ(test.BrokenInvariant(), "");
    EXPECT_NE(test.calendar->DayFont(), test.calendar->MonthFont());
    EXPECT_NE(test.calendar->DayFont(), test.calendar->WeekDayFont());
    EXPECT_TRUE(test.Paint().empty());

    MemoryBag empty;
    test.calendar->ReadProps(empty);
    test.Paint();
    test.TakeLog();
    test.Clicks(Day(2020, 3, 15));
    EXPECT_NE(Joined(test.TakeLog()).find("DayChanged 15"), std::string::npos);
}

TEST(CalendarSaving, FollowsTheDayOfLoadingUntilADateIsChosen) {
    const std::pair<DayNumber, DayNumber> kCases[] = {// what is chosen, 0 for none; what is read
                                                      {0, Day(2020, 3, 17)},
                                                      {Day(2020, 3, 15), Day(2020, 3, 15)}};
    for (const auto& [chosen, read] : kCases) {
        MemoryBag bag;
        for (int day = 0; day < 3; ++day) {
            TestCalendar test;
            test.now.value += day;
            test.calendar->ReadProps(bag);
            if (chosen && day == 0) test.calendar->DateValue(DateOf(chosen));
            test.now.value += 0.75;  // past midnight
            test.calendar->WriteProps(bag);
            if (day < 2) continue;
            EXPECT_EQ(IsoDate(DayOf(test.calendar->SelectedDate())), IsoDate(read));
        }
    }
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

/// A client's own objects with the names of a holder, of its days or of one of them.
class Named : public AutomationObject {
public:
    std::map<std::string_view, Variant> members;
    std::vector<std::shared_ptr<Named>> items;

    Variant GetMember(std::string_view name) const override {
        const auto member = members.find(name);
        return member == members.end() ? AutomationObject::GetItem(0) : member->second;
    }
    void LetMember(std::string_view, const Variant&) override {}
    Variant GetItem(std::int16_t index) const override {
        return ObjectRef(items.at(static_cast<std::size_t>(index) - 1));
    }
};

std::shared_ptr<Named> NamesOf(const VmDays& days, bool dated) {
    const auto named = std::make_shared<Named>();
    named->members = {{"Count", days.Count()}, {"DefaultBackColor", days.DefaultBackColor()}};
    for (const DayRef& day : days.Items()) {
        named->items.push_back(std::make_shared<Named>());
        named->items.back()->members = {{"Dirty", day->Dirty()},
                                        {"BackColor", day->BackColor()},
                                        {"ForeColor", day->ForeColor()},
                                        {"Caption", day->Caption()},
                                        {"Picture", ObjectRef(day->Picture())}};
        if (dated) named->items.back()->members["DayDate"] = day->DayDate();
    }
    return named;
}

/// From a holder of this library and from others, whose days may have no dates.
TEST(CalendarTransfer, DecoratesTheDaysOfTheSameDateAlone) {
    enum class From { Own, Named, Undated };
    for (const From from : {From::Own, From::Named, From::Undated}) {
        for (const int month : {3, 4}) {  // that of the holder's days
            TestCalendar test;
            CProperties own(test.dates);
            own.FollowMonth(Day(2020, month, 1));
            own.Days()->DefaultBackColor(0x123456);
            const DayRef rent = own.Days()->Item(5);
            const PictureRef picture = IconOf(1, 1);
            rent->Caption("rent"), rent->BackColor(255), rent->ForeColor(Null{});
            rent->Picture(picture);
            own.Days()->Item(6)->ForeColor(0);
            Named named;
            named.members["DateValue"] = own.DateValue();
            named.members["Days"] = ObjectRef(NamesOf(*own.Days(), from == From::Named));
            test.calendar->Days()->Item(6)->Caption("gone with its month");
            test.calendar->OnDateScroll(MonthIndex(Day(2020, 4, 1)));
            test.TakeLog();
            const auto copy = [&](const AutomationObject& holder) {
                return NumberOf([&] { test.calendar->SetProps(holder); });
            };
            EXPECT_EQ(from == From::Own ? copy(own) : copy(named),
                      from == From::Own ? ErrorNumber{} : ErrorNumber::MemberNotFound);
            EXPECT_TRUE(Joined(test.TakeLog()).ends_with("MonthChanged 3, repaint"));
            EXPECT_EQ(test.calendar->DayDefaultBackColor(), 0x123456u);
            const VmDays& days = *test.calendar->Days();
            const bool copied = month == 3 || from == From::Undated;
            const VmDay& to = *days.Item(5);
            EXPECT_EQ(IsoDate(DayOf(to.DayDate())), "2020-03-05");
            EXPECT_EQ(to.Caption(), copied ? "rent" : "");
            EXPECT_EQ(to.BackColor(), copied ? Variant(255) : Variant());
            EXPECT_EQ(to.ForeColor(), copied ? Variant(Null{}) : Variant());
            EXPECT_EQ(to.Picture(), copied ? picture : nullptr);
            EXPECT_EQ(days.Item(6)->Caption() + days.Item(7)->Caption(), "");
            EXPECT_EQ(days.Item(6)->Dirty(), copied);
        }
    }
}

TEST(CalendarTransfer, DisjointRangesGoThroughInBothDirections) {
    for (const auto& [target, source] : {std::pair(2000, 1990), {1990, 2000}}) {
        TestCalendar test;
        CProperties holder(test.dates);
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
    Named holder;
    holder.members = {{"FirstDayOfWeek", std::int32_t{9}},
                      {"MonthDisplay", std::int16_t{1}},
                      {"DateValue", Date(43000)},
                      {"WeekDayForeColor", std::int32_t{0x01000000}}};  // refused as the last
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelScrollbar);
    for (int i = 0; i < 2; ++i) {  // the second one moves no date
        test.dateScroll.shown = "moved by the user";
        EXPECT_EQ(NumberOf([&] { test.calendar->SetProps(holder); }), ErrorNumber::MemberNotFound);
        EXPECT_EQ(test.dateScroll.shown, "-10799..13200: 1413");  // September 2017
    }
    EXPECT_EQ(test.calendar->FirstDayOfWeek(), VmSunday);
    EXPECT_EQ(test.calendar->MonthDisplay(), VmMonthAbbrName);
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), 43000);
    EXPECT_EQ(test.TakeLog().back(), "repaint");
}

TEST(CProperties, KeepsItsDaysInStepWithItsDate) {
    TestCalendar test;
    CProperties holder(test.dates);
    holder.Days()->Item(15)->Caption("kept");
    holder.DateValue("3/20/2020 18:00");
    EXPECT_EQ(holder.DateValue(), DateOf(Day(2020, 3, 20), 0.75));
    EXPECT_EQ(holder.Days()->Item(15)->Caption(), "kept");
    holder.DateMax(DateOf(Day(2019, 2, 5)));
    EXPECT_EQ(holder.Days()->Count(), 28);
}

}  // namespace
}  // namespace velmora::test
