#include "calendar/CProperties.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <map>

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

/// Keeps what is written; one equal to its default is left out.
class MemoryBag : public PropertyBag {
public:
    Variant ReadProperty(std::string_view name, const Variant& fallback) override {
        reads.emplace_back(name);
        const auto found = values.find(std::string(name));
        return found == values.end() ? fallback : found->second;
    }
    void WriteProperty(std::string_view name, const Variant& value, const Variant& fallback) override {
        if (value == fallback) return;
        writes.emplace_back(name);
        values[std::string(name)] = value;
    }

    Log reads, writes;
    std::map<std::string, Variant> values;
};

TEST(CalendarSaving, ANewCalendarWritesWhatIsAlwaysStored) {
    TestCalendar test;
    MemoryBag bag;
    test.calendar->WriteProps(bag);
    EXPECT_EQ(bag.writes, (Log{"DateValue", "DayFont", "MonthAppearance", "MonthBackColor",
                               "MonthDisplay", "MonthFont", "DateMax", "DateMin", "ShowWeekend",
                               "TodayBackColor", "TodayForeColor", "WeekDayAppearance",
                               "WeekDayBackColor", "WeekDayDisplay", "WeekDayFont"}));
}

TEST(CalendarSaving, EveryPropertyComesBack) {
    TestCalendar source;
    VmCalendar& from = *source.calendar;
    int number = 0;
    for (const char* name : {"Appearance", "DayAppearance", "DayCaptionAlignment",
                             "DayNumberAlignment", "MonthAppearance", "WeekDayAppearance",
                             "WeekDayCaptionAlignment", "ShowWeekend", "Enabled"}) {
        from.LetMember(name, std::int32_t{0});
    }
    for (const char* name : {"DayDefaultBackColor", "DayOtherMonthForeColor", "DayDefaultForeColor",
                             "MonthBackColor", "MonthForeColor", "SelectedDayBackColor",
                             "SelectedDayForeColor", "TodayBackColor", "TodayForeColor",
                             "WeekDayBackColor", "WeekDayForeColor"}) {
        from.LetMember(name, std::int32_t{0x010203 + number++});
    }
    from.DayPictureAlignment(VmPictTile);
    from.MonthDisplay(VmMonthAbbrName);
    from.FirstDayOfWeek(VmThursday);
    from.MonthYearSelStyle(VmMonthSelScrollbar);
    from.WeekDayDisplay(VmWeekDayLetter);
    from.MousePointer(11);
    from.DateMin(DateOf(Day(1990, 1, 1)));
    from.DateMax(DateOf(Day(1995, 12, 31)));
    from.DateValue(DateOf(Day(1993, 7, 8)));
    from.DayFont(std::make_shared<StdFont>());

    MemoryBag bag;
    from.WriteProps(bag);
    TestCalendar target;
    target.calendar->ReadProps(bag);
    EXPECT_EQ(bag.reads.size(), 35u);
    for (const auto& [name, value] : bag.values) {
        EXPECT_EQ(target.calendar->GetMember(name), from.GetMember(name)) << name;
    }
    EXPECT_EQ(bag.values.size(), 32u);  // all but the mouse icon
    EXPECT_EQ(target.BrokenInvariant(), "");
    EXPECT_EQ(DayOf(target.calendar->ShownDate()), Day(1993, 7, 8));
}

TEST(CalendarSaving, MissingAndWronglyTypedValuesGiveTheDefaults) {
    TestCalendar test;
    MemoryBag bag;
    bag.values["FirstDayOfWeek"] = "Monday";
    bag.values["DayFont"] = std::int32_t{5};
    bag.values["DateMax"] = Null{};
    bag.values["MonthDisplay"] = std::int32_t{1};
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
    try {
        test.calendar->SetProps(Holder());
        ADD_FAILURE() << "nothing was reported";
    } catch (const AutomationError& first) {
        EXPECT_EQ(first.Number(), ErrorNumber::MemberNotFound);
    }
    EXPECT_EQ(test.calendar->FirstDayOfWeek(), VmSunday);
    EXPECT_EQ(test.calendar->MonthDisplay(), VmMonthAbbrName);
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), 43000);
    EXPECT_EQ(test.TakeLog().back(), "repaint");
}

TEST(CProperties, AdmitsWhatTheCalendarAdmits) {
    TestCalendar test;
    CProperties holder(test.dates);
    const std::pair<const char*, Variant> cases[] = {
        {"Appearance", std::int32_t{2}},          {"DayPictureAlignment", std::int32_t{15}},
        {"MonthBackColor", std::int32_t{1 << 24}}, {"DayDefaultBackColor", std::int32_t{1 << 30}},
        {"DateMax", "1/1/4601"},                   {"DateMin", "31/12/199"},
        {"FirstDayOfWeek", "Monday"},              {"DayFont", std::int32_t{1}},
        {"DateMax", "12x"},                        {"Days", ObjectRef()},
        {"NoSuchName", true},                      {"ShowWeekend", Null{}},
    };
    for (const auto& [name, value] : cases) {
        const auto numberFrom = [&, name = name, value = value](AutomationObject& object) {
            try {
                object.LetMember(name, value);
            } catch (const AutomationError& error) {
                return static_cast<int>(error.Number());
            }
            return 0;
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
