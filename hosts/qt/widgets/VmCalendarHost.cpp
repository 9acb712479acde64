#include "hosts/qt/widgets/VmCalendarHost.h"

#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/values/QtLocale.h"
#include "hosts/qt/widgets/EventSignals.h"
#include "hosts/qt/windows/QtInput.h"
#include "platform/DrawingScopes.h"

#include <QDateTime>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QRegion>

#include <utility>
#include <vector>

namespace velmora {
VmCalendarWidget::Host::Host(VmCalendarWidget& widget)
    : QtHosting(widget),
      m_widget(widget),
      m_input(widget),
      m_windowing(widget, &m_input),
      m_drawing(&widget),
      m_dates(DateLocaleOf(widget.locale()), LocalNow),
      calendar({m_drawing, m_windowing, m_dates, *this}),
      m_drops(calendar) {
    calendar.InitProperties();
    CalendarEvents& events = calendar.Events();
    EmitDates(&widget, events);
    EmitInput(&widget, events);
    EmitDrag(&widget, events);
    events.MonthChanged.Connect([this](std::int16_t& month) { EmitMonth(month); });
    events.Click.Connect([this] { emit m_widget.click(); });
    events.DblClick.Connect([this] { emit m_widget.dblClick(); });
}

/// A slot may delete the widget, which must not happen under a painter.
void VmCalendarWidget::Host::EmitMonth(std::int16_t month) {
    VmCalendarWidget* const widget = &m_widget;
    if (m_painting) {
        QMetaObject::invokeMethod(
            widget, [widget, month] { emit widget->monthChanged(month); }, Qt::QueuedConnection);
    } else {
        emit widget->monthChanged(month);
    }
}

void VmCalendarWidget::Host::PropertyChanged(std::string_view name) {
    const QPointer<VmCalendarWidget> widget(&m_widget);
    const QString published = ToQString(name);
    if (name == kDateValue.name) emit widget->dateValueChanged(widget->dateValue());
    if (widget) emit widget->propertyChanged(published);
}

void VmCalendarWidget::Host::StartDrag() {
    if (std::exchange(m_dragging, true)) return;
    const QPointer<VmCalendarWidget> widget(&m_widget);
    LoseMouse();  // the drag takes the release
    DataRef data = MakeDataObject();
    data->SetData(kTextFormat, calendar.DateValue());
    std::int32_t effect = kDropCopy;
    calendar.Events().OLEStartDrag.Raise(data, effect);
    if (!widget) return;
    effect = data ? RunDrag(data, effect, EventsOfDrag(m_widget, calendar.Events())) : kDropNone;
    if (!widget) return;
    m_dragging = false;
    calendar.Events().OLECompleteDrag.Raise(effect);
}

bool VmCalendarWidget::Host::Paint(QPainter& painter, const QRegion& exposed) {
    std::vector<Rect> rects;
    rects.reserve(static_cast<std::size_t>(exposed.rectCount()));
    for (const QRect& rect : exposed) {
        rects.push_back({rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()});
    }
    const QtDrawing::Surface surface(m_drawing, painter);
    m_painting = true;
    const bool painted = calendar.OnPaint(surface.Handle(), rects);
    m_painting = false;
    return painted;
}

void VmCalendarWidget::Host::MouseDown(const QMouseEvent& event) {
    m_clickBegun = event.button() == Qt::LeftButton;
    calendar.OnMouseDown(ButtonsOf(event.button()), ShiftOf(event.modifiers()), XOf(event),
                         YOf(event));
}

void VmCalendarWidget::Host::DblClick(const QMouseEvent& event) {
    const QPointer<VmCalendarWidget> widget(&m_widget);
    MouseDown(event);
    if (!widget) return;
    m_clickBegun = false;
    if (event.button() == Qt::LeftButton && widget->isEnabled()) calendar.OnDblClick();
}

void VmCalendarWidget::Host::MouseMove(const QMouseEvent& event) {
    calendar.OnMouseMove(ButtonsOf(event.buttons()), ShiftOf(event.modifiers()), XOf(event),
                         YOf(event));
}

void VmCalendarWidget::Host::MouseUp(const QMouseEvent& event) {
    const QPointer<VmCalendarWidget> widget(&m_widget);
    const bool clicks = event.button() == Qt::LeftButton && std::exchange(m_clickBegun, false) &&
                        widget->rect().contains(event.position().toPoint());
    calendar.OnMouseUp(ButtonsOf(event.button()), ShiftOf(event.modifiers()), XOf(event),
                       YOf(event));
    if (clicks && widget && widget->isEnabled()) calendar.OnClick();
}

void VmCalendarWidget::Host::LoseMouse() {
    m_clickBegun = false;
    calendar.OnCaptureLost();
}

void VmCalendarWidget::Host::EnabledChanged() {
    m_clickBegun = false;
    calendar.OnWindowChanged();
    if (m_windowing.TakeEnabledChange()) PropertyChanged(kEnabled.name);
}

void VmCalendarWidget::Host::LocaleChanged() {
    m_dates.Locale(DateLocaleOf(m_widget.locale()));
    calendar.OnLocaleChanged();
}

void VmCalendarWidget::Host::SetColor(const char* property, void (VmCalendar::*setter)(OLE_COLOR),
                                      const QColor& value) {
    if (!value.isValid()) return WarnOfType(property);
    Set(property, setter, ToOleColor(value));
}

void VmCalendarWidget::Host::SetFont(const char* property, void (VmCalendar::*setter)(FontRef),
                                     const QFont& value) {
    Set(property, setter, std::make_shared<StdFont>(ToStdFont(value)));
}

void VmCalendarWidget::Host::SetDate(const char* property, void (VmCalendar::*setter)(Date),
                                     QDate value) {
    if (!value.isValid()) return WarnOfType(property);
    Set(property, setter, ToDate(value));
}

QColor VmCalendarWidget::Host::ColorOf(OLE_COLOR color) {
    return ToQColor(ResolveColor(m_drawing, color));
}

QFont VmCalendarWidget::Host::FontOf(const FontRef& font) const {
    return ToQFont(font ? *font : *AmbientFont());
}

void VmCalendarWidget::Host::Warn(const char* property, const char* what) {
    qWarning("VmCalendarWidget: %s: %s", property, what);
}

void VmCalendarWidget::Host::WarnOfType(const char* property) {
    Warn(property, AutomationError(ErrorNumber::TypeMismatch).what());
}

}  // namespace velmora
