#include "calendar/KeySteps.h"
#include "calendar/VmCalendar.h"
#include "platform/Keys.h"

#include <algorithm>

namespace velmora {

void VmCalendar::OnKeyDown(std::int16_t& keyCode, std::int16_t& shift) {
    if (!m_platform.windowing.TakesInput()) return;
    const std::int16_t arrival = keyCode;
    const Lifetime::Watch alive(m_lifetime);
    m_events.KeyDown.Raise(keyCode, shift);
    if (!alive || !m_platform.windowing.TakesInput() || keyCode == 0) return;

    if (m_selectors.MonthListDropped() || !WantsKey(keyCode, false)) {
        if (keyCode == kKeyEscape) EndPress();
        keyCode = arrival;
        return;
    }
    if (StepByKey(keyCode, shift)) keyCode = 0;
}

bool VmCalendar::WantsKey(std::int16_t keyCode, bool inChild) const {
    switch (keyCode) {
        case kKeyLeft:
        case kKeyRight:
        case kKeyUp:
        case kKeyDown:
        case kKeyPageUp:
        case kKeyPageDown: return true;
        case kKeyHome:
        case kKeyEnd:
        case kKeyEnter: return inChild || m_state.extendedNavigation;
        case kKeySpace: return m_state.extendedNavigation;
        case kKeyEscape:
        case kKeyF4: return inChild;  // the month list's and the year box's
        default: return false;
    }
}

/// Returns whether the key was used; a refused step has changed nothing.
bool VmCalendar::StepByKey(std::int16_t keyCode, std::int16_t shift) {
    const bool extended = m_state.extendedNavigation;
    if (IsChoice(m_state, keyCode, shift)) return ChooseSelected();
    const int months = extended ? 0 : MonthsOf(keyCode, shift);
    if (months != 0) return StepShown(months);
    if (m_platform.windowing.IsRightToLeft()) keyCode = MirroredKey(keyCode);
    const DayNumber from = DayOf(m_state.dateValue);
    const auto day = DayByKey(m_state, from, keyCode, shift, m_platform.dates.Today());
    if (!day || !IsSelectable(*day)) return false;
    if (*day == from) {  // Home on the first day
        ShowSelection();
        return true;
    }
    if (!RequestUserDate(*day)) return false;
    SelectDate(DateOf(*day, TimeOf(m_state.dateValue)),
               extended ? Follow::Always : Follow::OtherMonths);
    return true;
}

/// What a click on the selected day does. Without any effect the key is left to the dialog around.
bool VmCalendar::ChooseSelected() {
    const DayNumber day = DayOf(m_state.dateValue);
    const bool isShown = MonthsBetween(DayOf(m_state.shownDate), day) == 0;
    const bool does = m_state.alwaysDateChanged || !isShown;
    OnDayPicked(day);
    return does;
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
