#pragma once

#include "platform/Variant.h"
#include "platform/dates/Date.h"
#include "platform/dates/DateLocale.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// First week of the year for "ww": the one that holds 1 January, the first with at least four
/// days, or the first whole one.
enum class FirstWeekOfYear { HoldsJanuary1 = 1, FourDays = 2, FullWeek = 3 };

/// The date services: one implementation for every host, speaking the language of its locale data.
class Dates {
public:
    /// `now` gives the present moment in local time. Neither of the two may be empty.
    Dates(std::shared_ptr<const DateLocale> locale, std::function<Date()> now);

    const DateLocale& Locale() const noexcept { return *m_locale; }
    void Locale(std::shared_ptr<const DateLocale> locale) { m_locale = std::move(locale); }

    Date Now() const;
    DayNumber Today() const;

    /// Adds intervals "d", "ww", "m" or "yyyy"; the time of day stays. Error 5: another interval,
    /// or a result outside the years 100..9999.
    static Date DateAdd(std::string_view interval, std::int64_t number, Date date);
    /// Days ("d"), whole weeks between ("ww"), month boundaries ("m") or year boundaries ("yyyy")
    /// from `from` to `to`; negative backwards. Error 5: another interval.
    static std::int64_t DateDiff(std::string_view interval, Date from, Date to);

    /// The date as text, by a named format ("General Date", "Long Date", "Medium Date", "Short
    /// Date", "Long Time", "Medium Time", "Short Time"; case does not matter) or an expression of
    ///   c d dd ddd dddd ddddd dddddd w ww m mm mmm mmmm q y yy yyyy h hh n nn s ss ttttt
    ///   AM/PM am/pm A/P a/p AMPM : /  \x  "text"
    /// where m behind h means minutes, AM/PM anywhere makes the hours 1..12 and other characters
    /// stand for themselves. An empty expression is "General Date". Seconds are rounded, but never
    /// into the next day. Total: an unfinished quote or escape ends the text, a first day of the
    /// week outside 1..7 (Sunday is 1) is Sunday.
    std::string Format(Date date, std::string_view expression = {}, int firstDayOfWeek = 1,
                       FirstWeekOfYear firstWeek = FirstWeekOfYear::HoldsJanuary1) const;

    /// A number from 0, in the digits of the locale.
    std::string Number(int value) const;

    /// Reads date text in the locale's own order, ISO 8601, or with month names of the locale or of
    /// English, in the digits of any script, the day also as an ordinal ("1er", "4th"); a time may
    /// follow or stand alone, which is day 0 at that time. Names of week days are passed over. Day
    /// and month alone are of this year, month and year alone the first of the month. Where the
    /// locale's order gives no date, day and month change places. Years of one or two digits are
    /// 1930..2029. A time alone that could be a date, as "1.10.03" where times are written with
    /// dots, is the date. Nothing when it is no date or lies outside 100..9999.
    std::optional<Date> TryParse(std::string_view text) const;
    /// The day that the text names; of a time alone nothing.
    std::optional<DayNumber> TryParseDay(std::string_view text) const;
    /// `TryParse` with error 13 for text that is no date.
    Date Parse(std::string_view text) const;

    /// A date, a day number or date text as a date. Error 13: anything else, and text that is none.
    Date ToDate(const Variant& value) const;

private:
    std::shared_ptr<const DateLocale> m_locale;
    std::function<Date()> m_now;
};

}  // namespace velmora
