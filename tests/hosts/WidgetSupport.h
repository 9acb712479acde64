#pragma once

#include "hosts/qt/VmCalendarWidget.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QStyleOptionSlider>

#include <string>
#include <vector>

/// A shown calendar with a known look, input sent straight to widgets, and notes of the signals.
namespace velmora {

using Names = std::vector<std::string>;
using Widget = VmCalendarWidget;

inline const QDate kMay15(2024, 5, 15);

inline QPalette TestPalette() {
    QPalette palette(QColor(220, 220, 220));
    palette.setColor(QPalette::Highlight, Qt::blue);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(150, 150, 150));
    return palette;
}

inline void Prepare(Widget& widget, QDate date = kMay15) {
    widget.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    widget.setPalette(TestPalette());
    widget.resize(280, 220);
    widget.setDateValue(date);
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

inline QRect CellOf(Widget& widget, QDate date) {
    return CellOf(widget.calendar(), widget.size(), date);
}

inline QImage ImageOf(QWidget& widget, double ratio = 1) {
    QImage image(widget.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    widget.render(&image);
    return image;
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

/// Connects to one of some signals, counted from 0.
template <class Sender, class Slot, class... Signals>
void ConnectNth(int wanted, Sender* sender, Slot slot, Signals... signal) {
    int index = 0;
    ((index++ == wanted ? void(QObject::connect(sender, signal, slot)) : void()), ...);
}

inline void SendKey(QWidget* widget, QEvent::Type type, int key,
                    Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(widget, &event);
}

inline void SendMouse(QWidget* widget, QEvent::Type type, QPoint at,
                      Qt::MouseButton button = Qt::LeftButton) {
    const bool held = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held ? button : Qt::NoButton, {});
    QApplication::sendEvent(widget, &event);
}

inline void Click(QPointer<QWidget> widget, QPoint at) {
    SendMouse(widget, QEvent::MouseButtonPress, at);
    if (widget) SendMouse(widget, QEvent::MouseButtonRelease, at);
}

/// Drags the content over the widget and drops it there when it may; returns what the drop did.
inline Qt::DropAction DragAndDrop(QPointer<QWidget> widget, const QMimeData& content,
                                  Qt::DropActions actions = Qt::CopyAction) {
    const QPoint at(20, 30);
    QDragEnterEvent enter(at, actions, &content, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(widget, &enter);
    if (!widget) return Qt::IgnoreAction;
    QDragMoveEvent move(at, actions, &content, Qt::LeftButton, {});
    QApplication::sendEvent(widget, &move);
    if (!widget) return Qt::IgnoreAction;
    if (!enter.isAccepted() || !move.isAccepted()) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(widget, &leave);
        return Qt::IgnoreAction;
    }
    QDropEvent drop(at, actions, &content, Qt::LeftButton, {});
    QApplication::sendEvent(widget, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

}  // namespace velmora
