#include "platform/dates/Date.h"

#include "platform/FloorDiv.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr std::int64_t FloorMod(std::int64_t value, std::int64_t divisor) noexcept {
    return value - FloorDiv(value, divisor) * divisor;
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
    if (time == 0) return Date(day);
    // Far from day 0 the last instants of a day would round up to the next one.
    const double whole = std::abs(static_cast<double>(day));
    const double magnitude = std::min(whole + time, std::nextafter(whole + 1, 0.0));
    return Date(day < 0 ? -magnitude : magnitude);
}

// After H. Hinnant, "chrono-compatible low-level date algorithms": an era is 400 years.
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
    return detail::Reached(era * 146097 + dayOfEra - 719468 + (day - 1) - detail::kEpoch);
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
    return DayFromCivil(year, monthOfYear, std::min(civil.day, detail::DaysIn(year, monthOfYear)));
}

std::int32_t MonthsBetween(DayNumber from, DayNumber to) noexcept {
    return MonthIndex(to) - MonthIndex(from);
}

std::int32_t MonthIndex(DayNumber day) noexcept {
    const CivilDate civil = CivilOf(day);
    return (civil.year - 1900) * 12 + civil.month;
}

}  // namespace velmora
