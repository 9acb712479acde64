#include "calendar/VmCalendar.h"
#include "platform/Keys.h"

#include <algorithm>

namespace velmora {
namespace {

/// Days that an arrow key moves the selection, 0 for any other key.
constexpr int DaysOf(std::int16_t keyCode) noexcept {
    switch (keyCode) {
        case kKeyLeft: return -1;
        case kKeyRight: return 1;
        case kKeyUp: return -7;
        case kKeyDown: return 7;
        default: return 0;
    }
}

/// Months that a page key moves the shown date, 0 for any other key.
constexpr int MonthsOf(std::int16_t keyCode, std::int16_t shift) noexcept {
    const int months = (shift & kShiftCtrl) != 0 ? 12 : 1;
    if (keyCode == kKeyPageUp) return -months;
    return keyCode == kKeyPageDown ? months : 0;
}

}  // namespace

void VmCalendar::OnKeyDown(std::int16_t& keyCode, std::int16_t& shift) {
    if (!m_platform.windowing.TakesInput()) return;
    const std::int16_t arrival = keyCode;
    const Lifetime::Watch alive(m_lifetime);
    m_events.KeyDown.Raise(keyCode, shift);
    if (!alive || !m_platform.windowing.TakesInput() || keyCode == 0) return;

    const bool navigates = DaysOf(keyCode) != 0 || MonthsOf(keyCode, shift) != 0;
    if (m_selectors.MonthListDropped() || !navigates) {
        if (keyCode == kKeyEscape) EndPress();
        keyCode = arrival;
        return;
    }
    if (StepByKey(keyCode, shift)) keyCode = 0;
}

bool VmCalendar::WantsKey(std::int16_t keyCode, bool inChild) const {
    switch (keyCode) {
        case kKeyHome:
        case kKeyEnd:
        case kKeyEnter:
        case kKeyEscape:
        case kKeyF4: return inChild;  // the month list's and the year box's
        default: return DaysOf(keyCode) != 0 || MonthsOf(keyCode, 0) != 0;
    }
}

/// Returns whether the step was made; a refused one has changed nothing.
bool VmCalendar::StepByKey(std::int16_t keyCode, std::int16_t shift) {
    const int months = MonthsOf(keyCode, shift);
    return months != 0 ? StepShown(months) : StepSelection(DaysOf(keyCode));
}

bool VmCalendar::StepSelection(int days) {
    DayNumber day = DayOf(m_state.dateValue) + days;
    if (!m_state.showWeekend && (days == 1 || days == -1)) {
        while (IsWeekend(day)) day += days;
    }
    if (days < 0 ? day < DayOf(m_state.dateMin) : day > DayOf(m_state.dateMax)) return false;
    if (!RequestUserDate(day)) return false;
    SelectDate(DateOf(day, TimeOf(m_state.dateValue)), Follow::OtherMonths);
    return true;
}

/// Moves the shown date and selects where it arrives. Raises `MonthChanged`, or `YearChanged` when
/// the month's number is the same, but neither `DateChanged` nor `DayChanged`.
bool VmCalendar::StepShown(int months) {
    const DayNumber before = DayOf(m_state.shownDate);
    const DayNumber minimum = DayOf(m_state.dateMin);
    const DayNumber maximum = DayOf(m_state.dateMax);
    const DayNumber wanted = AddMonths(before, months);
    if (months < 0 ? wanted < minimum : wanted > maximum) return false;
    // Coming back from a month beyond the limits, the step ends at the limit.
    const DayNumber day = std::max(minimum, std::min(wanted, maximum));

    if (!RequestUserDate(day)) return false;
    m_state.dateValue = DateOf(day, TimeOf(m_state.dateValue));
    m_state.dateChosen = true;
    ShowDate(m_state.dateValue);
    const Lifetime::Watch alive(m_lifetime);
    const bool otherMonth = MonthOf(day) != MonthOf(before);
    RaiseThen([&] { otherMonth ? SelectMonth(MonthOf(day)) : SelectYear(YearOf(day)); },
              [&] {
                  if (alive) m_platform.hosting.PropertyChanged(kDateValue.name);
                  if (alive) RepaintSelection();
              });
    return true;
}

void VmCalendar::OnKeyPress(std::int16_t& keyAscii) {
    if (m_platform.windowing.TakesInput()) m_events.KeyPress.Raise(keyAscii);
}

void VmCalendar::OnKeyUp(std::int16_t& keyCode, std::int16_t& shift) {
    if (m_platform.windowing.TakesInput()) m_events.KeyUp.Raise(keyCode, shift);
}

}  // namespace velmora
