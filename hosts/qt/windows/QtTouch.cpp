#include "hosts/qt/windows/QtTouch.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleHints>
#include <QTouchEvent>
#include <QWidget>

#include <cmath>
#include <utility>

namespace velmora {

QtTouch::QtTouch(QWidget& window, VmCalendar& calendar)
    : m_window(window), m_calendar(calendar), m_hold(&window) {
    m_hold.setSingleShot(true);
    QObject::connect(&m_hold, &QTimer::timeout, [this] { AskForMenu(); });
}

bool QtTouch::Take(const QTouchEvent& event) {
    const auto& points = event.points();
    if (event.type() == QEvent::TouchBegin) return Begin(points.front().position());
    const bool isCancelled = event.type() == QEvent::TouchCancel || points.size() != 1;
    const QPointF at = isCancelled ? m_begin : points.front().position();
    if (isCancelled ||
        (at - m_begin).manhattanLength() > QGuiApplication::styleHints()->startDragDistance()) {
        m_taps = false;
        m_hold.stop();
    }
    if (event.type() == QEvent::TouchEnd) End(at);
    return true;
}

bool QtTouch::Begin(QPointF at) {
    if (!m_calendar.ExtendedNavigation() || m_window.childAt(at.toPoint())) return false;
    m_begin = at;
    m_taps = true;
    m_hold.start(QGuiApplication::styleHints()->mousePressAndHoldInterval());
    return true;
}

void QtTouch::End(QPointF at) {
    m_hold.stop();
    if (std::exchange(m_taps, false)) return Tap();
    const QPointF way = at - m_begin;
    const int least = 3 * QGuiApplication::styleHints()->startDragDistance();
    if (std::abs(way.x()) < least || std::abs(way.x()) < 2 * std::abs(way.y())) return;
    constexpr int kNotch = 120;
    const bool back = (way.x() > 0) == m_window.isLeftToRight();
    m_calendar.OnWheel(back ? kNotch : -kNotch, 0);
}

void QtTouch::Tap() {
    const QPointer<QWidget> window(&m_window);
    const QPointF at = m_begin;
    if ((window->focusPolicy() & Qt::ClickFocus) != 0) window->setFocus(Qt::MouseFocusReason);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        if (!window) return;
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, at, window->mapToGlobal(at), Qt::LeftButton, held, {});
        QApplication::sendEvent(window, &event);
    }
}

void QtTouch::AskForMenu() {
    m_taps = false;
    const QPoint at = m_begin.toPoint();
    QContextMenuEvent event(QContextMenuEvent::Other, at, m_window.mapToGlobal(at));
    QApplication::sendEvent(&m_window, &event);
}

}  // namespace velmora
