#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"
#include "benchmarks/ResultTable.h"
#include "calendar/VmCalendar.h"

#include <QCalendarWidget>
#include <QDate>
#include <QEvent>
#include <QGuiApplication>
#include <QTextCharFormat>

namespace velmora {

inline const QDate kShownDate(2024, 5, 15);

/// The same work on either calendar.
struct VelmoraSubject {
    using Widget = VmCalendarWidget;
    static constexpr Side kSide = Side::Velmora;

    static void Select(Widget& calendar, QDate date) { calendar.setDateValue(date); }
    static QWidget& KeyReceiver(Widget& calendar) { return calendar; }
    static void Color(Widget& calendar, QDate date, QColor color) {
        calendar.day(date.day())
            ->BackColor(
                static_cast<OLE_COLOR>(color.red() | color.green() << 8 | color.blue() << 16));
    }
    static void Decorate(Widget& calendar, QDate date) {
        Color(calendar, date, QColor(255, 224, 160 + date.day()));
        calendar.day(date.day())->Caption("Meeting");
    }
};

/// Without captions: it has none.
struct QtSubject {
    using Widget = QCalendarWidget;
    static constexpr Side kSide = Side::Qt;

    static void Select(Widget& calendar, QDate date) { calendar.setSelectedDate(date); }
    static QWidget& KeyReceiver(Widget& calendar) {
        return *calendar.findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
    }
    static void Color(Widget& calendar, QDate date, QColor color) {
        QTextCharFormat format;
        format.setBackground(color);
        calendar.setDateTextFormat(date, format);
    }
    static void Decorate(Widget& calendar, QDate date) {
        Color(calendar, date, QColor(255, 224, 160 + date.day()));
    }
};

template <class Subject>
void Prepare(typename Subject::Widget& calendar, int decoratedDays) {
    Subject::Select(calendar, kShownDate);
    for (int day = 1; day <= decoratedDays; ++day) {
        Subject::Decorate(calendar, QDate(kShownDate.year(), kShownDate.month(), day));
    }
}

/// Shows a window and waits until it has been exposed: nothing is painted before.
inline void ShowNow(QWidget& window) {
    window.show();
    QCoreApplication::processEvents();
}

/// Paints what has been asked for.
inline void Flush() { QCoreApplication::sendPostedEvents(); }

/// Counts the paint events of what is in a window, as long as it lives.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& window) : m_window(window) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    int Count() const { return m_count; }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && object->isWidgetType()) {
            const auto* painted = static_cast<QWidget*>(object);
            m_count += painted != &m_window && m_window.isAncestorOf(painted);
        }
        return false;
    }

private:
    QWidget& m_window;
    int m_count = 0;
};

}  // namespace velmora
