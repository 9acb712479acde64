#pragma once

#include "calendar/VmCalendar.h"

#include <QPointF>
#include <QTimer>

class QTouchEvent;
class QWidget;

namespace velmora {

/// A finger on a calendar with `ExtendedNavigation`: a tap is a click, a long press asks for the
/// context menu, a swipe sideways turns a month. Without it, and for the selectors, Qt makes mouse
/// events of touches.
class QtTouch {
public:
    /// The calendar is that of the window; both live longer.
    QtTouch(QWidget& window, VmCalendar& calendar);

    /// Returns whether the event has been used. A handler may end this object.
    bool Take(const QTouchEvent& event);

private:
    bool Begin(QPointF at);
    void End(QPointF at);
    void Tap();
    void AskForMenu();

    QWidget& m_window;
    VmCalendar& m_calendar;
    QTimer m_hold;  // runs until a press is a long one
    QPointF m_begin;
    bool m_taps = false;  // the finger has not moved away
};

}  // namespace velmora
