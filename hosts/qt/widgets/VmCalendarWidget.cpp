#include "VelmoraCalendar/VmCalendarWidget.h"

#include "hosts/qt/widgets/VmCalendarHost.h"
#include "hosts/qt/windows/QtInput.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTouchEvent>
#include <QWheelEvent>

#include <utility>

namespace velmora {

VmCalendarWidget::VmCalendarWidget(QWidget* parent) : VmDateWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_host = std::make_unique<Host>(*this);
}

VmCalendarWidget::~VmCalendarWidget() { EndHost(); }

VmCalendarWidget::Host& VmCalendarWidget::Own() const noexcept {
    return static_cast<Host&>(*m_host);
}

VmCalendar& VmCalendarWidget::calendar() noexcept { return Own().calendar; }

const VmCalendar& VmCalendarWidget::calendar() const noexcept { return Own().calendar; }

QDate VmCalendarWidget::shownDate() const { return ToQDate(DayOf(calendar().ShownDate())); }

VmCalendarWidget::Appearance VmCalendarWidget::appearance() const {
    return m_host->Get<Appearance>(kAppearance);
}
void VmCalendarWidget::setAppearance(Appearance value) { m_host->Let(kAppearance, value); }

QDate VmCalendarWidget::dateValue() const { return ToQDate(DayOf(calendar().SelectedDate())); }
void VmCalendarWidget::setDateValue(QDate value) { m_host->Let(kDateValue, value); }

VmCalendarWidget::MonthYearSelStyle VmCalendarWidget::monthYearSelStyle() const {
    return m_host->Get<MonthYearSelStyle>(kMonthYearSelStyle);
}
void VmCalendarWidget::setMonthYearSelStyle(MonthYearSelStyle value) {
    m_host->Let(kMonthYearSelStyle, value);
}

void VmCalendarWidget::setNoRepaintControl(bool value) { calendar().NoRepaintControl(value); }

void VmCalendarWidget::setAlwaysDateChanged(bool value) { calendar().AlwaysDateChanged(value); }

QSize VmCalendarWidget::sizeHint() const {
    const Size size = Own().calendar.UsualSize();
    return {size.width, size.height};
}

QSize VmCalendarWidget::minimumSizeHint() const {
    const Size size = Own().calendar.LeastSize();
    return {size.width, size.height};
}

void VmCalendarWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (Own().Paint(painter, event->region())) {
        m_painted = true;
    } else if (!m_painted) {
        painter.fillRect(rect(), palette().button());
    }
    DrawBorder(painter);
}

void VmCalendarWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    ChainChildren();
    calendar().OnWindowChanged();
}

void VmCalendarWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isVisible()) calendar().OnWindowChanged();
}

void VmCalendarWidget::wheelEvent(QWheelEvent* event) { TellWheel(calendar(), *event); }

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

bool VmCalendarWidget::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::UngrabMouse:
        case QEvent::Hide:
        case QEvent::WindowDeactivate:
            if (m_host) m_host->LoseMouse();
            break;
        case QEvent::ChildPolished: ChainChildren(); break;
        case QEvent::ToolTip:
            if (ShowDayToolTip(*this, calendar(), *this, static_cast<QHelpEvent&>(*event)))
                return true;
            break;
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
            if (m_host && Own().Touch(static_cast<QTouchEvent&>(*event))) return true;
            break;
        case QEvent::FocusIn:
            if (!m_host) break;  // a selector that ends with it has left it the focus
            calendar().OnGotFocus();
            m_host->TellReaders();
            break;
        case QEvent::FocusOut:
            if (m_host) calendar().OnLostFocus();
            break;
        default: break;
    }
    return QWidget::event(event);
}

}  // namespace velmora
