#include "calendar/VmCalendar.h"

#include "calendar/DragAndDrop.h"
#include "platform/Keys.h"
#include "platform/ScaleMode.h"

#include <utility>

namespace velmora {

/// Events carry the units of the container.
VmCalendar::Place VmCalendar::InContainer(float x, float y) const {
    const std::int16_t mode = ContainerScaleMode(m_platform.hosting);
    const double pixelsPerInch = m_platform.windowing.PixelsPerInch();
    return {static_cast<float>(FromPixels(x, mode, pixelsPerInch, Axis::Horizontal)),
            static_cast<float>(FromPixels(y, mode, pixelsPerInch, Axis::Vertical))};
}

void VmCalendar::Raise(MouseEvent CalendarEvents::*event, std::int16_t button, std::int16_t shift,
                       float x, float y) {
    Place place = InContainer(x, y);
    (m_events.*event).Raise(button, shift, place.x, place.y);
}

void VmCalendar::OnOLEDragDrop(DataRef data, std::int32_t& effect, std::int16_t button,
                               std::int16_t shift, float x, float y) {
    Place place = InContainer(x, y);
    m_events.OLEDragDrop.Raise(data, effect, button, shift, place.x, place.y);
}

void VmCalendar::OnOLEDragOver(DataRef data, std::int32_t& effect, std::int16_t button,
                               std::int16_t shift, float x, float y, std::int16_t state) {
    Place place = InContainer(x, y);
    m_events.OLEDragOver.Raise(data, effect, button, shift, place.x, place.y, state);
}

void VmCalendar::OnMouseDown(std::int16_t button, std::int16_t shift, float x, float y) {
    if (!m_platform.windowing.TakesInput()) return;
    if ((button & kButtonLeft) != 0) {
        EndPress();
        m_press.active = m_press.clicks = true;
        m_press.arrow = ArrowAt(x, y);
        m_platform.windowing.SetCapture();
        Track(x, y);
        if (m_press.arrow && m_state.extendedNavigation) {
            m_platform.windowing.Repeat([this] { RepeatArrow(); });
        }
    }
    Raise(&CalendarEvents::MouseDown, button, shift, x, y);
}

void VmCalendar::OnMouseDoubleClick(std::int16_t button, std::int16_t shift, float x, float y) {
    const Lifetime::Watch alive(m_lifetime);
    OnMouseDown(button, shift, x, y);
    if (!alive) return;
    if ((button & kButtonLeft) == 0) return;
    m_press.clicks = false;
    if (m_platform.windowing.TakesInput()) m_events.DblClick.Raise();
}

void VmCalendar::OnMouseMove(std::int16_t button, std::int16_t shift, float x, float y) {
    if (!m_platform.windowing.TakesInput()) return;
    if (m_press.active) Track(x, y);
    Raise(&CalendarEvents::MouseMove, button, shift, x, y);
}

void VmCalendar::OnMouseUp(std::int16_t button, std::int16_t shift, float x, float y) {
    if (!m_platform.windowing.TakesInput()) return;
    const Lifetime::Watch alive(m_lifetime);
    bool clicks = false;
    RaiseThen(
        [&] {
            if ((button & kButtonLeft) == 0 || !m_press.active) return;
            const Press press = EndPress();
            const Size size = m_platform.windowing.ClientSize();
            clicks = press.clicks && x >= 0 && y >= 0 && x < static_cast<float>(size.width) &&
                     y < static_cast<float>(size.height);
            Release(press, x, y);
        },
        [&] {
            if (alive) Raise(&CalendarEvents::MouseUp, button, shift, x, y);
        });
    if (clicks && alive && m_platform.windowing.TakesInput()) m_events.Click.Raise();
}

void VmCalendar::OnCaptureLost() { EndPress(); }

void VmCalendar::OleDrag() {
    EndPress();  // the drag takes the release
    DragText(*DateValue().As<std::string>(), m_platform.hosting, m_events, m_lifetime, m_dragging);
}

std::optional<Arrow> VmCalendar::ArrowAt(float x, float y) {
    if (m_state.monthYearSelStyle != VmMonthSelArrows) return std::nullopt;
    const auto& arrows = Layout().arrows;
    for (std::size_t i = 0; i < arrows.size(); ++i) {
        if (PtInCellRect(arrows[i], x, y)) return static_cast<Arrow>(i);
    }
    return std::nullopt;
}

std::optional<DayNumber> VmCalendar::SelectableAt(float x, float y) {
    const auto day = DateFromPoint(x, y);
    return day && IsSelectable(*day) ? day : std::nullopt;
}

/// Shows what a release at that point would do.
void VmCalendar::Track(float x, float y) {
    if (!m_press.arrow) {
        Choose(SelectableAt(x, y));
        return;
    }
    const bool onArrow = ArrowAt(x, y) == m_press.arrow;
    if (std::exchange(m_press.onArrow, onArrow) != onArrow) InvalidateArrow(*m_press.arrow);
}

void VmCalendar::Choose(std::optional<DayNumber> day) {
    const auto before = std::exchange(m_press.chosen, day);
    if (before == day) return;
    InvalidateDay(before);
    InvalidateDay(day);
    // The selection gives way to the choice and comes back after it.
    if (before.has_value() != day.has_value()) InvalidateDay(DayOf(m_state.dateValue));
}

/// Ends the press without doing anything; the screen is as before it.
VmCalendar::Press VmCalendar::EndPress() {
    if (!m_press.active) return {};
    Choose(std::nullopt);
    const Press press = std::exchange(m_press, {});
    if (press.onArrow) InvalidateArrow(*press.arrow);
    if (press.arrow) m_platform.windowing.Repeat(nullptr);
    m_platform.windowing.ReleaseCapture();
    return press;
}

void VmCalendar::Release(const Press& press, float x, float y) {
    if (press.arrow) {
        if (ArrowAt(x, y) == press.arrow && !press.repeated) TurnBy(MonthsOf(*press.arrow));
        return;
    }
    if (const auto day = SelectableAt(x, y)) Pick(*day);
}

void VmCalendar::OnDayPicked(DayNumber day) {
    if (m_platform.windowing.TakesInput() && IsSelectable(day)) Pick(day);
}

void VmCalendar::OnArrowPicked(Arrow arrow) {
    const bool isShown = m_state.monthYearSelStyle == VmMonthSelArrows;
    if (isShown && m_platform.windowing.TakesInput()) TurnBy(MonthsOf(arrow));
}

void VmCalendar::Pick(DayNumber day) {
    if (day != DayOf(m_state.dateValue)) {
        if (RequestUserDate(day)) SelectDate(DateOf(day));
        return;
    }
    m_state.dateChosen = true;
    const Lifetime::Watch alive(m_lifetime);
    const unsigned change = m_dateChanges;
    if (m_state.alwaysDateChanged) {
        auto sameDay = static_cast<std::int16_t>(DayOfMonth(day));
        m_events.DayChanged.Raise(sameDay);
    }
    if (alive && change == m_dateChanges) ShowSelection();
}

/// An arrow button is still held. Its release does nothing more then.
void VmCalendar::RepeatArrow() {
    if (!m_press.onArrow || !m_platform.windowing.TakesInput()) return;
    m_press.repeated = true;
    TurnBy(MonthsOf(*m_press.arrow));
}

bool VmCalendar::OnWheel(int delta, std::int16_t shift) {
    if (!m_state.extendedNavigation || !m_platform.windowing.TakesInput()) return false;
    constexpr int kNotch = 120;
    m_wheel += delta;
    int notches = std::exchange(m_wheel, m_wheel % kNotch) / kNotch;
    if (m_press.active) return true;
    const int back = notches > 0 ? 1 : -1;
    const Lifetime::Watch alive(m_lifetime);
    for (; alive && notches != 0; notches -= back) {
        TurnBy((shift & kShiftCtrl) != 0 ? -12 * back : -back);
    }
    return true;
}

/// Moves the shown month, refused beyond the limits.
void VmCalendar::TurnBy(int months) {
    if (const auto day = ShownAfter(m_state, months)) MoveShown(DateOf(*day));
}

void VmCalendar::InvalidateArrow(Arrow arrow) {
    Invalidate(m_layout.arrows[static_cast<std::size_t>(arrow)]);
}

}  // namespace velmora
