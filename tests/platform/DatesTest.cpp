#include "platform/dates/Dates.h"
#include "tests/support/Refusals.h"

#include <cmath>
#include <limits>
#include <tuple>

namespace velmora {
namespace {

using Names = std::array<std::string, 12>;

constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();

DayNumber Day(int year, int month, int day) { return DayFromCivil(year, month, day); }

Date At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return DateOf(Day(year, month, day), (hour * 3600 + minute * 60 + second) / 86400.0);
}

Date Time(int hour, int minute, int second = 0) { return At(1899, 12, 30, hour, minute, second); }

const Names kEnglish = DateLocale().monthNames;
const Names kGerman{"Jan.", "Feb.", "März",  "Apr.", "Mai",  "Juni",
                    "Juli", "Aug.", "Sept.", "Okt.", "Nov.", "Dez."};
const Names kChinese{"1月", "2月", "3月", "4月",  "5月",  "6月",
                     "7月", "8月", "9月", "10月", "11月", "12月"};
const Names kVietnamese{"tháng 1", "tháng 2", "tháng 3", "tháng 4",  "tháng 5",  "tháng 6",
                        "tháng 7", "tháng 8", "tháng 9", "tháng 10", "tháng 11", "tháng 12"};
const Names kRussian{"янв.", "февр.", "мар.",  "апр.", "мая",   "июн.",
                     "июл.", "авг.",  "сент.", "окт.", "нояб.", "дек."};
const Names kPrefixes{"a", "aa", "aaa", "aaaa", "ab", "aba", "abab", "b", "ba", "bab", "c", "ca"};

Dates DatesFor(DateLocale locale = {}) {
    return Dates(std::make_shared<const DateLocale>(std::move(locale)),
                 [] { return At(2024, 5, 17, 13, 30); });
}

Dates DatesFor(std::string shortDate, const Names& names = kEnglish,
               std::string longDate = DateLocale().longDatePattern, std::string time = ":") {
    DateLocale locale;
    locale.shortDatePattern = std::move(shortDate);
    locale.longDatePattern = std::move(longDate);
    locale.timeSeparator = std::move(time);
    if (names != kEnglish) locale.monthNames = locale.monthAbbreviations = names;
    return DatesFor(std::move(locale));
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
TEST(DatesArithmetic, AddsAndCountsIntervals) {
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
        if (c.to) {
            EXPECT_EQ(Dates::DateDiff(c.interval, c.from, to), c.number);
        }
    }
    EXPECT_EQ(Dates::DateDiff("d", At(2024, 3, 1), At(2024, 2, 28, 23)), -2);
    EXPECT_EQ(Dates::DateDiff("ww", At(2024, 3, 14), At(2024, 3, 1)), -1);
    EXPECT_EQ(Dates::DateDiff("m", At(2024, 1, 31), At(2024, 2, 1)), 1);
    EXPECT_EQ(Dates::DateDiff("yyyy", At(2024, 1, 1), At(2023, 12, 31)), -1);
    EXPECT_THROW(Dates::DateDiff("h", Date(0), Date(1)), AutomationError);
}

TEST(DatesFormat, KnowsEveryToken) {
    const Date evening = At(2024, 3, 2, 18, 5, 9), night = At(2024, 3, 2);  // a Saturday
    const std::tuple<Date, const char*, const char*> kCases[] = {
        {evening, "", "3/2/2024 6:05:09 PM"},
        {night, "", "3/2/2024"},
        {night, "General Date", "3/2/2024"},
        {Date(0.25), "c", "6:00:00 AM"},
        {Date(0), "c", "12/30/1899"},
        {evening, "LONG DATE", "Saturday, March 2, 2024"},
        {evening, "Medium Date", "02-Mar-24"},
        {evening, "short date", "3/2/2024"},
        {evening, "Long Time", "6:05:09 PM"},
        {evening, "Medium Time", "06:05 PM"},
        {evening, "Short Time", "18:05"},
        {evening, "d|dd|ddd|dddd|ddddd|w ww", "2|02|Sat|Saturday|3/2/2024|7 9"},
        {evening, "dddddd ddddddd", "Saturday, March 2, 2024 Saturday, March 2, 20242"},
        {evening, "m|mm|mmm|mmmm|mmmmm|q|M MM", "3|03|Mar|March|March3|1|3 03"},
        {evening, "y yy yyy yyyy yyyyy Q", "62 24 2462 2024 202462 1"},
        {evening, "h|hh|n|nn|s|ss|ttttt|tttt", "18|18|5|05|9|09|6:05:09 PM|tttt"},
        {evening, "h:m hh:mm h mmm m hmmss mm", "18:5 18:05 18 Mar 3 180509 03"},
        {evening, "h AM/PM h am/pm h A/P h a/p h ampm", "6 PM 6 pm 6 P 6 p 6 PM"},
        {night, "h:nn a/p", "12:00 a"},
        {At(2024, 3, 2, 12), "hh A/P \"am/pm\"", "12 P am/pm"},
        {evening, "h \"am/pm\" d/m h:n %$", "18 am/pm 2/3 18:5 %$"},
        {evening, "\\d\\\\ \"dd\" d\\", "d\\ dd 2"},
        {evening, "d \"dd", "2 dd"},
        {evening, "\"", ""},
        {At(200, 1, 1), "ddddd yy yyyy", "1/1/0200 00 0200"},
        {At(4600, 12, 31), "ddddd yy yyyy", "12/31/4600 00 4600"},
        {Date(-1.25), "yyyy-mm-dd hh:nn", "1899-12-29 06:00"}};
    for (const auto& [date, expression, text] : kCases) {
        EXPECT_EQ(DatesFor().Format(date, expression), text) << expression;
    }
}

TEST(DatesFormat, TextsOfTheLocale) {
    const Date noon = At(2024, 3, 2, 12, 5);
    DateLocale locale;
    locale.monthNamesInDates[2] = "Märzes";
    locale.weekDayAbbreviations[6] = "Smd";
    locale.weekDayNamesInDates[6] = "samstags";
    locale.afternoon = "p. m.";
    locale.morning = "";
    locale.shortDatePattern = "'o''clock' d M '' y 'rest";
    const Dates dates = DatesFor(locale);
    EXPECT_EQ(dates.Format(noon, "d mmmm dddd|ddddd|h AMPM|h AM/PM"),
              "2 Märzes samstags|o'clock 2 3 ' 2024 rest|12 p. m.|12 PM");
    EXPECT_EQ(dates.Format(At(2024, 3, 2), "AMPM"), "AM");
    for (const char* text : {"samstags, 2. Märzes 2024", "Saturday 2 March 2024", "Smd, 2.3.24"}) {
        EXPECT_EQ(dates.TryParse(text), At(2024, 3, 2)) << text;
    }
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
    const std::tuple<Date, int, FirstWeekOfYear, const char*> kCases[] = {
        {At(2024, 3, 2), 1, HoldsJanuary1, "7 9"},
        {At(2024, 12, 31), 2, FourDays, "2 1"},
        {At(2021, 1, 3), 2, FourDays, "7 53"},
        {At(2021, 1, 4), 2, FourDays, "1 1"},
        {At(2024, 1, 7), 1, FullWeek, "1 1"},
        {At(2024, 1, 6), 1, FullWeek, "7 53"},
        {At(2000, 12, 31), 1, HoldsJanuary1, "1 54"},
        {At(2024, 3, 2), 0, HoldsJanuary1, "7 9"},
        {At(2024, 3, 2), 99, static_cast<FirstWeekOfYear>(9), "7 9"}};
    for (const auto& [date, firstDay, rule, text] : kCases) {
        EXPECT_EQ(DatesFor().Format(date, "w ww", firstDay, rule), text)
            << date.value << ' ' << firstDay;
    }
    EXPECT_EQ(DatesFor().Format(At(100, 1, 1), "ww", 1, FullWeek), "52");
}

/// Texts separated by " | ".
std::vector<std::string> Split(std::string_view texts) {
    std::vector<std::string> parts;
    for (std::size_t end; (end = texts.find(" | ")) != texts.npos; texts.remove_prefix(end + 3)) {
        parts.emplace_back(texts.substr(0, end));
    }
    parts.emplace_back(texts);
    return parts;
}

using Readings = std::initializer_list<std::pair<const char*, Date>>;

void ExpectReadings(const Dates& dates, Readings readings) {
    for (const auto& [texts, date] : readings) {
        for (const std::string& text : Split(texts)) {
            const auto read = dates.TryParse(text);
            ASSERT_TRUE(read) << text;
            EXPECT_EQ(read->value, date.value) << text << " was read as " << dates.Format(*read);
        }
    }
}

TEST(DatesParse, ReadsWhatPeopleWriteInEnglish) {
    const Date day = At(2024, 3, 2);
    ExpectReadings(DatesFor("M/d/yyyy"),
                   {{"3/2/2024 |  03-02-24  | 3.2.2024 | 3 2 2024 | 3, 2, 2024 | 2024/3/2 | "
                     "2024-03-02 | 2024-03-02. | 3/2 | March 2 | 2 mar | MARCH 2, 2024 | 2-Mar-24 "
                     "| March 2nd, 2024 | 2nd Mar 24 | ٣/٢/٢٠٢٤ | ３/２/２０２４ | 2 mar २०२४ "
                     "| 2Mar2024 | 2024 Mar 2 | Sat, 2 March 2024 | Tuesday, March 2, 2024",
                     day},
                    {"13/2/2024 | 13/2", At(2024, 2, 13)},
                    {"3/13/24", At(2024, 3, 13)},
                    {"1/1/30", At(1930, 1, 1)},
                    {"1/1/29", At(2029, 1, 1)},
                    {"1/1/200 | 1/1/0200", At(200, 1, 1)},
                    {"12/31/9999", At(9999, 12, 31)},
                    {"3/2024 | 2024-03 | March 2024", At(2024, 3, 1)},
                    {"mar 45", At(1945, 3, 1)},
                    {"24-Mar-32", At(1932, 3, 24)},
                    {"Sept. 5, 2024", At(2024, 9, 5)},
                    {"2. Febr 2024", At(2024, 2, 2)},
                    {"2024-03-02T06:00", At(2024, 3, 2, 6)},
                    {"2024-03-02 06:00:30", At(2024, 3, 2, 6, 0, 30)},
                    {"3/2/2024 6 pm | 6:00 PM 3/2/2024 | 2 Mar 2024 18:00", At(2024, 3, 2, 18)},
                    {"3/2/24, 12:05 AM", At(2024, 3, 2, 0, 5)},
                    {"March 2, 2024 12 p.m.", At(2024, 3, 2, 12)},
                    {"6:00", Time(6, 0)},
                    {"18:00:30", Time(18, 0, 30)},
                    {"6 pm | PM 6:00", Time(18, 0)},
                    {"6:05p", Time(18, 5)},
                    {"12/29/1899 06:00", Date(-1.25)}});
}

TEST(DatesParse, ReadsInTheOrderAndWordsOfTheLocale) {
    const Date day = At(2024, 3, 2);
    ExpectReadings(
        DatesFor("dd.MM.yy", kGerman, "dddd, d. MMMM yyyy"),
        {{"2.3.24 | 2/3/2024 | 2.3. | 2. März 2024 | 2. MÄRZ 24 | 2 march 2024 | 2024.3.2", day},
         {"2. Sept. 2024", At(2024, 9, 2)},
         {"3.13.2024", At(2024, 3, 13)}});
    ExpectReadings(DatesFor("yyyy年M月d日", kChinese, "yyyy年M月d日dddd"),
                   {{"2024年3月2日 | 3月2日 | 2024/3/2 | 24/3/2 | 3/2", day},
                    {"2024年 03月 02日 18:00", At(2024, 3, 2, 18)},
                    {"2024年11月", At(2024, 11, 1)}});
    Names gaelic = kEnglish;
    gaelic[0] = "Am Faoilleach";
    ExpectReadings(DatesFor("dd/MM/yyyy", gaelic), {{"5 Am Faoilleach 2024", At(2024, 1, 5)}});
    ExpectReadings(DatesFor("yyyy-dd-MM"), {{"2024-02-03", day}, {"2024-03-15", At(2024, 3, 15)}});
    ExpectReadings(DatesFor("yyyy/MM/dd"), {{"02-Mar-24 | 3/2/2024", day}});
    ExpectReadings(DatesFor("d.M.yyyy", kEnglish, "d. MMMM yyyy", "."),
                   {{"2.3.2024 6.05.30", At(2024, 3, 2, 6, 5, 30)},
                    {"6.45", Time(6, 45)},
                    {"2024-03-02 6.05", At(2024, 3, 2, 6, 5)},
                    {"6.10", At(2024, 10, 6)}});
}

TEST(DatesParse, RefusesWhatIsNoDate) {
    const Dates dates = DatesFor("M/d/yyyy");
    const std::string kTexts =
        " |     | 12 | 12x | 13x/1 | 1/2/3/4 | 1/2/3/4:05 | 2024-02-30 | 2024-03-02x | 2/29/2023 | "
        "0/1/2024 | 13/13/2024 | 1//2/2024 | /1/2/2024 | 1/2/2024/ | 1/2/ | 1/2/99999 | 1/1/099 | "
        "1/1/0012 | 12/31/10000 | March | Saturday | Saturday 6:00 | March March 2024 | 30 "
        "February 2024 | 2024 March 2024 | Ma 2 2024 | Marx 2, 2024 | 24:00 | 6:60 | 6:00:60 | 13 "
        "pm | 6:00:00:00 | 6:00 6:00 | 3/2/2024 6 | 3/2/2024T | 2024-03-02T | 2024-03-02 T06:00x | "
        "3/2T06:00 | 2024 March 0012 | 3/002/24";
    for (const std::string& text : Split(kTexts)) {
        EXPECT_FALSE(dates.TryParse(text)) << text;
    }
    for (const char* text : {"\xC2\xA0", "\xFF\xFE", "\xC3"}) EXPECT_FALSE(dates.TryParse(text));
    EXPECT_FALSE(dates.TryParse(std::string(100'000, '1')));
    EXPECT_FALSE(dates.TryParse(std::string_view("3/2/2024\0", 9)));
    EXPECT_EQ(test::NumberOf([&] { dates.Parse("12x"); }), ErrorNumber::TypeMismatch);
}

TEST(DatesParse, ShortDateReadsBackAsTheSameDayInEveryPattern) {
    const std::pair<const char*, const Names&> kPatterns[] = {
        {"M/d/yy", kEnglish},        {"dd.MM.yy", kGerman},
        {"d-MMM-yy", kChinese},      {"M/d/yyyy", kEnglish},
        {"d/M/yy", kGerman},         {"yy/MM/dd", kEnglish},
        {"y-MM-dd", kEnglish},       {"yyyy-dd-MM", kEnglish},
        {"yyyy年M月d日", kChinese},  {"yy. M. d.", kEnglish},
        {"d. M. yyyy.", kGerman},    {"d/M yyyy", kEnglish},
        {"dd/MM yyyy", kEnglish},    {"d.MM.yy 'г.'", kRussian},
        {"d MMM yy 'г'.", kRussian}, {"d 'de' MMMM 'de' yyyy", kGerman},
        {"dd-MMM-yy", kGerman},      {"dd-MMM-yy", kEnglish},
        {"yyyy MMM d", kPrefixes},   {"d MMMM yyyy", kPrefixes},
        {"MMM d, y", kVietnamese},   {"yyyy年MMMd日", kChinese},
        {"ddd d/M/yy", kEnglish},    {"dddd, MMMM d, yyyy", kEnglish},
        {"yyyyMMdd", kEnglish},      {"ddMMyy", kEnglish},
        {"M.yy.d", kEnglish},        {"d\u200F/M\u200F/yyyy", kEnglish},
        {"yy d MMMM", kRussian},     {"'d''M' d''M''yy", kEnglish}};
    const DayNumber end = Day(4601, 1, 1);
    for (const auto& [pattern, names] : kPatterns) {
        const Dates dates = DatesFor(pattern, names);
        for (DayNumber day = Day(200, 1, 1); day < end; day += 251) {
            const std::string text = dates.Format(DateOf(day), "Short Date");
            const auto read = dates.TryParse(text);
            if (!read || read->value != day) {
                ADD_FAILURE() << pattern << " shows " << text;
                break;
            }
        }
    }
}

TEST(DatesParse, DateAndTimeReadBackAsTheSameSecond) {
    for (const char* separator : {":", "."}) {
        const Dates dates = DatesFor("d.M.yy", kGerman, "dddd, d. MMMM yyyy", separator);
        for (DayNumber day = Day(200, 1, 1); day < 1'000'000; day += 1997) {
            const int second = (day % 86399 + 86399) % 86399 + 1;
            const Date date = DateOf(day, second / 86400.0);
            for (const char* format : {"General Date", "dddddd ttttt", "yyyy-mm-dd\\Thh:nn:ss"}) {
                const std::string text = dates.Format(date, format);
                const auto read = dates.TryParse(text);
                ASSERT_TRUE(read && read->value == date.value) << text;
            }
        }
    }
}

}  // namespace
}  // namespace velmora
