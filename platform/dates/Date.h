#pragma once

#include <compare>
#include <cstdint>

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

CivilDate CivilOf(DayNumber day) noexcept;
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
DayNumber FirstOfMonth(DayNumber day) noexcept;
DayNumber LastOfMonth(DayNumber day) noexcept;
/// Month boundaries crossed on the way from `from` to `to`; negative backwards.
std::int32_t MonthsBetween(DayNumber from, DayNumber to) noexcept;
/// (year - 1900) x 12 + month: the position of a month on the calendar's month scroll bar.
std::int32_t MonthIndex(DayNumber day) noexcept;

}  // namespace velmora
