#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"

#include <QListWidget>
#include <QMetaMethod>

namespace velmora {

/// The signals of a calendar with their arguments, as they arrive; the newest is the last line.
/// Mouse moves in a row share one line, which shows the last and counts them.
class EventLog : public QListWidget {
    Q_OBJECT

public:
    static constexpr int kMostLines = 500;

    explicit EventLog(QWidget* parent = nullptr);

    void Follow(VmCalendarWidget& calendar);

private:
    template <class Widget, class... Args>
    void FollowSignal(VmCalendarWidget& calendar, void (Widget::*signal)(Args...));
    void Add(const QMetaMethod& signal, const QStringList& values);

    int m_moves = 0;  // that the last line stands for
};

}  // namespace velmora
