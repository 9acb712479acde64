#include "hosts/qt/widgets/VmCalendarHost.h"

#include "hosts/qt/windows/QtInput.h"

#include <QMouseEvent>
#include <QPointer>

#include <utility>

namespace velmora {

VmCalendarWidget::Host::Host(VmCalendarWidget& widget)
    : VmDateWidget::Host(widget, m_windowing, &calendar),
      m_widget(widget),
      m_input(widget),
      m_windowing(widget, &m_input),
      calendar({m_drawing, m_windowing, m_dates, *this}) {
    Begin();
    calendar.Events().Click.Connect([this] { emit m_widget.click(); });
    calendar.Events().DblClick.Connect([this] { emit m_widget.dblClick(); });
}

bool VmCalendarWidget::Host::Paint(QPainter& painter, const QRegion& exposed) {
    const QtDrawing::Surface surface(m_drawing, painter);
    m_painting = true;
    const bool painted = calendar.OnPaint(surface.Handle(), RectsOf(exposed));
    m_painting = false;
    return painted;
}

void VmCalendarWidget::Host::MouseDown(const QMouseEvent& event) {
    m_clickBegun = event.button() == Qt::LeftButton;
    VmDateWidget::Host::MouseDown(event);
}

void VmCalendarWidget::Host::DblClick(const QMouseEvent& event) {
    const QPointer<VmCalendarWidget> widget(&m_widget);
    MouseDown(event);
    if (!widget) return;
    m_clickBegun = false;
    if (event.button() == Qt::LeftButton && widget->isEnabled()) calendar.OnDblClick();
}

void VmCalendarWidget::Host::MouseUp(const QMouseEvent& event) {
    const QPointer<VmCalendarWidget> widget(&m_widget);
    const bool clicks = event.button() == Qt::LeftButton && std::exchange(m_clickBegun, false) &&
                        widget->rect().contains(event.position().toPoint());
    VmDateWidget::Host::MouseUp(event);
    if (clicks && widget && widget->isEnabled()) calendar.OnClick();
}

void VmCalendarWidget::Host::LoseMouse() {
    m_clickBegun = false;
    calendar.OnCaptureLost();
}

void VmCalendarWidget::Host::WindowChanged() {
    m_clickBegun = false;
    calendar.OnWindowChanged();
}

}  // namespace velmora
