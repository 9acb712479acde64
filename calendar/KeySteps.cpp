#include "calendar/KeySteps.h"

#include "platform/Keys.h"

namespace velmora {
namespace {

/// That day, or where a work week has no cell for it the next one that has, in that direction.
DayNumber Visible(const CalendarState& state, DayNumber day, int direction) noexcept {
    while (!state.showWeekend && IsWeekend(day)) day += direction;
    return day;
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
        case kKeyPageDown: return AddMonths(from, MonthsOf(keyCode, shift));
        case kKeyHome:
            if (!state.extendedNavigation) break;
            return ctrl ? today : Visible(state, FirstOfMonth(from), 1);
        case kKeyEnd:
            if (!state.extendedNavigation || ctrl) break;
            return Visible(state, LastOfMonth(from), -1);
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
