#pragma once

#include "platform/dates/DateText.h"
#include "platform/dates/Dates.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora::test {

/// A locale, and texts that its people write with the moment that they mean.
struct LocaleCase {
    const char* name;
    std::vector<std::pair<const char*, const char*>> readings;
};

inline const std::vector<LocaleCase> kLocales{
    {"en-US", {{"3/2/2024", "2024-03-02 00:00"}, {"March 2, 2024 1:05 PM", "2024-03-02 13:05"}}},
    {"en-GB", {{"3/2/2024", "2024-02-03 00:00"}, {"3 March 2024 13:05", "2024-03-03 13:05"}}},
    {"de-DE", {{"3.2.2024", "2024-02-03 00:00"}, {"3. März 2024 13:05", "2024-03-03 13:05"}}},
    {"fr-FR", {{"3/2/2024", "2024-02-03 00:00"}, {"1er février 2024", "2024-02-01 00:00"}}},
    {"ar-EG", {{"3/2/2024", "2024-02-03 00:00"}, {"٣ فبراير ٢٠٢٤", "2024-02-03 00:00"}}},
    {"fa-IR", {{"۲۰۲۴/۲/۳", "2024-02-03 00:00"}}},
    {"he-IL", {{"3.2.2024", "2024-02-03 00:00"}, {"3 בפברואר 2024", "2024-02-03 00:00"}}},
    {"hi-IN", {{"३/२/२०२४", "2024-02-03 00:00"}}},
    {"th-TH", {{"๓/๒/๒๐๒๔", "2024-02-03 00:00"}}},
    {"zh-CN", {{"2024年2月3日", "2024-02-03 00:00"}}},
    {"tr-TR", {{"3 Şubat 2024", "2024-02-03 00:00"}}},
    {"cs-CZ", {{"3. února 2024", "2024-02-03 00:00"}, {"únor 2024", "2024-02-01 00:00"}}},
    {"uk-UA", {{"3 лютого 2024", "2024-02-03 00:00"}, {"лютий 2024", "2024-02-01 00:00"}}},
    {"el-GR", {{"3 Φεβρουαρίου 2024", "2024-02-03 00:00"}}},
    {"hr-HR", {{"3. veljače 2024.", "2024-02-03 00:00"}}},
    {"sk-SK", {{"3. februára 2024", "2024-02-03 00:00"}}},
    {"lt-LT", {{"2024 m. vasario 3 d.", "2024-02-03 00:00"}}},
    {"ca-ES",
     {{"3 de febrer de 2024", "2024-02-03 00:00"}, {"1r d’abril 2024", "2024-04-01 00:00"}}},
    {"ja-JP", {{"2024/2/3", "2024-02-03 00:00"}, {"2024年2月3日 13:05", "2024-02-03 13:05"}}},
    {"pl-PL", {{"3 lutego 2024", "2024-02-03 00:00"}, {"luty 2024", "2024-02-01 00:00"}}},
    {"pt-BR", {{"3/2/2024", "2024-02-03 00:00"}, {"3 de março de 2024", "2024-03-03 00:00"}}},
    {"fi-FI", {{"3.2.2024 13.05", "2024-02-03 13:05"}, {"9.45", "1899-12-30 09:45"}}},
    {"ru-RU", {{"3-го февраля 2024", "2024-02-03 00:00"}, {"февраль 2024", "2024-02-01 00:00"}}},
    {"fr-CA", {{"2024-02-03 13 h 45", "2024-02-03 13:45"}}},  // words inside a time
    {"ko-KR", {{"2024. 2. 3. 13:05", "2024-02-03 13:05"}}}};

enum class Length { Full, Short };

/// What the platform itself says in a locale, asked past the product's adapter. Years have four
/// digits.
class PlatformLocale {
public:
    virtual ~PlatformLocale() = default;
    virtual std::string MonthAlone(int month, Length length) const = 0;      // 1..12
    virtual std::string WeekDayAlone(int weekDay, Length length) const = 0;  // Sunday is 1
    virtual std::string DateText(CivilDate date, Length length) const = 0;
    virtual std::string TimeText(int hour, int minute) const = 0;  // without seconds
    virtual std::string Meridiem(int hour) const = 0;
};

