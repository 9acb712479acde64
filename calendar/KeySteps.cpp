#include "calendar/KeySteps.h"

#include "platform/Keys.h"

namespace velmora {
namespace {

/// That day, or where a work week has no cell for it the next one that has, in that direction.
DayNumber Visible(const CalendarState& state, DayNumber day, int direction) noexcept {
    while (!state.showWeekend && IsWeekend(day)) day += direction;
    return day;
}

/// Of a month of the work week the nearest day that has a cell.
DayNumber Nearest(const CalendarState& state, DayNumber day) noexcept {
    const DayNumber on = Visible(state, day, 1);
    return MonthsBetween(day, on) == 0 ? on : Visible(state, day, -1);
}

}  // namespace

std::optional<DayNumber> DayByKey(const CalendarState& state, DayNumber from, std::int16_t keyCode,
                                  std::int16_t shift, DayNumber today) noexcept {
    const bool ctrl = (shift & kShiftCtrl) != 0;
    switch (keyCode) {
        case kKeyLeft: return Visible(state, from - 1, -1);
        case kKeyRight: return Visible(state, from + 1, 1);
        case kKeyUp: return from - 7;
        case kKeyDown: return from + 7;
        case kKeyPageUp:
        case kKeyPageDown: {
            const DayNumber day = AddMonths(from, MonthsOf(keyCode, shift));
            return state.extendedNavigation ? Nearest(state, day) : day;
        }
        case kKeyHome:
            if (!state.extendedNavigation) break;
            return Nearest(state, ctrl ? today : FirstOfMonth(from));
        case kKeyEnd:
            if (!state.extendedNavigation || ctrl) break;
            return Nearest(state, LastOfMonth(from));
        default: break;
    }
    return std::nullopt;
}

int MonthsOf(std::int16_t keyCode, std::int16_t shift) noexcept {
    const int months = (shift & kShiftCtrl) != 0 ? 12 : 1;
    if (keyCode == kKeyPageUp) return -months;
    return keyCode == kKeyPageDown ? months : 0;
}

bool IsChoice(const CalendarState& state, std::int16_t keyCode, std::int16_t shift) noexcept {
    return state.extendedNavigation && (shift & (kShiftCtrl | kShiftAlt)) == 0 &&
           (keyCode == kKeyEnter || keyCode == kKeySpace);
}

}  // namespace velmora
