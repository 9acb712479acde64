#include "platform/dates/Dates.h"

#include "tests/support/Refusals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace velmora {
namespace {

DayNumber Day(int year, int month, int day) { return DayFromCivil(year, month, day); }

Date At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return DateOf(Day(year, month, day), (hour * 3600 + minute * 60 + second) / 86400.0);
}

Dates DatesFor(DateLocale locale = {}) {
    return Dates(std::make_shared<const DateLocale>(std::move(locale)),
                 [] { return At(2024, 5, 17, 13, 30); });
}

DateLocale WithPattern(std::string shortDate) {
    DateLocale locale;
    locale.shortDatePattern = std::move(shortDate);
    return locale;
}

TEST(Date, EveryDayCountsOnThroughTheCalendar) {
    CivilDate expected{100, 1, 1};
    for (DayNumber day = kFirstDay; day <= kLastDay; ++day) {
        const CivilDate civil = CivilOf(day);
        if (civil != expected || DayFromCivil(civil.year, civil.month, civil.day) != day) {
            FAIL() << day;
        }
        EXPECT_EQ(WeekDayOf(day), (day + 7'000'006) % 7 + 1);  // day 1 is a Sunday
        const bool last = LastOfMonth(day) == day;
        ++expected.day;
        if (last) expected = {expected.year, expected.month + 1, 1};
        if (expected.month == 13) expected = {expected.year + 1, 1, 1};
    }
    EXPECT_EQ(expected, (CivilDate{10000, 1, 1}));
}

TEST(Date, FractionCountsForwardOnBothSidesOfDayZero) {
    EXPECT_EQ(DayOf(Date(-1.25)), -1);
    EXPECT_EQ(TimeOf(Date(-1.25)), 0.25);
    EXPECT_EQ(DayOf(Date(-0.75)), 0);
    EXPECT_EQ(DateOf(-1, 0.25), Date(-1.25));
    const double lastInstant = std::nextafter(1.0, 0.0);
    for (const DayNumber day : {kFirstDay, -1, 0, 1, kLastDay}) {
        EXPECT_EQ(DayOf(DateOf(day, lastInstant)), day);
    }
}

TEST(Date, ArithmeticIsTotal) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(DayOf(Date(std::nan(""))), 0);
    EXPECT_EQ(DayOf(Date(1e300)), kLastDay);
    EXPECT_EQ(DayOf(Date(-HUGE_VAL)), kFirstDay);
    EXPECT_EQ(TimeOf(Date(HUGE_VAL)), 0);
    EXPECT_EQ(DayFromCivil(kMost, kMost, kMost), std::numeric_limits<DayNumber>::max());
    EXPECT_EQ(DayFromCivil(kLeast, kLeast, kLeast), std::numeric_limits<DayNumber>::min());
    EXPECT_GT(AddMonths(kFirstDay, kMost), kLastDay);
    EXPECT_LT(AddMonths(kLastDay, kLeast), kFirstDay);
    EXPECT_EQ(DayFromCivil(2024, 14, 0), Day(2025, 1, 31));
}

/// Results outside the calendar and other intervals are refused.
TEST(DatesArithmetic, AddsIntervals) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    const struct {
        const char* interval;
        std::int64_t number;
        Date from;
        std::optional<Date> to = {};
    } kCases[] = {{"d", 1, Date(-1.25), Date(0.25)},
                  {"d", -1, Date(0.25), Date(-1.25)},
                  {"WW", 2, At(2024, 2, 20, 6), At(2024, 3, 5, 6)},
                  {"m", 1, At(2024, 1, 31, 18), At(2024, 2, 29, 18)},
                  {"m", -13, At(2024, 3, 31), At(2023, 2, 28)},
                  {"yyyy", -1900, At(2024, 2, 29), At(124, 2, 29)},
                  {"d", 1, At(9999, 12, 31)},
                  {"m", -1, At(100, 1, 31)},
                  {"yyyy", kMost, Date(0)},
                  {"ww", -kMost, Date(0)},
                  {"h", 1, Date(0)}};
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.interval);
        Date to;
        const auto add = [&] { to = Dates::DateAdd(c.interval, c.number, c.from); };
        const auto error = c.to ? ErrorNumber{} : ErrorNumber::InvalidProcedureCall;
        EXPECT_EQ(test::NumberOf(add), error);
        EXPECT_EQ(to.value, c.to.value_or(Date()).value);
    }
}

TEST(DatesArithmetic, CountsIntervals) {
    const struct {
        const char* interval;
        Date from, to;
        std::int64_t count;
    } kCases[] = {
        {"d", Date(-1.75), Date(0.25), 1},          {"d", At(2024, 3, 1), At(2024, 2, 28, 23), -2},
        {"ww", At(2024, 3, 1), At(2024, 3, 14), 1}, {"ww", At(2024, 3, 14), At(2024, 3, 1), -1},
        {"m", At(2024, 1, 31), At(2024, 2, 1), 1},  {"yyyy", At(2024, 1, 1), At(2023, 12, 31), -1}};
    for (const auto& c : kCases) {
        EXPECT_EQ(Dates::DateDiff(c.interval, c.from, c.to), c.count) << c.interval;
    }
    EXPECT_THROW(Dates::DateDiff("h", Date(0), Date(1)), AutomationError);
}

