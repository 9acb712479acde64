#include "hosts/qt/widgets/VmCalendarHost.h"

#include "hosts/qt/access/CalendarAccess.h"
#include "platform/FlagScope.h"

namespace velmora {

VmCalendarWidget::Host::Host(VmCalendarWidget& widget)
    : VmDateWidget::Host(widget, m_windowing, &calendar),
      m_widget(widget),
      m_input([this] {
          QMetaObject::invokeMethod(
              &m_widget, [this] { TakeSelectorInput(); }, Qt::QueuedConnection);
      }),
      m_windowing(widget, &m_input),
      calendar({m_drawing, m_windowing, m_dates, *this}),
      m_clock(widget, calendar) {
    Begin();
    calendar.Events().Click.Connect([this] { emit m_widget.click(); });
    calendar.Events().DblClick.Connect([this] { emit m_widget.dblClick(); });
}

bool VmCalendarWidget::Host::Touch(const QTouchEvent& event) {
    if (!m_touch) m_touch = std::make_unique<QtTouch>(m_widget, calendar);
    return m_touch->Take(event);
}

QAccessibleInterface* VmCalendarWidget::Host::NewAccess() {
    return new CalendarAccess(m_widget, calendar, m_lifetime);
}

bool VmCalendarWidget::Host::Paint(QPainter& painter, const QRegion& exposed) {
    const QtDrawing::Surface surface(m_drawing, painter);
    const FlagScope painting(m_emitsLater);
    return calendar.OnPaint(surface.Handle(), RectsOf(exposed));
}

}  // namespace velmora
