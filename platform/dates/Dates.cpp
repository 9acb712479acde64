#include "platform/dates/Dates.h"

#include "platform/Automation.h"
#include "platform/AutomationError.h"
#include "platform/dates/DateFormat.h"
#include "platform/dates/DateParse.h"
#include "platform/dates/DateText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {
namespace {

enum class Interval { Day, Week, Month, Year };

Interval IntervalOf(std::string_view name) {
    static constexpr std::pair<std::string_view, Interval> kIntervals[] = {
        {"d", Interval::Day},
        {"ww", Interval::Week},
        {"m", Interval::Month},
        {"yyyy", Interval::Year}};
    for (const auto& [known, interval] : kIntervals) {
        if (name.size() == known.size() && PrefixLength(name, known) != 0) return interval;
    }
    throw AutomationError(ErrorNumber::InvalidProcedureCall);
}

/// May lie outside kFirstDay..kLastDay.
DayNumber Added(DayNumber day, Interval interval, std::int64_t number) noexcept {
    constexpr std::int64_t kReach = 10'000'000;  // beyond all dates in every interval
    number = std::clamp(number, -kReach, kReach);
    switch (interval) {
        case Interval::Day: return day + static_cast<DayNumber>(number);
        case Interval::Week: return day + static_cast<DayNumber>(number * 7);
        case Interval::Month: return AddMonths(day, number);
        case Interval::Year: break;
    }
    return AddMonths(day, number * 12);
}

}  // namespace

Dates::Dates(std::shared_ptr<const DateLocale> locale, std::function<Date()> now)
    : m_locale(std::move(locale)), m_now(std::move(now)) {}

Date Dates::Now() const { return m_now(); }

DayNumber Dates::Today() const { return DayOf(Now()); }

Date Dates::DateAdd(std::string_view interval, std::int64_t number, Date date) {
    const DayNumber day = Added(DayOf(date), IntervalOf(interval), number);
    if (day < kFirstDay || day > kLastDay) {
        throw AutomationError(ErrorNumber::InvalidProcedureCall);
    }
    return DateOf(day, TimeOf(date));
}

std::int64_t Dates::DateDiff(std::string_view interval, Date from, Date to) {
    const DayNumber fromDay = DayOf(from);
    const DayNumber toDay = DayOf(to);
    switch (IntervalOf(interval)) {
        case Interval::Day: return toDay - fromDay;
        case Interval::Week: return (toDay - fromDay) / 7;
        case Interval::Month: return MonthsBetween(fromDay, toDay);
        case Interval::Year: break;
    }
    return YearOf(toDay) - YearOf(fromDay);
}

std::string Dates::Format(Date date, std::string_view expression, int firstDayOfWeek,
                          FirstWeekOfYear firstWeek) const {
    return FormatDate(*m_locale, date, expression, firstDayOfWeek, firstWeek);
}

std::string Dates::Number(int value) const {
    std::string text;
    AppendNumber(text, value, 1, m_locale->zeroDigit);
    return text;
}

std::optional<Date> Dates::TryParse(std::string_view text) const {
    return ParseDate(*m_locale, text, [this] { return Today(); });
}

std::optional<DayNumber> Dates::TryParseDay(std::string_view text) const {
    return ParseDay(*m_locale, text, [this] { return Today(); });
}

Date Dates::Parse(std::string_view text) const {
    const std::optional<Date> date = TryParse(text);
    if (!date) throw AutomationError(ErrorNumber::TypeMismatch);
    return *date;
}

Date Dates::ToDate(const Variant& value) const {
    if (const auto* text = value.As<std::string>()) return Parse(*text);
    if (value.Type() == VarType::Boolean) RaiseTypeMismatch();
    const Date date = FromVariant<Date>(value);
    if (!std::isfinite(date.value)) RaiseTypeMismatch();
    return date;
}

}  // namespace velmora
