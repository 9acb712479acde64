#include "VelmoraCalendar/VmCalendarWidget.h"

#include "hosts/qt/widgets/VmCalendarHost.h"
#include "hosts/qt/windows/QtInput.h"

#include <QApplication>
#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace velmora {

VmCalendarWidget::VmCalendarWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    m_host = std::make_unique<Host>(*this);
}

/// The host is ended here and not with the members, so that events on the way find it gone.
VmCalendarWidget::~VmCalendarWidget() {
    const bool isDragTarget = m_host->Drops().IsEntered();
    m_host.reset();
    if (isDragTarget) LeaveDrag(*this);
}

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
    ChainChildren();
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
    if (IsFocusInChild()) return QWidget::keyPressEvent(event);
    const QPointer<VmCalendarWidget> alive(this);
    if (!m_host->TakeSelectorInput()) return;
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
    if (IsFocusInChild()) return QWidget::keyReleaseEvent(event);
    const QPointer<VmCalendarWidget> alive(this);
    std::int16_t keyCode = VirtualKeyOf(*event);
    if (keyCode != 0 && !event->isAutoRepeat()) {
        std::int16_t shift = ShiftOf(event->modifiers());
        m_host->calendar.OnKeyUp(keyCode, shift);
    }
    if (alive) QWidget::keyReleaseEvent(event);
}

void VmCalendarWidget::mousePressEvent(QMouseEvent* event) {
    if (m_host->TakeSelectorInput()) m_host->MouseDown(*event);
}

void VmCalendarWidget::mouseDoubleClickEvent(QMouseEvent* event) { m_host->DblClick(*event); }

void VmCalendarWidget::mouseMoveEvent(QMouseEvent* event) { m_host->MouseMove(*event); }

void VmCalendarWidget::mouseReleaseEvent(QMouseEvent* event) { m_host->MouseUp(*event); }

void VmCalendarWidget::dragEnterEvent(QDragEnterEvent* event) { m_host->Drops().Enter(*event); }

void VmCalendarWidget::dragMoveEvent(QDragMoveEvent* event) { m_host->Drops().Move(*event); }

void VmCalendarWidget::dragLeaveEvent(QDragLeaveEvent*) {
    if (m_host) m_host->Drops().Leave();
}

void VmCalendarWidget::dropEvent(QDropEvent* event) { m_host->Drops().Drop(*event); }

/// The Tab key passes the grid and its selectors in one go, whatever order of its own widgets the
/// window was given.
void VmCalendarWidget::ChainChildren() {
    QWidget* last = this;
    for (QWidget* const child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isWindow() || (child->focusPolicy() & Qt::TabFocus) == 0) continue;
        setTabOrder(std::exchange(last, child), child);
    }
}

bool VmCalendarWidget::focusNextPrevChild(bool next) {
    ChainChildren();
    return QWidget::focusNextPrevChild(next);
}

/// Keys that a child leaves unused are on their way to the windows around the calendar.
bool VmCalendarWidget::IsFocusInChild() const {
    const QWidget* const focus = QApplication::focusWidget();
    return focus && focus != this && isAncestorOf(focus);
}

bool VmCalendarWidget::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::UngrabMouse:
        case QEvent::Hide:
        case QEvent::WindowDeactivate:
            if (m_host) m_host->LoseMouse();
            break;
        case QEvent::ChildPolished: ChainChildren(); break;
        default: break;
    }
    return QWidget::event(event);
}

}  // namespace velmora
