#include "hosts/qt/widgets/VmCalendarHost.h"

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

bool VmCalendarWidget::Host::Paint(QPainter& painter, const QRegion& exposed) {
    const QtDrawing::Surface surface(m_drawing, painter);
    const FlagScope painting(m_emitsLater);
    return calendar.OnPaint(surface.Handle(), RectsOf(exposed));
}

}  // namespace velmora