TEST(DatesFormat, LocaleTextsAndSeparators) {
    const Date noon = At(2024, 3, 2, 12, 5);
    DateLocale german = WithPattern("dd.MM.yy");
    german.monthNames[2] = "März";
    german.weekDayNames[6] = "Samstag";
    german.longDatePattern = "dddd, d. MMMM yyyy";
    german.dateSeparator = ".";
    german.hours24 = true;
    german.monthNamesInDates[2] = "Märzes";
    german.weekDayAbbreviations[6] = "Smd";
    german.weekDayNamesInDates[6] = "samstags";
    const std::pair<const char*, const char*> kTexts[] = {{"", "02.03.2024 12:05:00"},
                                                          {"Long Date", "samstags, 2. Märzes 2024"},
                                                          {"d/m/yy", "2.3.24"},
                                                          {"dddd mmmm", "Samstag März"},
                                                          {"d mmmm", "2 Märzes"}};
    for (const auto& [format, text] : kTexts) {
        EXPECT_EQ(DatesFor(german).Format(noon, format), text);
    }
    german.timeSeparator = ".";
    EXPECT_EQ(DatesFor(german).Format(noon, "Short Time"), "12.05");
    for (const char* text :
         {"samstags, 2. Märzes 2024", "2 Märzes 2024", "Samstag 2 März 2024", "Smd, 2.3.24"}) {
        EXPECT_EQ(DatesFor(german).TryParse(text), At(2024, 3, 2)) << text;
    }
    DateLocale spanish;
    spanish.afternoon = "p. m.";
    spanish.morning = "";
    EXPECT_EQ(DatesFor(spanish).Format(noon, "h AMPM h AM/PM"), "12 p. m. 12 PM");
    EXPECT_EQ(DatesFor(spanish).Format(At(2024, 3, 2), "AMPM"), "AM");
    const std::pair<const char*, const char*> patterns[] = {
        {"yyyy年M月d日", "2024年3月2日"}, {"'o''clock' d M '' y 'rest", "o'clock 2 3 ' 2024 rest"}};
    for (const auto& [pattern, text] : patterns) {
        EXPECT_EQ(DatesFor(WithPattern(pattern)).Format(noon, "ddddd"), text);
    }
    EXPECT_EQ(DatesFor().Format(Date(std::nan("")), "ddddd"), "12/30/1899");
}

TEST(DatesFormat, RoundingNeverLeavesTheDay) {
    const Dates dates = DatesFor();
    const double late = (86400 - 0.3) / 86400;
    for (const DayNumber day : {kFirstDay, -1, 0, kLastDay}) {
        EXPECT_EQ(dates.Format(DateOf(day, late), "dd hh:nn:ss"),
                  dates.Format(DateOf(day), "dd") + " 23:59:59");
    }
    EXPECT_EQ(dates.Format(DateOf(5, 59.7 / 86400), "nn:ss"), "01:00");
}

TEST(DatesFormat, WeeksFollowTheirFirstDayAndRule) {
    using enum FirstWeekOfYear;
    const struct {
        Date date;
        int firstDay;
        FirstWeekOfYear rule;
        const char* text;
    } kCases[] = {{At(2024, 3, 2), 1, HoldsJanuary1, "7 9"},
                  {At(2024, 3, 2), 2, HoldsJanuary1, "6 9"},
                  {At(2024, 12, 31), 2, HoldsJanuary1, "2 53"},
                  {At(2024, 12, 31), 2, FourDays, "2 1"},
                  {At(2021, 1, 3), 2, FourDays, "7 53"},
                  {At(2020, 12, 31), 2, FourDays, "4 53"},
                  {At(2021, 1, 4), 2, FourDays, "1 1"},
                  {At(2024, 1, 7), 1, FullWeek, "1 1"},
                  {At(2024, 1, 6), 1, FullWeek, "7 53"},
                  {At(2000, 12, 31), 1, HoldsJanuary1, "1 54"},
                  {At(2024, 3, 2), 0, HoldsJanuary1, "7 9"},
                  {At(2024, 3, 2), 99, HoldsJanuary1, "7 9"},
                  {At(2024, 3, 2), -7, static_cast<FirstWeekOfYear>(9), "7 9"}};
    for (const auto& c : kCases) {
        EXPECT_EQ(DatesFor().Format(c.date, "w ww", c.firstDay, c.rule), c.text)
            << c.date.value << ' ' << c.firstDay;
    }
    EXPECT_EQ(DatesFor().Format(At(100, 1, 1), "ww", 1, FullWeek), "52");
}

}  // namespace
}  // namespace velmora
