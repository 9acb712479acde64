#pragma once

#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmCalendarWidget.h"
#include "calendar/VmCalendar.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <string>
#include <vector>

/// A shown control, input sent straight to widgets, and notes of the signals.
namespace velmora {

using Names = std::vector<std::string>;
using Widget = VmCalendarWidget;

inline const QDate kMay15(2024, 5, 15);

inline void Prepare(QWidget& widget) {
    widget.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    widget.resize(280, 220);
    widget.setProperty("dateValue", kMay15);
    widget.show();
    QApplication::processEvents();
}

/// The cell of a shown day.
inline QRect CellOf(VmCalendar& calendar, QDate date) {
    const Rect cell = calendar.Describe(DayOf(ToDate(date))).value().place;
    return {cell.left, cell.top, cell.Width(), cell.Height()};
}

/// Whether the widget has used it.
inline bool SendKey(QWidget* widget, int key, const QString& text = {},
                    QEvent::Type type = QEvent::KeyPress) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

inline void Click(QPointer<QWidget> widget, QPoint at) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        if (!widget) return;
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton, held, {});
        QApplication::sendEvent(widget, &event);
    }
}

}  // namespace velmora
