#pragma once

#include <algorithm>
#include <compare>
#include <cstdint>
#include <limits>

namespace velmora {

/// A moment as a day number: day 0 is 30 December 1899, the fraction is the time of day.
/// The fraction counts forward in the day on both sides of zero: -1.25 is day -1 at 06:00.
struct Date {
    double value = 0;

    constexpr Date() = default;
    constexpr explicit Date(double dayNumber) : value(dayNumber) {}

    friend constexpr bool operator==(Date, Date) = default;
};

/// A whole day, counted like `Date`. Proleptic Gregorian.
using DayNumber = std::int32_t;

inline constexpr DayNumber kFirstDay = -657434;  // 1 January 100
inline constexpr DayNumber kLastDay = 2958465;   // 31 December 9999

struct CivilDate {
    int year = 0;   // -5 800 000..5 800 000, the reach of DayNumber
    int month = 0;  // 1..12
    int day = 0;    // 1..31

    friend constexpr auto operator<=>(const CivilDate&, const CivilDate&) = default;
};

/// The arithmetic of whole days. All of it is total: no argument overflows, loops or throws.

/// The day of a moment, without its time; clamped to kFirstDay..kLastDay, not-a-number is day 0.
DayNumber DayOf(Date date) noexcept;
/// The time of day as a fraction, 0 <= t < 1; 0 for anything not finite.
double TimeOf(Date date) noexcept;
/// The moment on `day` at the fraction `time` of it (0 <= time < 1), on either side of day 0.
Date DateOf(DayNumber day, double time = 0) noexcept;

constexpr CivilDate CivilOf(DayNumber day) noexcept;
/// Month and day may lie outside their ranges and carry over, as in (2024, 14, 0).
/// The result is clamped to the reach of DayNumber.
DayNumber DayFromCivil(std::int64_t year, std::int64_t month, std::int64_t day) noexcept;

int YearOf(DayNumber day) noexcept;
int MonthOf(DayNumber day) noexcept;     // 1..12
int DayOfMonth(DayNumber day) noexcept;  // 1..31
int WeekDayOf(DayNumber day) noexcept;   // 1..7, Sunday is 1
bool IsWeekend(DayNumber day) noexcept;  // Saturday or Sunday

/// Keeps the day of month; in a shorter month takes its last day (31 January + 1 is 28 or 29
/// February). Years are 12 months.
DayNumber AddMonths(DayNumber day, std::int64_t months) noexcept;
constexpr DayNumber FirstOfMonth(DayNumber day) noexcept;
constexpr DayNumber LastOfMonth(DayNumber day) noexcept;
/// Month boundaries crossed on the way from `from` to `to`; negative backwards.
std::int32_t MonthsBetween(DayNumber from, DayNumber to) noexcept;
/// (year - 1900) x 12 + month: the position of a month on the calendar's month scroll bar.
std::int32_t MonthIndex(DayNumber day) noexcept;

// What every cell of a grid asks for.

namespace detail {

// Day 0 of this library counted from 1 January 1970, the epoch of the formulas below.
inline constexpr std::int64_t kEpoch = -25569;

constexpr bool IsLeapYear(std::int64_t year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int DaysIn(std::int64_t year, int month) noexcept {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

constexpr DayNumber Reached(std::int64_t day) noexcept {
    return static_cast<DayNumber>(std::clamp<std::int64_t>(
        day, std::numeric_limits<DayNumber>::min(), std::numeric_limits<DayNumber>::max()));
}

}  // namespace detail

// After C. Neri and L. Schneider, "Euclidean affine functions and their application to calendar
// algorithms": the year begins in March, and a division by the days of four years or of five months
// is a multiplication. Counted from centuries before all days, as signs cost time.
constexpr CivilDate CivilOf(DayNumber day) noexcept {
    constexpr int kCenturiesBefore = 60'000;
    constexpr std::int64_t kShift =
        detail::kEpoch + 719468 + std::int64_t{146097} * kCenturiesBefore / 4;
    const std::uint64_t quarters = 4 * static_cast<std::uint64_t>(day + kShift) + 3;
    const auto century = static_cast<std::uint32_t>(quarters / 146097);
    const auto dayOfCentury = static_cast<std::uint32_t>(quarters % 146097) / 4;  // 0..36524
    const std::uint64_t years = 2939745 * std::uint64_t{4 * dayOfCentury + 3};
    const auto yearOfCentury = static_cast<std::uint32_t>(years >> 32);               // 0..99
    const std::uint32_t dayOfYear = static_cast<std::uint32_t>(years) / 2939745 / 4;  // 0..365
    const std::uint32_t months = 2141 * dayOfYear + 197913;
    const bool isNextYear = dayOfYear >= 306;  // January and February
    const auto month = static_cast<int>(months >> 16) - (isNextYear ? 12 : 0);
    const int year =
        100 * (static_cast<int>(century) - kCenturiesBefore) + static_cast<int>(yearOfCentury);
    return {year + (isNextYear ? 1 : 0), month, static_cast<int>((months & 0xFFFF) / 2141) + 1};
}

constexpr DayNumber FirstOfMonth(DayNumber day) noexcept {
    return detail::Reached(std::int64_t{day} - CivilOf(day).day + 1);
}

constexpr DayNumber LastOfMonth(DayNumber day) noexcept {
    const CivilDate civil = CivilOf(day);
    return detail::Reached(std::int64_t{day} - civil.day + detail::DaysIn(civil.year, civil.month));
}

}  // namespace velmora