/// What stands between the first two numbers of a text.
inline std::string BetweenNumbers(const std::string& written) {
    constexpr std::string_view kDigits = "0123456789";
    const std::string plain = WithPlainDigits(written);
    std::string_view text = plain;
    text.remove_prefix(std::min(text.find_first_of(kDigits), text.size()));
    const std::size_t begin = std::min(text.find_first_not_of(kDigits), text.size());
    return std::string(text.substr(begin, text.find_first_of(kDigits, begin) - begin));
}

inline Date MomentOf(CivilDate date, int hour = 0, int minute = 0) {
    return DateOf(DayFromCivil(date.year, date.month, date.day), (hour * 60 + minute) / 1440.0);
}

inline void ExpectDates(const Dates& dates, const PlatformLocale& platform) {
    for (int month = 1; month <= 12; ++month) {
        const CivilDate civil{2024, month, month + 12};
        const Date date = MomentOf(civil);
        const int weekDay = WeekDayOf(DayOf(date));
        EXPECT_EQ(dates.Format(date, "mmmm"), platform.MonthAlone(month, Length::Full));
        EXPECT_EQ(dates.Format(date, "mmm"), platform.MonthAlone(month, Length::Short));
        EXPECT_EQ(dates.Format(date, "dddd"), platform.WeekDayAlone(weekDay, Length::Full));
        EXPECT_EQ(dates.Format(date, "ddd"), platform.WeekDayAlone(weekDay, Length::Short));
        for (const auto& [name, length] :
             {std::pair("Short Date", Length::Short), std::pair("Long Date", Length::Full)}) {
            const std::string text = platform.DateText(civil, length);
            EXPECT_EQ(dates.Format(date, name), text);
            EXPECT_EQ(dates.TryParse(text), date) << text;
        }
    }
    EXPECT_EQ(dates.Format(Date(45000), "/"),
              BetweenNumbers(platform.DateText({2024, 3, 15}, Length::Short)));
}

inline void ExpectClock(const Dates& dates, const PlatformLocale& platform) {
    for (const int hour : {9, 13}) {
        const Date moment = MomentOf({1899, 12, 30}, hour, 45);  // no month has this number
        const std::string text = platform.TimeText(hour, 45);
        const std::string thirteen = dates.Number(13);
        const bool hours24 = platform.TimeText(13, 45).find(thirteen) != std::string::npos;
        EXPECT_EQ(dates.Format(moment, "ttttt").find(thirteen) != std::string::npos,
                  hours24 && hour == 13);
        EXPECT_EQ(dates.TryParse(text), moment) << text;
        EXPECT_EQ(BetweenNumbers(dates.Format(moment, "hh:nn")), BetweenNumbers(text));
        const std::string own = platform.Meridiem(hour);  // empty where the clock has 24 hours
        EXPECT_EQ(own.empty() ? own : dates.Format(moment, "AMPM"), own);
    }
}

inline void ExpectReadings(const Dates& dates, const LocaleCase& locale) {
    for (const auto& [text, moment] : locale.readings) {
        const auto read = dates.TryParse(text);
        const std::string found = read ? dates.Format(*read, "yyyy-mm-dd hh\\:nn") : "no date";
        EXPECT_EQ(WithPlainDigits(found), moment) << text;
    }
}

inline void ExpectLocale(const Dates& dates, const PlatformLocale& platform,
                         const LocaleCase& locale) {
    ExpectDates(dates, platform);
    ExpectClock(dates, platform);
    std::set<std::string> letters;
    for (std::size_t day = 0; day < 7; ++day) letters.insert(LetterOf(dates.Locale(), day));
    EXPECT_GT(letters.size(), 3u);
    ExpectReadings(dates, locale);
}

}  // namespace velmora::test
