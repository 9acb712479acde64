#include "hosts/qt/VmCalendarHost.h"

#include "hosts/qt/QtConversions.h"
#include "hosts/qt/QtInput.h"
#include "hosts/qt/QtLocale.h"
#include "platform/DrawingScopes.h"

#include <QDateTime>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QRegion>

#include <utility>
#include <vector>

namespace velmora {
namespace {

float XOf(const QMouseEvent& event) { return static_cast<float>(event.position().x()); }
float YOf(const QMouseEvent& event) { return static_cast<float>(event.position().y()); }

}  // namespace

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
    ConnectDateEvents();
    ConnectInputEvents();
    ConnectDragEvents();
}

void VmCalendarWidget::Host::ConnectDateEvents() {
    VmCalendarWidget* const widget = &m_widget;
    CalendarEvents& events = calendar.Events();
    events.DateChanged.Connect(
        [widget](Date& date) { emit widget->dateChanged(ToQDate(DayOf(date))); });
    events.DayChanged.Connect([widget](std::int16_t& day) { emit widget->dayChanged(day); });
    events.MonthChanged.Connect([this](std::int16_t& month) { EmitMonth(month); });
    events.YearChanged.Connect([widget](std::int16_t& year) { emit widget->yearChanged(year); });
}

void VmCalendarWidget::Host::ConnectInputEvents() {
    using Short = std::int16_t;
    VmCalendarWidget* const widget = &m_widget;
    CalendarEvents& events = calendar.Events();
    events.Click.Connect([widget] { emit widget->click(); });
    events.DblClick.Connect([widget] { emit widget->dblClick(); });
    events.KeyDown.Connect(
        [widget](Short& key, Short& shift) { emit widget->keyDown(key, shift); });
    events.KeyPress.Connect([widget](Short& key) { emit widget->keyPress(key); });
    events.KeyUp.Connect([widget](Short& key, Short& shift) { emit widget->keyUp(key, shift); });
    events.MouseDown.Connect([widget](Short& button, Short& shift, float& x, float& y) {
        emit widget->mouseDown(button, shift, x, y);
    });
    events.MouseMove.Connect([widget](Short& button, Short& shift, float& x, float& y) {
        emit widget->mouseMove(button, shift, x, y);
    });
    events.MouseUp.Connect([widget](Short& button, Short& shift, float& x, float& y) {
        emit widget->mouseUp(button, shift, x, y);
    });
}

void VmCalendarWidget::Host::ConnectDragEvents() {
    using Short = std::int16_t;
    using Long = std::int32_t;
    VmCalendarWidget* const widget = &m_widget;
    CalendarEvents& events = calendar.Events();
    events.OLEStartDrag.Connect(
        [widget](DataRef& data, Long& effects) { emit widget->oleStartDrag(data, effects); });
    events.OLESetData.Connect(
        [widget](DataRef& data, Short& format) { emit widget->oleSetData(data, format); });
    events.OLEGiveFeedback.Connect([widget](Long& effect, bool& defaultCursors) {
        emit widget->oleGiveFeedback(effect, defaultCursors);
    });
    events.OLECompleteDrag.Connect(
        [widget](Long& effect) { emit widget->oleCompleteDrag(effect); });
    events.OLEDragOver.Connect([widget](DataRef& data, Long& effect, Short& button, Short& shift,
                                        float& x, float& y, Short& state) {
        emit widget->oleDragOver(data, effect, button, shift, x, y, state);
    });
    events.OLEDragDrop.Connect(
        [widget](DataRef& data, Long& effect, Short& button, Short& shift, float& x, float& y) {
            emit widget->oleDragDrop(data, effect, button, shift, x, y);
        });
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

void VmCalendarWidget::Host::OleDrag() {
    if (std::exchange(m_dragging, true)) return;
    const QPointer<VmCalendarWidget> widget(&m_widget);
    LoseMouse();  // the drag takes the release
    DataRef data = MakeDataObject();
    data->SetData(kTextFormat, calendar.DateValue());
    std::int32_t effect = kDropCopy;
    calendar.Events().OLEStartDrag.Raise(data, effect);
    if (!widget) return;
    effect = data ? RunDrag(data, effect, EventsOfDrag()) : kDropNone;
    if (!widget) return;
    m_dragging = false;
    calendar.Events().OLECompleteDrag.Raise(effect);
}

DragEvents VmCalendarWidget::Host::EventsOfDrag() {
    const QPointer<VmCalendarWidget> widget(&m_widget);
    return {.setData =
                [widget](DataRef data, std::int16_t format) {
                    if (widget) widget->calendar().Events().OLESetData.Raise(data, format);
                },
            .giveFeedback =
                [widget](std::int32_t effect) {
                    bool defaultCursors = true;
                    if (!widget) return QPixmap();
                    widget->calendar().Events().OLEGiveFeedback.Raise(effect, defaultCursors);
                    return widget && !defaultCursors ? widget->cursor().pixmap() : QPixmap();
                }};
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
    if (m_windowing.TakeEnabledChange()) PropertyChanged(kEnabled);
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
