#include "calendar/VmCalendar.h"

#include <utility>

namespace velmora {

/// Moving the date to a limit raises no event and paints nothing: the container alone learns of it.
void VmCalendar::Let(const LimitProperty& property, Date value) {
    const bool clamps = property.keep(m_state, value);
    if (clamps) {
        m_state.dateValue = m_state.*property.field;
        ShowDate(m_state.dateValue);
    }
    SyncSelectors();
    const Lifetime::Watch alive(m_lifetime);
    if (clamps) m_platform.hosting.PropertyChanged(kDateValue.name);
    if (alive) m_platform.hosting.PropertyChanged(property.name);
}

Variant VmCalendar::DateValue() const {
    return m_platform.dates.Format(m_state.dateValue, "Short Date");
}

void VmCalendar::DateValue(const Variant& value) {
    if (value.Type() == VarType::Empty) return;
    const Date date = ToDate(value);
    if (DayOf(date) == DayOf(m_state.dateValue)) return;
    CheckDateValue(m_state, date);
    SelectDate(date);
}

DayRef VmCalendar::SelectedDay() const {
    return m_days->Item(static_cast<std::int16_t>(DayOfMonth(DayOf(m_state.dateValue))));
}

/// Moves the grid; the days and the selectors follow at once, so that every handler finds them in
/// step. Returns whether another month is shown.
bool VmCalendar::ShowDate(Date date) {
    const bool otherMonth = MonthsBetween(DayOf(m_state.shownDate), DayOf(date)) != 0;
    m_state.shownDate = date;
    ++m_dateChanges;
    if (otherMonth || m_days->Count() == 0) m_days->LoadMonth(DayOf(date));
    SyncSelectors();
    return otherMonth;
}

void VmCalendar::SyncSelectors() {
    const DayNumber minimum = DayOf(m_state.dateMin);
    const DayNumber maximum = DayOf(m_state.dateMax);
    const DayNumber shown = DayOf(m_state.shownDate);
    m_selectors.YearRange(YearOf(minimum), YearOf(maximum));
    m_selectors.MonthPositionRange(MonthIndex(minimum), MonthIndex(maximum));
    m_selectors.Month(MonthOf(shown));
    m_selectors.Year(YearOf(shown));
    m_selectors.MonthPosition(MonthIndex(shown));
}

/// Selects a date that has been found valid: state, then events, then what has to be redrawn.
void VmCalendar::SelectDate(Date date, Follow follow) {
    const Date previous = std::exchange(m_state.dateValue, date);
    const bool sameMonthNumber = MonthOf(DayOf(previous)) == MonthOf(DayOf(date));
    if (follow == Follow::Always || !sameMonthNumber) ShowDate(date);
    ++m_dateChanges;

    const Lifetime::Watch alive(m_lifetime);
    RaiseDateParts(previous, date);
    if (!alive) return;
    m_platform.hosting.PropertyChanged(kDateValue.name);
    if (alive) RepaintSelection();
}

/// Shows another month and leaves the selected date where it is.
void VmCalendar::MoveShown(Date date) {
    const CivilDate before = CivilOf(DayOf(m_state.shownDate));
    const CivilDate after = CivilOf(DayOf(date));
    ShowDate(date);
    const unsigned change = m_dateChanges;
    const Lifetime::Watch alive(m_lifetime);
    if (after.month != before.month) SelectMonth(after.month);
    if (alive && change == m_dateChanges && after.year != before.year) SelectYear(after.year);
    if (alive) RepaintSelection();
}

/// Stops when a handler has moved the date again: that move has raised events of its own.
void VmCalendar::RaiseDateParts(Date from, Date to) {
    const CivilDate before = CivilOf(DayOf(from));
    const CivilDate after = CivilOf(DayOf(to));
    const unsigned change = m_dateChanges;
    const Lifetime::Watch alive(m_lifetime);
    const auto goesOn = [&] { return alive && change == m_dateChanges; };

    Date newDate = to;
    m_events.DateChanged.Raise(newDate);
    if (goesOn() && after.day != before.day) {
        auto newDay = static_cast<std::int16_t>(after.day);
        m_events.DayChanged.Raise(newDay);
    }
    if (goesOn() && after.month != before.month) SelectMonth(after.month);
    if (!goesOn() || after.year == before.year) return;
    const bool both = after.month != before.month;
    if (both) m_state.noRepaintControl = true;  // one repaint, after the last event
    SelectYear(after.year);
    if (alive && both) m_state.noRepaintControl = false;
}

void VmCalendar::SelectMonth(int month) {
    m_selectors.Month(month);
    auto newMonth = static_cast<std::int16_t>(month);
    m_events.MonthChanged.Raise(newMonth);
}

void VmCalendar::SelectYear(int year) {
    m_selectors.Year(year);
    auto newYear = static_cast<std::int16_t>(year);
    m_events.YearChanged.Raise(newYear);
}

}  // namespace velmora
