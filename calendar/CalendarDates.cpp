#include "calendar/VmCalendar.h"

#include <utility>

namespace velmora {

/// Moving the date to a limit raises no event and paints nothing: the container alone learns of it.
void VmCalendar::Let(const LimitProperty& property, Date value) {
    const bool clamps = property.keep(m_state, value);
    if (clamps) {
        m_state.dateValue = m_state.*property.field;
        m_state.dateChosen = true;
        ShowDate(m_state.dateValue);
    }
    SyncSelectors();
    if (m_state.extendedNavigation) Invalidate(m_layout.MonthBand());  // which arrows lead on
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
    if (DayOf(date) == DayOf(m_state.dateValue)) {
        m_state.dateChosen = true;
        return;
    }
    CheckDateValue(m_state, date);
    SelectDate(date);
}

bool VmCalendar::RequestUserDate(DayNumber day) {
    const Lifetime::Watch alive(m_lifetime);
    const unsigned change = m_dateChanges;
    return m_platform.hosting.RequestEdit(kDateValue.name) && alive && change == m_dateChanges &&
           IsInLimits(m_state, day);
}

DayRef VmCalendar::SelectedDay() const {
    return m_days->Item(static_cast<std::int16_t>(DayOfMonth(DayOf(m_state.dateValue))));
}

/// Moves the grid; the days and the selectors follow at once, so that every handler finds them in
/// step. Returns the date that was shown.
Date VmCalendar::ShowDate(Date date) {
    const Date before = std::exchange(m_state.shownDate, date);
    ++m_dateChanges;
    const bool otherMonth = MonthsBetween(DayOf(before), DayOf(date)) != 0;
    if (otherMonth || m_days->Count() == 0) {
        m_days->LoadMonth(DayOf(date));
        m_outdated = true;
    }
    SyncSelectors();
    return before;
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
    m_state.dateChosen = true;
    const bool sameMonthNumber = MonthOf(DayOf(previous)) == MonthOf(DayOf(date));
    const bool follows = follow == Follow::Always || !sameMonthNumber;
    const Date shownBefore = follows ? ShowDate(date) : date;
    ++m_dateChanges;

    const Lifetime::Watch alive(m_lifetime);
    RaiseThen([&] { RaiseDateParts(previous, shownBefore, date); },
              [&] {
                  if (alive) m_platform.hosting.PropertyChanged(kDateValue.name);
                  if (alive) RepaintSelection();
              });
}

/// The grid goes back to the month of the selected date.
void VmCalendar::ShowSelection() {
    if (MonthsBetween(DayOf(m_state.shownDate), DayOf(m_state.dateValue)) == 0) return;
    MoveShown(m_state.dateValue, Turn::Back);
}

/// Shows another month and leaves the selected date where it is.
void VmCalendar::MoveShown(Date date, Turn turn) {
    const CivilDate before = CivilOf(DayOf(ShowDate(date)));
    const CivilDate after = CivilOf(DayOf(date));
    const unsigned change = m_dateChanges;
    const Lifetime::Watch alive(m_lifetime);
    RaiseThen(
        [&] {
            if (after.month != before.month || turn == Turn::Back) SelectMonth(after.month);
            if (!alive || change != m_dateChanges) return;
            if (after.year != before.year) SelectYear(after.year);
        },
        [&] {
            if (alive) RepaintSelection();
        });
}

/// Tells of a date that has been selected, and of the month when the grid has left another one for
/// it. Stops when a handler has moved the date again: that move has raised events of its own.
void VmCalendar::RaiseDateParts(Date from, Date shownBefore, Date to) {
    const CivilDate before = CivilOf(DayOf(from));
    const CivilDate shown = CivilOf(DayOf(shownBefore));
    const CivilDate after = CivilOf(DayOf(to));
    const bool wasTurned = MonthsBetween(DayOf(from), DayOf(shownBefore)) != 0;
    const bool turnsBack = wasTurned && MonthsBetween(DayOf(shownBefore), DayOf(to)) != 0;
    const bool otherMonth = after.month != before.month || turnsBack;
    const bool otherYear = after.year != before.year || after.year != shown.year;
    const unsigned change = m_dateChanges;
    const Lifetime::Watch alive(m_lifetime);
    const auto goesOn = [&] { return alive && change == m_dateChanges; };

    Date newDate = to;
    m_events.DateChanged.Raise(newDate);
    if (goesOn() && after.day != before.day) {
        auto newDay = static_cast<std::int16_t>(after.day);
        m_events.DayChanged.Raise(newDay);
    }
    if (goesOn() && otherMonth) SelectMonth(after.month);
    if (!goesOn() || !otherYear) return;
    if (!otherMonth) return SelectYear(after.year);
    m_state.noRepaintControl = true;  // one repaint, after the last event
    RaiseThen([&] { SelectYear(after.year); },
              [&] {
                  if (alive) m_state.noRepaintControl = false;
              });
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
