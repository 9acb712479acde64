#include "platform/dates/Date.h"

#include "platform/FloorDiv.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora {
namespace {

// Day 0 of this library counted from 1 January 1970, the epoch of the formulas below.
constexpr std::int64_t kEpoch = -25569;

constexpr std::int64_t FloorMod(std::int64_t value, std::int64_t divisor) noexcept {
    return value - FloorDiv(value, divisor) * divisor;
}

constexpr bool IsLeapYear(std::int64_t year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int DaysIn(std::int64_t year, int month) noexcept {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

}  // namespace

DayNumber DayOf(Date date) noexcept {
    if (std::isnan(date.value)) return 0;
    const double whole = std::trunc(date.value);
    return static_cast<DayNumber>(std::clamp(whole, double{kFirstDay}, double{kLastDay}));
}

double TimeOf(Date date) noexcept {
    if (!std::isfinite(date.value)) return 0;
    return std::abs(date.value - std::trunc(date.value));
}

Date DateOf(DayNumber day, double time) noexcept {
    // Far from day 0 the last instants of a day would round up to the next one.
    const double whole = std::abs(static_cast<double>(day));
    const double magnitude = std::min(whole + time, std::nextafter(whole + 1, 0.0));
    return Date(day < 0 ? -magnitude : magnitude);
}

// Days from civil and civil from days after H. Hinnant, "chrono-compatible low-level date
// algorithms": the year begins in March, an era is 400 years.
CivilDate CivilOf(DayNumber day) noexcept {
    const std::int64_t shifted = std::int64_t{day} + kEpoch + 719468;
    const std::int64_t era = FloorDiv(shifted, 146097);
    const auto dayOfEra = static_cast<int>(FloorMod(shifted, 146097));  // 0..146096
    const int yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;         // 0..399
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);  // 0..365
    const int shiftedMonth = (5 * dayOfYear + 2) / 153;                                    // 0..11
    const int dayOfMonth = dayOfYear - (153 * shiftedMonth + 2) / 5 + 1;                   // 1..31
    const int month = shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9;             // 1..12
    const auto year = static_cast<int>(yearOfEra + era * 400) + (month <= 2 ? 1 : 0);
    return {year, month, dayOfMonth};
}

DayNumber DayFromCivil(std::int64_t year, std::int64_t month, std::int64_t day) noexcept {
    constexpr std::int64_t kReach = 10'000'000;  // years; beyond the reach of DayNumber
    year = std::clamp(year, -kReach, kReach);
    month = std::clamp(month, -kReach, kReach) - 1;
    day = std::clamp(day, -kReach * 366, kReach * 366);
    year += FloorDiv(month, 12);
    const auto monthOfYear = static_cast<int>(FloorMod(month, 12)) + 1;  // 1..12

    const std::int64_t shiftedYear = monthOfYear <= 2 ? year - 1 : year;
    const std::int64_t era = FloorDiv(shiftedYear, 400);
    const auto yearOfEra = static_cast<int>(FloorMod(shiftedYear, 400));           // 0..399
    const int shiftedMonth = monthOfYear > 2 ? monthOfYear - 3 : monthOfYear + 9;  // 0..11
    const int dayOfYear = (153 * shiftedMonth + 2) / 5;                            // 0..337
    const int dayOfEra =
        yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;  // 0..146096
    const std::int64_t result = era * 146097 + dayOfEra - 719468 + (day - 1) - kEpoch;
    return static_cast<DayNumber>(std::clamp<std::int64_t>(
        result, std::numeric_limits<DayNumber>::min(), std::numeric_limits<DayNumber>::max()));
}

int YearOf(DayNumber day) noexcept { return CivilOf(day).year; }
int MonthOf(DayNumber day) noexcept { return CivilOf(day).month; }
int DayOfMonth(DayNumber day) noexcept { return CivilOf(day).day; }

int WeekDayOf(DayNumber day) noexcept {
    return static_cast<int>(FloorMod(std::int64_t{day} - 1, 7)) + 1;  // day 1 is a Sunday
}

bool IsWeekend(DayNumber day) noexcept {
    const int weekDay = WeekDayOf(day);
    return weekDay == 1 || weekDay == 7;
}

DayNumber AddMonths(DayNumber day, std::int64_t months) noexcept {
    const CivilDate civil = CivilOf(day);
    constexpr std::int64_t kReach = 200'000'000;  // months; beyond the reach of DayNumber
    const std::int64_t month = std::clamp(months, -kReach, kReach) + civil.month - 1;
    const std::int64_t year = civil.year + FloorDiv(month, 12);
    const auto monthOfYear = static_cast<int>(FloorMod(month, 12)) + 1;  // 1..12
    return DayFromCivil(year, monthOfYear, std::min(civil.day, DaysIn(year, monthOfYear)));
}

DayNumber FirstOfMonth(DayNumber day) noexcept {
    const CivilDate civil = CivilOf(day);
    return DayFromCivil(civil.year, civil.month, 1);
}

DayNumber LastOfMonth(DayNumber day) noexcept {
    const CivilDate civil = CivilOf(day);
    return DayFromCivil(civil.year, civil.month, DaysIn(civil.year, civil.month));
}

std::int32_t MonthsBetween(DayNumber from, DayNumber to) noexcept {
    return MonthIndex(to) - MonthIndex(from);
}

std::int32_t MonthIndex(DayNumber day) noexcept {
    const CivilDate civil = CivilOf(day);
    return (civil.year - 1900) * 12 + civil.month;
}

}  // namespace velmora
