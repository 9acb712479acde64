#pragma once

#include "calendar/CalendarState.h"
#include "platform/dates/Date.h"

#include <cstdint>
#include <optional>

namespace velmora {

/// Where a key leads from that day, within the limits or not: the arrow and page keys, and with
/// `extendedNavigation` Home, End and Ctrl+Home. Nothing for any other key.
std::optional<DayNumber> DayByKey(const CalendarState& state, DayNumber from, std::int16_t keyCode,
                                  std::int16_t shift, DayNumber today) noexcept;

/// Months that a page key steps, 0 for any other key.
int MonthsOf(std::int16_t keyCode, std::int16_t shift) noexcept;

/// Whether the key takes what is selected: Enter or Space, with `extendedNavigation`.
bool IsChoice(const CalendarState& state, std::int16_t keyCode, std::int16_t shift) noexcept;

}  // namespace velmora
