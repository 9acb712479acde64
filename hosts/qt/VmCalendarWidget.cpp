#include "hosts/qt/VmCalendarWidget.h"

#include "hosts/qt/QtInput.h"
#include "hosts/qt/VmCalendarHost.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>

namespace velmora {

VmCalendarWidget::VmCalendarWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    m_host = std::make_unique<Host>(*this);
}

/// Ended here and not with the members, so that events on the way find the host gone.
VmCalendarWidget::~VmCalendarWidget() { m_host.reset(); }

QSize VmCalendarWidget::sizeHint() const { return {250, 200}; }

QSize VmCalendarWidget::minimumSizeHint() const { return {120, 100}; }

void VmCalendarWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (m_host->Paint(painter, event->region())) {
        m_painted = true;
    } else if (!m_painted) {
        painter.fillRect(rect(), palette().button());
    }
}

void VmCalendarWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_host->calendar.OnWindowChanged();
}

void VmCalendarWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isVisible()) m_host->calendar.OnWindowChanged();
}

void VmCalendarWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (!m_host) return;
    switch (event->type()) {
        case QEvent::EnabledChange: m_host->EnabledChanged(); break;
        case QEvent::LocaleChange: m_host->LocaleChanged(); break;
        case QEvent::PaletteChange:
        case QEvent::StyleChange:
        case QEvent::FontChange: m_host->calendar.RepaintControl(); break;
        default: break;
    }
}

void VmCalendarWidget::keyPressEvent(QKeyEvent* event) {
    const QPointer<VmCalendarWidget> alive(this);
    bool used = false;
    if (std::int16_t keyCode = VirtualKeyOf(*event); keyCode != 0) {
        std::int16_t shift = ShiftOf(event->modifiers());
        m_host->calendar.OnKeyDown(keyCode, shift);
        used = keyCode == 0;
    }
    if (std::int16_t character = CharacterOf(*event); alive && character != 0) {
        m_host->calendar.OnKeyPress(character);
    }
    if (alive && !used) QWidget::keyPressEvent(event);
}

void VmCalendarWidget::keyReleaseEvent(QKeyEvent* event) {
    const QPointer<VmCalendarWidget> alive(this);
    std::int16_t keyCode = VirtualKeyOf(*event);
    if (keyCode != 0 && !event->isAutoRepeat()) {
        std::int16_t shift = ShiftOf(event->modifiers());
        m_host->calendar.OnKeyUp(keyCode, shift);
    }
    if (alive) QWidget::keyReleaseEvent(event);
}

void VmCalendarWidget::mousePressEvent(QMouseEvent* event) { m_host->MouseDown(*event); }

void VmCalendarWidget::mouseDoubleClickEvent(QMouseEvent* event) { m_host->DblClick(*event); }

void VmCalendarWidget::mouseMoveEvent(QMouseEvent* event) { m_host->MouseMove(*event); }

void VmCalendarWidget::mouseReleaseEvent(QMouseEvent* event) { m_host->MouseUp(*event); }

bool VmCalendarWidget::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::UngrabMouse:
        case QEvent::Hide:
        case QEvent::WindowDeactivate:
            if (m_host) m_host->LoseMouse();
            break;
        default: break;
    }
    return QWidget::event(event);
}

}  // namespace velmora
