#include "dropdown/DropDownForm.h"

#include "dropdown/VmCalDropDown.h"
#include "platform/FlagScope.h"
#include "platform/Keys.h"

#include <utility>

namespace velmora {

DropDownForm::DropDownForm(const Platform& platform, FormWindow& window)
    : m_platform(platform), m_window(window), m_calendar(platform) {
    m_calendar.InitProperties();
    m_calendar.AlwaysDateChanged(true);
    ConnectDates();
    ConnectInput();
}

bool DropDownForm::OnPaint(SurfaceHandle surface, std::span<const Rect> exposed) {
    const FlagScope painting(m_painting);
    return m_calendar.OnPaint(surface, exposed);
}

void DropDownForm::ConnectDates() {
    CalendarEvents& events = m_calendar.Events();
    events.DateChanged.Connect([this](Date&) {
        NoteDayChosen();
        if (m_owner) m_owner->OnCalendarDateChanged();
    });
    events.DayChanged.Connect([this](std::int16_t&) {
        NoteDayChosen();
        if (m_owner) m_owner->OnCalendarDayChanged();
    });
    events.MonthChanged.Connect([this](std::int16_t&) {
        if (m_owner && !m_painting) m_owner->OnCalendarMonthChanged();
    });
    events.YearChanged.Connect([this](std::int16_t&) {
        if (m_owner) m_owner->OnCalendarYearChanged();
    });
}

void DropDownForm::ConnectInput() {
    using Short = std::int16_t;
    CalendarEvents& events = m_calendar.Events();
    events.KeyDown.Connect([this](Short& key, Short& shift) { RelayKeyDown(key, shift); });
    events.KeyPress.Connect([this](Short& key) {
        if (m_owner) m_owner->OnKeyPress(key);
    });
    events.KeyUp.Connect([this](Short& key, Short& shift) {
        if (m_owner) m_owner->OnKeyUp(key, shift);
    });
    events.MouseDown.Connect([this](Short& button, Short& shift, float& x, float& y) {
        RelayMouseDown(button, shift, x, y);
    });
    events.MouseMove.Connect([this](Short& button, Short& shift, float& x, float& y) {
        if (m_owner) m_owner->MouseMove(button, shift, x, y);
    });
    events.MouseUp.Connect([this](Short& button, Short& shift, float& x, float& y) {
        RelayMouseUp(button, shift, x, y);
    });
}

void DropDownForm::Load(const CProperties& properties) {
    m_calendar.InitProperties(properties.DateValue());
    m_calendar.AlwaysDateChanged(true);
    m_calendar.ExtendedNavigation(properties.Values().extendedNavigation);
    try {
        m_calendar.SetProps(properties);
    } catch (const AutomationError&) {
        // What could be copied has been; the rest is from a bag, which nobody checks.
    }
    if (!IsSelStyleOfBox(m_calendar.MonthYearSelStyle())) {
        m_calendar.MonthYearSelStyle(VmMonthSelNone);
    }
}

void DropDownForm::Show(const Rect& screen) {
    m_cursorInside = false;
    m_buttonsHeld = 0;
    m_dayChosen = false;
    m_window.Show(screen);
}

void DropDownForm::Close() {
    m_window.Timer(false);
    m_calendar.OnCaptureLost();
    m_platform.windowing.ReleaseCapture();
    m_window.Hide();
}

void DropDownForm::TrackMouse() {
    bool known = false;
    if (IsCursorInside(known)) m_cursorInside = true;
    if (m_cursorInside) {
        m_platform.windowing.ReleaseCapture();
    } else {
        m_platform.windowing.SetCapture();
    }
    m_window.Timer(true);
}

void DropDownForm::OnTimer() {
    if (!m_owner) return;
    m_calendar.OnClock();
    bool known = false;
    const bool inside = IsCursorInside(known);
    if (!known || m_buttonsHeld != 0) return;  // a press keeps the capture that it has
    if (inside && !m_cursorInside) {
        m_platform.windowing.ReleaseCapture();
        m_cursorInside = true;
    } else if (!inside && m_cursorInside) {
        m_platform.windowing.SetCapture();
        m_cursorInside = false;
    }
}

void DropDownForm::PickDay(DayNumber day) {
    const VmCalDropDown* const owner = m_owner;
    m_calendar.OnDayPicked(day);
    const bool chosen = DayOf(m_calendar.SelectedDate()) == day;
    if (chosen && m_owner && m_owner == owner) m_owner->CloseDropDown();
}

bool DropDownForm::IsCursorInside(bool& known) const {
    const auto cursor = m_platform.windowing.GetCursorPos();
    known = cursor.has_value();
    if (!known) return false;
    const Point at = m_platform.windowing.ScreenToClient(*cursor);
    const Size size = m_platform.windowing.ClientSize();
    return 0 <= at.x && at.x < size.width && 0 <= at.y && at.y < size.height;
}

bool DropDownForm::IsInside(float x, float y) const {
    const Size size = m_platform.windowing.ClientSize();
    return 0 <= x && x <= static_cast<float>(size.width) && 0 <= y &&
           y <= static_cast<float>(size.height);
}

/// Keys move the date too; only what a press does is a choice that closes.
void DropDownForm::NoteDayChosen() {
    if ((m_buttonsHeld & kButtonLeft) != 0) m_dayChosen = true;
}

/// The box steps, or refuses to: the calendar makes no step of its own after it.
void DropDownForm::RelayKeyDown(std::int16_t& keyCode, std::int16_t& shift) {
    if (!m_owner) return;
    m_owner->OnKeyDown(keyCode, shift);
    if (m_calendar.WantsKey(keyCode, false)) keyCode = 0;
}

void DropDownForm::RelayMouseDown(std::int16_t button, std::int16_t shift, float x, float y) {
    if (!m_owner) {
        m_calendar.OnCaptureLost();
        return;
    }
    const VmCalDropDown* const owner = m_owner;
    RaiseThen([&] { m_owner->MouseDown(button, shift, x, y); },
              [&] {
                  if (m_owner == owner) TakePress(button, x, y);
              });
}

void DropDownForm::TakePress(std::int16_t button, float x, float y) {
    if ((button & kButtonLeft) != 0) {
        if (!IsInside(x, y)) return m_owner->CloseDropDown();
        m_owner->NoLostFocus(true);
        m_dayChosen = false;
    }
    m_buttonsHeld = static_cast<std::int16_t>(m_buttonsHeld | button);
}

void DropDownForm::RelayMouseUp(std::int16_t button, std::int16_t shift, float x, float y) {
    if (!m_owner) return;
    const VmCalDropDown* const owner = m_owner;
    RaiseThen([&] { m_owner->MouseUp(button, shift, x, y); },
              [&] {
                  if (m_owner == owner) TakeRelease(button, x, y);
              });
}

/// Of several buttons the left one decides.
void DropDownForm::TakeRelease(std::int16_t button, float x, float y) {
    const bool pressed = (m_buttonsHeld & button) != 0;
    m_buttonsHeld = static_cast<std::int16_t>(m_buttonsHeld & ~button);
    if ((m_buttonsHeld & kButtonLeft) != 0) return;
    m_owner->NoLostFocus(false);
    const bool chosen = std::exchange(m_dayChosen, false);
    if (IsInside(x, y) ? chosen : pressed) m_owner->CloseDropDown();
}

}  // namespace velmora
