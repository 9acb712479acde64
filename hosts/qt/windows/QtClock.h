#pragma once

#include "calendar/VmCalendar.h"

#include <QObject>

class QWidget;

namespace velmora {

/// Tells a calendar of the clock while its window is to be seen. All of them share one timer; the
/// end of a machine's sleep and a changed clock are known when the application becomes active.
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
