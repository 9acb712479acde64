#pragma once

#include "calendar/VmCalendar.h"

class QDropEvent;

namespace velmora {

class VmCalendarWidget;

/// Numbers of the published event.
enum class DragState : std::int16_t { Enter = 0, Leave = 1, Over = 2 };

/// What is dragged over a calendar and dropped on it. Manual drops are events, whose handlers
/// decide; an automatic drop of a date that can be selected selects it. A handler may delete the
/// calendar, and this object with it.
class DropTarget {
public:
    /// For the calendar of this widget, which outlives it.
    explicit DropTarget(VmCalendarWidget& widget) : m_widget(widget) {}

    /// Always accepted: the move that Qt lets follow at once is the published entrance. A drag that
    /// is refused here would not be asked about again, and a handler could not delete the widget.
    void Enter(QDropEvent& event);
    void Move(QDropEvent& event);
    /// The event of a leave has the place of the last one over the calendar.
    void Leave();
    void Drop(QDropEvent& event);
    bool IsEntered() const noexcept { return m_entered; }

private:
    void Ask(QDropEvent& event);
    VmCalendar& Calendar() const;
    bool IsAutomatic() const { return Calendar().OLEDropMode() == VmOLEAutomatic; }

    struct Last {
        DataRef data;  // null before the entrance
        std::int16_t shift = 0;
        float x = 0;
        float y = 0;
    };

    VmCalendarWidget& m_widget;
    Last m_last;
    bool m_entered = false;
};

}  // namespace velmora
