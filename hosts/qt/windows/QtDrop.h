#pragma once

#include "platform/Hosting.h"

#include <variant>

class QDropEvent;
class QWidget;

namespace velmora {

class VmCalDropDown;
class VmCalendar;

/// The control of a widget, to do with it what both kinds can do.
using AnyControl = std::variant<VmCalendar*, VmCalDropDown*>;

/// Numbers of the published event.
enum class DragState : std::int16_t { Enter = 0, Leave = 1, Over = 2 };

/// For the end of a widget that a drag has entered: Qt keeps a bare pointer to it until the drag
/// leaves it.
void LeaveDrag(QWidget& widget);

/// What is dragged over a calendar or a date box and dropped on it. Manual drops are events, whose
/// handlers decide; an automatic drop of a date that can be selected selects it. A handler may
/// delete the control, and this object with it.
class DropTarget {
public:
    /// The control outlives it.
    explicit DropTarget(AnyControl control) : m_control(control) {}

    /// Always accepted: the move that Qt lets follow at once is the published entrance. A drag that
    /// is refused here would not be asked about again, and a handler could not delete the widget.
    void Enter(QDropEvent& event);
    void Move(QDropEvent& event);
    /// The event of a leave has the place of the last one over the calendar.
    void Leave();
    void Drop(QDropEvent& event);
    bool IsEntered() const noexcept { return m_entered; }

private:
    struct Last {
        DataRef data;  // null before the entrance
        std::int16_t shift = 0;
        float x = 0;
        float y = 0;
    };

    void Ask(QDropEvent& event);
    void RaiseOver(const Last& at, std::int32_t& effect, std::int16_t buttons, DragState state);
    bool IsAutomatic() const;
    bool CanSelect(const Variant& text) const;

    AnyControl m_control;
    Last m_last;
    bool m_entered = false;
};

}  // namespace velmora
