#include "calendar/CProperties.h"
#include "platform/PropertiesText.h"
#include "tests/support/Refusals.h"
#include "tests/support/StoreCases.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

TEST(CalendarSaving, ANewCalendarStoresWhatIsAlwaysStored) {
    TestCalendar test;
    RecordingBag bag;
    test.calendar->WriteProps(bag);
    EXPECT_EQ(bag.Kept(),
              (Log{"DayFont", "MonthAppearance", "MonthBackColor", "MonthDisplay", "MonthFont",
                   "ShowWeekend", "TodayBackColor", "TodayForeColor", "WeekDayAppearance",
                   "WeekDayBackColor", "WeekDayDisplay", "WeekDayFont"}));
}

TEST(CalendarSaving, AChangedCalendarStoresEveryName) {
    TestCalendar test;
    for (const auto& [name, lowest, highest] : kSavedRanges) {
        const bool isDefault = IsDefaultValue(test.calendar->GetMember(name), lowest);
        test.calendar->LetMember(name, isDefault ? highest : lowest);
    }
    test.calendar->MouseIcon(IconOf(2, 2));
    RecordingBag bag;
    test.calendar->WriteProps(bag);
    EXPECT_EQ(bag.Kept(), kSavedNames);
    EXPECT_EQ(std::count(bag.writes.begin(), bag.writes.end(), "DayDefaultBackColor"), 2);
    TestCalendar().calendar->ReadProps(bag);
    EXPECT_EQ(bag.reads.size(), 35u);
}

/// Takes the look of one calendar to a new one through both stores.
void ExpectLookComesBack(const VmCalendar& from, const std::string& what) {
    MemoryBag memory;
    from.WriteProps(memory);
    MemoryBag text = ParseProperties(FormatProperties(memory));
    for (MemoryBag* bag : {&memory, &text}) {
        TestCalendar target;
        target.calendar->ReadProps(*bag);
        EXPECT_EQ(SavedFace(*target.calendar), SavedFace(from)) << what;
        EXPECT_EQ(target.calendar->ShownDate(), from.SelectedDate());
        EXPECT_EQ(target.BrokenInvariant(), "") << what;
    }
}

TEST(CalendarSaving, EveryLookComesBackThroughEveryStore) {
    for (const Look look : {Look::Default, Look::Lowest, Look::Highest}) {
        TestCalendar source;
        Dress(*source.calendar, look);
        ExpectLookComesBack(*source.calendar, "look " + std::to_string(static_cast<int>(look)));
    }
    for (unsigned seed = 1; seed <= 40; ++seed) {
        TestCalendar source;
        Dress(*source.calendar, Look::Random, seed);
        source.calendar->DateValue(Date(36600 + seed / 41.0));
        ExpectLookComesBack(*source.calendar, "seed " + std::to_string(seed));
    }
}

TEST(CalendarSaving, MissingAndWronglyTypedValuesGiveTheDefaults) {
    TestCalendar test;
    MemoryBag bag;
    bag.WriteProperty("FirstDayOfWeek", "Monday", Variant());
    bag.WriteProperty("DayFont", std::int32_t{5}, Variant());
    bag.WriteProperty("DateMax", Null{}, Variant());
    bag.WriteProperty("MonthDisplay", std::int32_t{1}, Variant());
    test.TakeLog();
    test.calendar->ReadProps(bag);
    EXPECT_EQ(test.TakeLog(), (Log{"MonthChanged 3", "repaint"}));
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2020, 3, 15));
    EXPECT_EQ(test.calendar->FirstDayOfWeek(), VmSunday);
    EXPECT_NE(test.calendar->DayFont(), nullptr);
    EXPECT_NE(test.calendar->DayFont(), test.calendar->MonthFont());
    EXPECT_EQ(test.calendar->DateMax(), kDefaultDateMax);
    EXPECT_EQ(test.calendar->MonthDisplay(), VmMonthAbbrName);
}

TEST(CalendarTransfer, CopiesAWholeLookAndTheDirtyDays) {
    TestCalendar test;
    test.calendar->Days()->Item(5)->Caption("its own");
    test.calendar->Days()->Item(6)->Caption("its own");
    CProperties holder(test.dates);
    holder.LetMember("monthbackcolor", std::int32_t{0x123456});
    holder.LetMember("ShowWeekend", false);
    holder.Days()->DefaultBackColor(0x00ABCD);
    holder.Days()->Item(5)->Caption("copied");
    holder.Days()->Item(5)->ForeColor(Null{});
    test.Paint();
    test.TakeLog();
    test.calendar->SetProps(holder);
    EXPECT_EQ(test.calendar->MonthBackColor(), 0x123456u);
    EXPECT_FALSE(test.calendar->ShowWeekend());
    EXPECT_EQ(test.calendar->DayDefaultBackColor(), 0x00ABCDu);
    EXPECT_EQ(test.calendar->Days()->Item(5)->Caption(), "copied");
    EXPECT_EQ(test.calendar->Days()->Item(6)->Caption(), "its own");
    const Log log = test.TakeLog();
    EXPECT_EQ(std::count(log.begin(), log.end(), "repaint"), 1);
    EXPECT_EQ(log.back(), "repaint");
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
            throw AutomationError(ErrorNumber::MemberNotFound);
        }
        void LetMember(std::string_view, const Variant&) override {}
    };
    TestCalendar test;
    EXPECT_EQ(NumberOf([&] { test.calendar->SetProps(Holder()); }), ErrorNumber::MemberNotFound);
    EXPECT_EQ(test.calendar->FirstDayOfWeek(), VmSunday);
    EXPECT_EQ(test.calendar->MonthDisplay(), VmMonthAbbrName);
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), 43000);
    EXPECT_EQ(test.TakeLog().back(), "repaint");
}

TEST(CProperties, AdmitsWhatTheCalendarAdmits) {
    TestCalendar test;
    CProperties holder(test.dates);
    const std::pair<const char*, Variant> cases[] = {
        {"Appearance", std::int32_t{2}},
        {"DayPictureAlignment", std::int32_t{15}},
        {"MonthBackColor", std::int32_t{1 << 24}},
        {"DayDefaultBackColor", std::int32_t{1 << 30}},
        {"DateMax", "1/1/4601"},
        {"DateMin", "31/12/199"},
        {"FirstDayOfWeek", "Monday"},
        {"DayFont", std::int32_t{1}},
        {"DateMax", "12x"},
        {"Days", ObjectRef()},
        {"NoSuchName", true},
        {"ShowWeekend", Null{}},
    };
    for (const auto& [name, value] : cases) {
        const auto numberFrom = [&, name = name, value = value](AutomationObject& object) {
            return static_cast<int>(NumberOf([&] { object.LetMember(name, value); }));
        };
        EXPECT_NE(numberFrom(holder), 0) << name;
        EXPECT_EQ(numberFrom(holder), numberFrom(*test.calendar)) << name;
    }
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
