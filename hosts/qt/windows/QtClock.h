#pragma once

#include "calendar/VmCalendar.h"

#include <QObject>

class QWidget;

namespace velmora {

/// Tells a calendar of the clock while its window is to be seen: at midnight, when clock or time
/// zone have been set, and when the machine has slept. All of them share one timer. Elsewhere than
/// on Linux a changed clock is known when the application becomes active.
class QtClock final : public QObject {
public:
    /// Both outlive this object.
    QtClock(QWidget& window, VmCalendar& calendar);
    ~QtClock() override;

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    VmCalendar& m_calendar;
};

}  // namespace velmora
