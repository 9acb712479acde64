#pragma once

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

/// The cell of a shown day of a calendar of that size, to a few pixels.
inline QRect CellOf(VmCalendar& calendar, QSize size, QDate date) {
    const int wanted = static_cast<int>(date.toJulianDay() - QDate(1899, 12, 30).toJulianDay());
    QRect cell;
    for (int y = 0; y < size.height(); y += 3) {
        for (int x = 0; x < size.width(); x += 3) {
            const auto day = calendar.DateFromPoint(static_cast<float>(x), static_cast<float>(y));
            if (day == wanted) cell |= QRect(x, y, 1, 1);
        }
    }
    return cell;
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
