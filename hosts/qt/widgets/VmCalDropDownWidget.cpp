#include "VelmoraCalendar/VmCalDropDownWidget.h"

#include "hosts/qt/widgets/VmCalDropDownHost.h"
#include "hosts/qt/windows/QtInput.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace velmora {

VmCalDropDownWidget::VmCalDropDownWidget(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setMouseTracking(true);
    m_host = std::make_unique<Host>(*this);
}

/// Events on the way find the host gone.
VmCalDropDownWidget::~VmCalDropDownWidget() {
    const bool isDragTarget = m_host->Drops().IsEntered();
    m_host.reset();
    if (isDragTarget) LeaveDrag(*this);
}

QSize VmCalDropDownWidget::sizeHint() const { return {120, fontMetrics().height() + 10}; }

QSize VmCalDropDownWidget::minimumSizeHint() const { return {40, fontMetrics().height() + 10}; }

/// Keys that close the calendar are no shortcuts of the form while it is open.
bool VmCalDropDownWidget::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && m_host && dropDownState()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

/// Of the widgets around this one, while the calendar is open.
bool VmCalDropDownWidget::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Hide:
        case QEvent::ParentChange:
        case QEvent::WindowStateChange:
            if (m_host) m_host->WindowChanged();
            break;
        default: break;
    }
    return QWidget::eventFilter(watched, event);
}

void VmCalDropDownWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_host->Paint(painter);
}

void VmCalDropDownWidget::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (m_host) m_host->WindowChanged();
}

void VmCalDropDownWidget::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    m_host->WindowChanged();
}

void VmCalDropDownWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_host->WindowChanged();
}

void VmCalDropDownWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (!m_host) return;
    switch (event->type()) {
        case QEvent::EnabledChange: m_host->EnabledChanged(); break;
        case QEvent::LocaleChange: m_host->LocaleChanged(); break;
        case QEvent::PaletteChange:
        case QEvent::StyleChange:
        case QEvent::FontChange: m_host->LookChanged(); break;
        default: break;
    }
}

void VmCalDropDownWidget::focusInEvent(QFocusEvent*) { m_host->FocusGained(); }

void VmCalDropDownWidget::focusOutEvent(QFocusEvent*) {
    if (m_host) m_host->FocusLost();
}

void VmCalDropDownWidget::keyPressEvent(QKeyEvent* event) {
    const QPointer<VmCalDropDownWidget> alive(this);
    bool used = false;
    if (std::int16_t keyCode = VirtualKeyOf(*event); keyCode != 0) {
        std::int16_t shift = ShiftOf(event->modifiers());
        m_host->dropDown.OnKeyDown(keyCode, shift);
        used = keyCode == 0;
    }
    if (std::int16_t character = CharacterOf(*event); alive && character != 0) {
        m_host->dropDown.OnKeyPress(character);
    }
    if (alive && !used) QWidget::keyPressEvent(event);
}

void VmCalDropDownWidget::keyReleaseEvent(QKeyEvent* event) {
    const QPointer<VmCalDropDownWidget> alive(this);
    std::int16_t keyCode = VirtualKeyOf(*event);
    if (keyCode != 0 && !event->isAutoRepeat()) {
        std::int16_t shift = ShiftOf(event->modifiers());
        m_host->dropDown.OnKeyUp(keyCode, shift);
    }
    if (alive) QWidget::keyReleaseEvent(event);
}

void VmCalDropDownWidget::mousePressEvent(QMouseEvent* event) { m_host->MouseDown(*event); }

void VmCalDropDownWidget::mouseMoveEvent(QMouseEvent* event) { m_host->MouseMove(*event); }

void VmCalDropDownWidget::mouseReleaseEvent(QMouseEvent* event) { m_host->MouseUp(*event); }

void VmCalDropDownWidget::dragEnterEvent(QDragEnterEvent* event) { m_host->Drops().Enter(*event); }

void VmCalDropDownWidget::dragMoveEvent(QDragMoveEvent* event) { m_host->Drops().Move(*event); }

void VmCalDropDownWidget::dragLeaveEvent(QDragLeaveEvent*) {
    if (m_host) m_host->Drops().Leave();
}

void VmCalDropDownWidget::dropEvent(QDropEvent* event) { m_host->Drops().Drop(*event); }

}  // namespace velmora
