#pragma once

#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmCalendarWidget.h"
#include "calendar/VmCalendar.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QStyleOptionSlider>

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

/// Of a part of the bar, as it lies in the bar.
inline QPoint CenterOf(const QScrollBar& bar, QStyle::SubControl part) {
    struct Bar : QScrollBar {
        using QScrollBar::initStyleOption;
    };
    QStyleOptionSlider option;
    (bar.*&Bar::initStyleOption)(&option);
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar).center();
}

inline void SendKey(QWidget* widget, QEvent::Type type, int key,
                    Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(widget, &event);
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
