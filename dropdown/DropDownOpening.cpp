#include "dropdown/VmCalDropDown.h"

#include <utility>

namespace velmora {

void VmCalDropDown::DropDownState(bool value) {
    if (!m_platform.windowing.Enabled()) return;
    if (!value) {
        CloseDropDown();
    } else if (!m_droppedDown) {
        m_pendingDrop = true;
        if (m_hasFocus) {
            OnGotFocus();
        } else {
            m_platform.windowing.SetFocus();
        }
    }
}

void VmCalDropDown::ToggleDropDown() {
    if (m_droppedDown) {
        CloseDropDown();
    } else {
        ShowDropDown();
    }
}

/// Below the box, flush with its left edge or ending one pixel left of its right edge. Screen
/// pixels.
Rect VmCalDropDown::DropDownPlace() const {
    const Size box = m_platform.windowing.ClientSize();
    const int left = m_box.alignment == VmRightJustified ? box.width - 1 - m_box.widthPixels : 0;
    const Point corner = m_platform.windowing.ClientToScreen({left, box.height});
    return {corner.x, corner.y, corner.x + m_box.widthPixels, corner.y + m_box.heightPixels};
}

void VmCalDropDown::ShowDropDown() {
    const Lifetime::Watch alive(m_lifetime);
    if (m_form.GetOwner() && !OwnsForm()) m_form.GetOwner()->CloseDropDown();
    if (!alive || m_form.GetOwner()) return;  // its handler has opened a box
    m_form.SetOwner(this);
    m_opening = true;
    const Rect place = DropDownPlace();
    m_form.Load(m_store);

    bool cancel = false;
    m_events.DropDown.Raise(cancel);
    if (!alive) return;
    m_opening = false;
    if (!OwnsForm()) return;  // closed again by the handler
    m_droppedDown = true;     // a cancelled opening too counts as open until the next close
    if (cancel) return;
    m_form.Show(place);
    m_form.TrackMouse();
}

void VmCalDropDown::CloseDropDown() {
    if (OwnsForm()) {
        TakeCalendarDate();
        UpdateDateText(DateValue());
        m_form.SetOwner(nullptr);
        m_form.Close();
        m_store.FollowMonth(DayOf(DateValue()));
    }
    m_droppedDown = false;
    m_noLostFocus = false;
    RepaintControl();
    m_events.CloseUp.Raise();
}

/// The calendar ignores times: on another day the box keeps its own.
void VmCalDropDown::TakeCalendarDate() {
    const DayNumber day = DayOf(m_form.Calendar().SelectedDate());
    if (day != DayOf(DateValue())) m_store.DateValue(DateOf(day, TimeOf(DateValue())));
}

void VmCalDropDown::OnCalendarDateChanged(Date newDate) {
    TakeCalendarDate();
    UpdateDateText(newDate);
    if (m_opening) return;
    ++m_dateChanges;
    const Lifetime::Watch alive(m_lifetime);
    m_events.DateChanged.Raise(newDate);
    if (alive) Notify(kDateValue.name);
}

void VmCalDropDown::OnCalendarDayChanged() {
    if (m_opening) return;
    TakeCalendarDate();
    auto day = static_cast<std::int16_t>(DayOfMonth(DayOf(DateValue())));
    m_events.DayChanged.Raise(day);
}

/// The month is the one that the calendar shows, which its arrows move without the date.
void VmCalDropDown::OnCalendarMonthChanged() {
    if (m_opening) return;
    const DayNumber shown = DayOf(m_form.Calendar().ShownDate());
    TakeCalendarDate();
    m_store.FollowMonth(shown);
    auto month = static_cast<std::int16_t>(MonthOf(shown));
    m_events.MonthChanged.Raise(month);
}

void VmCalDropDown::OnCalendarYearChanged() {
    if (m_opening) return;
    TakeCalendarDate();
    m_store.FollowMonth(DayOf(m_form.Calendar().ShownDate()));
    auto year = static_cast<std::int16_t>(YearOf(DayOf(m_form.Calendar().ShownDate())));
    m_events.YearChanged.Raise(year);
}

/// What the host does to a day of the box shows in the open calendar.
void VmCalDropDown::CopyDecoration(Date day) {
    if (!OwnsForm()) return;
    VmCalendar& calendar = m_form.Calendar();
    if (MonthsBetween(DayOf(calendar.ShownDate()), DayOf(day)) != 0) return;
    const auto number = static_cast<std::int16_t>(DayOfMonth(DayOf(day)));
    const DayRef from = Days()->Item(number);
    const DayRef to = calendar.Days()->Item(number);
    to->BackColor(from->BackColor());
    to->ForeColor(from->ForeColor());
    to->Caption(from->Caption());
    to->Picture(from->Picture());
}

}  // namespace velmora
