#include "dropdown/VmCalDropDown.h"

#include "platform/ScaleMode.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmora {

void VmCalDropDown::DropDownState(bool value) {
    if (!m_platform.windowing.Enabled()) return;
    if (!value) return CloseDropDown();
    if (m_phase != Phase::Closed && m_phase != Phase::Wanted) return;
    m_phase = Phase::Wanted;
    if (m_hasFocus) {
        OnGotFocus();
    } else {
        m_platform.windowing.SetFocus();
    }
}

void VmCalDropDown::OnGotFocus() {
    m_hasFocus = true;
    RepaintControl();
    if (m_phase == Phase::Wanted) ShowDropDown();
}

void VmCalDropDown::OnLostFocus() {
    m_hasFocus = false;
    m_closedByAlt = false;
    RepaintControl();
    if (m_phase == Phase::Wanted) m_phase = Phase::Closed;
    if (DropDownState() && !m_noLostFocus) CloseDropDown();
}

void VmCalDropDown::OnWindowChanged() {
    m_buttonDown = false;
    RepaintControl();
    if (DropDownState()) CloseDropDown();
}

void VmCalDropDown::ToggleDropDown() {
    if (DropDownState()) {
        CloseDropDown();
    } else {
        ShowDropDown();
    }
}

void VmCalDropDown::ShowDropDown() {
    if (m_phase != Phase::Closed && m_phase != Phase::Wanted) return;
    m_phase = Phase::Closed;
    const Lifetime::Watch alive(m_lifetime);
    if (m_form.GetOwner()) m_form.GetOwner()->CloseDropDown();
    if (!alive || m_form.GetOwner()) return;  // its handler has opened a box
    m_phase = Phase::Opening;
    m_dateBefore = DateValue();
    m_form.SetOwner(this);
    m_form.Load(m_store);
    bool cancel = false;
    RaiseThen([&] { m_events.DropDown.Raise(cancel); },
              [&] {
                  if (alive && m_phase == Phase::Opening) EndOpening(cancel);
              });
}

/// After the handlers: they may have set the size, or disabled the box.
void VmCalDropDown::EndOpening(bool cancelled) {
    m_phase = cancelled ? Phase::Cancelled : Phase::Open;
    if (!TakesInput()) return CloseDropDown();
    if (cancelled) return;
    m_form.Show(DropDownPlace());
    m_form.TrackMouse();
}

void VmCalDropDown::CloseDropDown() {
    if (m_phase == Phase::Closing) return;
    m_phase = Phase::Closing;
    m_noLostFocus = false;
    const Lifetime::Watch alive(m_lifetime);
    RaiseThen(
        [&] {
            if (OwnsForm()) ReturnForm();
        },
        [&] {
            if (!alive) return;
            m_phase = Phase::Closed;
            RepaintControl();
            m_events.CloseUp.Raise();
        });
}

/// By Escape, which with extended navigation brings back the date from before the opening, unless
/// the limits or the container are against it.
void VmCalDropDown::GiveUpDropDown() {
    const DayNumber day = DayOf(m_dateBefore);
    const Lifetime::Watch alive(m_lifetime);
    RaiseThen(
        [&] {
            if (!ExtendedNavigation() || day == DayOf(DateValue()) || !OwnsForm()) return;
            if (IsInLimits(m_store.Values(), day) && RequestUserDate(day) && OwnsForm()) {
                m_form.Calendar().DateValue(m_dateBefore);
            }
        },
        [&] {
            if (alive && DropDownState()) CloseDropDown();
        });
}

void VmCalDropDown::ReturnForm() {
    TakeCalendarDate();
    UpdateDateText(DateValue());
    m_form.SetOwner(nullptr);
    m_form.Close();
    ShowOwnMonth();
}

/// The days of a month that the calendar's arrows have shown go back to the month of the date.
void VmCalDropDown::ShowOwnMonth() {
    const DayNumber shown = DayOf(m_store.Values().shownDate);
    const DayNumber own = DayOf(DateValue());
    m_store.FollowMonth(own);
    if (MonthsBetween(shown, own) == 0) return;
    auto month = static_cast<std::int16_t>(MonthOf(own));
    auto year = static_cast<std::int16_t>(YearOf(own));
    const Lifetime::Watch alive(m_lifetime);
    m_events.MonthChanged.Raise(month);
    if (alive && year != YearOf(shown)) m_events.YearChanged.Raise(year);
}

/// Closes an open calendar without taking its date and without an event.
void VmCalDropDown::Abandon() {
    m_phase = Phase::Closed;
    if (!OwnsForm()) return;
    m_form.SetOwner(nullptr);
    m_form.Close();
}

/// Below the box, flush with its left edge or ending one pixel left of its right edge, or mirrored.
/// Screen pixels.
Rect VmCalDropDown::DropDownPlace() const {
    const Size box = m_platform.windowing.ClientSize();
    const Size desktop = m_form.DesktopSize();
    const double scale = std::max(m_platform.windowing.PixelsPerInch() / kUsualPixelsPerInch, 1.0);
    const auto scaled = [scale](std::int32_t size, std::int32_t most) {
        return static_cast<std::int32_t>(
            std::lround(std::clamp(size * scale, 1.0, static_cast<double>(most))));
    };
    const int width = scaled(m_box.widthPixels, std::max(desktop.width, 1));
    const int height = scaled(m_box.heightPixels, std::max(desktop.height, 1));
    const int start = m_box.alignment == VmRightJustified ? box.width - 1 - width : 0;
    const bool mirrored = m_platform.windowing.IsRightToLeft();
    const int left = mirrored ? box.width - width - start : start;
    Point corner = m_platform.windowing.ClientToScreen({left, box.height});
    if (m_keepOnScreen) {
        const Rect work = m_form.WorkArea();
        const int above = m_platform.windowing.ClientToScreen({0, 0}).y - height;
        if (corner.y > work.bottom - height) corner.y = std::max(above, work.top);
        corner.x = std::max(std::min(corner.x, work.right - width), work.left);
    }
    return RectAt(corner.x, corner.y, {width, height});
}

/// The time of the same day stays. Another day has none, unless it is given back with its own.
void VmCalDropDown::TakeCalendarDate() {
    const Date date = m_form.Calendar().SelectedDate();
    if (DayOf(date) != DayOf(DateValue())) m_store.DateValue(date);
}

void VmCalDropDown::OnCalendarDateChanged() {
    TakeCalendarDate();
    UpdateDateText(DateValue());
    if (!HasNews()) return;
    ++m_dateChanges;
    const Lifetime::Watch alive(m_lifetime);
    Date newDate = DateValue();
    RaiseThen([&] { m_events.DateChanged.Raise(newDate); },
              [&] {
                  if (alive) Notify(kDateValue.name);
              });
}

void VmCalDropDown::OnCalendarDayChanged() {
    if (!HasNews()) return;
    TakeCalendarDate();
    auto day = static_cast<std::int16_t>(DayOfMonth(DayOf(DateValue())));
    m_events.DayChanged.Raise(day);
}

/// The month is the one that the calendar shows, which its arrows move without the date.
void VmCalDropDown::OnCalendarMonthChanged() {
    if (!HasNews()) return;
    const DayNumber shown = DayOf(m_form.Calendar().ShownDate());
    TakeCalendarDate();
    m_store.FollowMonth(shown);
    auto month = static_cast<std::int16_t>(MonthOf(shown));
    m_events.MonthChanged.Raise(month);
}

void VmCalDropDown::OnCalendarYearChanged() {
    if (!HasNews()) return;
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
