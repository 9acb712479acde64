#pragma once

#include "calendar/DragAndDrop.h"

#include <variant>

class QDropEvent;
class QWidget;

namespace velmora {

class VmCalDropDown;
class VmCalendar;

/// The control of a widget, to do with it what both kinds can do.
using AnyControl = std::variant<VmCalendar*, VmCalDropDown*>;

/// For the end of a widget that a drag has entered: Qt keeps a bare pointer to it until the drag
/// leaves it.
void LeaveDrag(QWidget& widget);

/// Qt's drags over a widget, told to its control. A slot may delete the widget, and this object
/// with it.
class QtDropTarget {
public:
    /// Both outlive it.
    QtDropTarget(AnyControl control, const Dates& dates);

    /// Always accepted: the move that Qt lets follow at once is the published entrance. A drag that
    /// is refused here would not be asked about again, and a handler could not delete the widget.
    void Enter(QDropEvent& event);
    void Move(QDropEvent& event);
    void Leave();
    void Drop(QDropEvent& event);
    bool IsEntered() const noexcept { return m_entered; }

private:
    std::variant<DropTarget<VmCalendar>, DropTarget<VmCalDropDown>> m_target;
    bool m_entered = false;
};

}  // namespace velmora
