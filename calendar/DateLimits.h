#pragma once

#include "calendar/CalendarState.h"
#include "platform/dates/Date.h"

#include <optional>

namespace velmora {

/// The rules of the three dates, for everything that holds them. Whole days count, not times.

/// Error 380: the year lies outside 200..4600.
void CheckYear(Date date);

bool IsInLimits(const CalendarState& state, DayNumber day) noexcept;

/// The date to show that many months on from the shown one. Nothing when it lies beyond the limit
/// in that direction; from beyond the other one it may lie outside still.
std::optional<DayNumber> ShownAfter(const CalendarState& state, int months) noexcept;

/// Error 380: year outside 200..4600, or outside the limits; nothing is stored here.
void CheckDateValue(const CalendarState& state, Date date);

/// Stores the last day of the value's month, or the first for `DateMin`. Returns whether
/// `dateValue` lies beyond the new limit, which is where it then belongs. Error 380: year outside
/// 200..4600, or beyond the other limit.
bool StoreDateMax(CalendarState& state, Date value);
bool StoreDateMin(CalendarState& state, Date value);

}  // namespace velmora
