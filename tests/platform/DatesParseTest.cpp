#include "platform/dates/Dates.h"
#include "tests/support/Refusals.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {
namespace {

using Names = std::array<std::string, 12>;

Date At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return DateOf(DayFromCivil(year, month, day), (hour * 3600 + minute * 60 + second) / 86400.0);
}

Date Time(int hour, int minute, int second = 0) { return At(1899, 12, 30, hour, minute, second); }

const Names kEnglish = DateLocale().monthNames;
const Names kSpanish{"enero", "febrero", "marzo",      "abril",   "mayo",      "junio",
                     "julio", "agosto",  "septiembre", "octubre", "noviembre", "diciembre"};
const Names kGerman{"Jan.", "Feb.", "März",  "Apr.", "Mai",  "Juni",
                    "Juli", "Aug.", "Sept.", "Okt.", "Nov.", "Dez."};
const Names kChinese{"1月", "2月", "3月", "4月",  "5月",  "6月",
                     "7月", "8月", "9月", "10月", "11月", "12月"};
const Names kVietnamese{"tháng 1", "tháng 2", "tháng 3", "tháng 4",  "tháng 5",  "tháng 6",
                        "tháng 7", "tháng 8", "tháng 9", "tháng 10", "tháng 11", "tháng 12"};
const Names kRussian{"янв.", "февр.", "мар.",  "апр.", "мая",   "июн.",
                     "июл.", "авг.",  "сент.", "окт.", "нояб.", "дек."};
const Names kPrefixes{"a", "aa", "aaa", "aaaa", "ab", "aba", "abab", "b", "ba", "bab", "c", "ca"};

Dates DatesFor(std::string shortDate, const Names& names = kEnglish,
               std::string longDate = DateLocale().longDatePattern, std::string time = ":") {
    auto locale = std::make_shared<DateLocale>();
    locale->shortDatePattern = std::move(shortDate);
    locale->longDatePattern = std::move(longDate);
    locale->timeSeparator = std::move(time);
    if (names != kEnglish) locale->monthNames = locale->monthAbbreviations = names;
    return Dates(locale, [] { return At(2024, 5, 17, 13, 30); });
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

struct Reading {
    const char* texts;
    Date date;
};

void ExpectReadings(const Dates& dates, std::initializer_list<Reading> readings) {
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

// Leap and common years at both ends and in the windows of two-digit years, then leaps through
// the rest that meet every day of the month.
std::vector<DayNumber> ManyDays() {
    std::vector<DayNumber> days;
    for (const int year : {200, 1929, 2024, 4600}) {
        const DayNumber end = DayFromCivil(year + 1, 1, 1);
        for (DayNumber day = DayFromCivil(year, 1, 1); day < end; ++day) days.push_back(day);
    }
    const DayNumber end = DayFromCivil(4600, 1, 1);
    for (DayNumber day = DayFromCivil(201, 1, 1); day < end; day += 331) days.push_back(day);
    return days;
}

TEST(DatesParse, ShortDateReadsBackAsTheSameDayInEveryPattern) {
    const std::pair<const char*, const Names&> kPatterns[] = {
        {"M/d/yy", kEnglish},        {"dd.MM.yy", kGerman},
        {"d-MMM-yy", kChinese},      {"M/d/yyyy", kEnglish},
        {"d/M/yy", kSpanish},        {"yy/MM/dd", kEnglish},
        {"y-MM-dd", kEnglish},       {"yyyy-dd-MM", kEnglish},
        {"yyyy年M月d日", kChinese},  {"yy. M. d.", kEnglish},
        {"d. M. yyyy.", kGerman},    {"d/M yyyy", kEnglish},
        {"dd/MM yyyy", kEnglish},    {"d.MM.yy 'г.'", kRussian},
        {"d MMM yy 'г'.", kRussian}, {"d 'de' MMMM 'de' yyyy", kSpanish},
        {"dd-MMM-yy", kGerman},      {"dd-MMM-yy", kEnglish},
        {"yyyy MMM d", kPrefixes},   {"d MMMM yyyy", kPrefixes},
        {"MMM d, y", kVietnamese},   {"yyyy年MMMd日", kChinese},
        {"ddd d/M/yy", kEnglish},    {"dddd, MMMM d, yyyy", kEnglish},
        {"yyyyMMdd", kEnglish},      {"ddMMyy", kEnglish},
        {"M.yy.d", kEnglish},        {"d\u200F/M\u200F/yyyy", kEnglish},
        {"yy d MMMM", kRussian},     {"'d''M' d''M''yy", kEnglish}};
    const std::vector<DayNumber> days = ManyDays();
    for (const auto& [pattern, names] : kPatterns) {
        const Dates dates = DatesFor(pattern, names);
        for (const DayNumber day : days) {
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
        for (DayNumber day = DayFromCivil(200, 1, 1); day < 1'000'000; day += 1997) {
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

TEST(DatesParse, AnyBytesFormatAndParse) {
    constexpr std::string_view kBytes =
        "0123456789//::..--,, \\\"'aApPmMdDyYhHnNsStTcwqT\xC3\xA4\xE2\x80\x8E\xD0\xFF\xE6\x9C\x88";
    std::mt19937 random(1);
    const auto text = [&](std::size_t length) {
        std::string bytes;
        while (bytes.size() < length) bytes += kBytes[random() % kBytes.size()];
        return bytes;
    };
    for (int round = 0; round < 3000; ++round) {
        const Dates dates =
            DatesFor(text(random() % 12), kChinese, text(random() % 20), text(random() % 2));
        const Date date(static_cast<double>(static_cast<int>(random())) / 256);
        const auto shown = dates.TryParse(dates.Format(date, text(random() % 30)));
        const auto read = dates.TryParse(text(random() % 30));
        for (const auto& result : {shown, read}) {
            if (!result) continue;
            ASSERT_GT(result->value, kFirstDay - 1);
            ASSERT_LT(result->value, kLastDay + 1);
        }
    }
}

}  // namespace
}  // namespace velmora
