#pragma once

#include "platform/Hosting.h"

class QDropEvent;
class QWidget;

namespace velmora {

/// Numbers of the published event.
enum class DragState : std::int16_t { Enter = 0, Leave = 1, Over = 2 };

/// For the end of a widget that a drag has entered: Qt keeps a bare pointer to it until the drag
/// leaves it.
void LeaveDrag(QWidget& widget);

/// What is dragged over a calendar or a date box and dropped on it. Manual drops are events, whose
/// handlers decide; an automatic drop of a date that can be selected selects it. A handler may
/// delete the control, and this object with it.
template <class Control>
class DropTarget {
public:
    /// The control outlives it.
    explicit DropTarget(Control& control) : m_control(control) {}

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
    bool IsAutomatic() const;
    bool CanSelect(const Variant& text) const;

    struct Last {
        DataRef data;  // null before the entrance
        std::int16_t shift = 0;
        float x = 0;
        float y = 0;
    };

    Control& m_control;
    Last m_last;
    bool m_entered = false;
};

}  // namespace velmora
