#include "hosts/qt/widgets/VmCalDropDownHost.h"

#include "hosts/qt/values/QtLocale.h"
#include "hosts/qt/widgets/EventSignals.h"
#include "hosts/qt/windows/QtInput.h"
#include "platform/DrawingScopes.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace velmora {
void QtBoxWindowing::SetFocus() {
    const QPointer<QWidget> widget(&Widget());
    m_focusing = true;
    QtWindowing::SetFocus();
    if (!widget) return;
    m_focusing = false;
    const auto gotFocus = m_gotFocus;
    if (widget->hasFocus()) gotFocus();
}

VmCalDropDownWidget::Host::Host(VmCalDropDownWidget& widget)
    : QtHosting(widget),
      m_widget(widget),
      m_windowing(widget, [this] { dropDown.OnGotFocus(); }),
      m_drawing(&widget),
      m_dates(DateLocaleOf(widget.locale()), LocalNow),
      m_form(QtDropDownForm::Shared()),
      dropDown({m_drawing, m_windowing, m_dates, *this}, m_form->Form()),
      m_drops(dropDown) {
    dropDown.InitProperties();
    DropDownEvents& events = dropDown.Events();
    EmitDates(&widget, events);
    EmitInput(&widget, events);
    EmitDrag(&widget, events);
    events.MonthChanged.Connect([this](std::int16_t& month) { emit m_widget.monthChanged(month); });
    events.CloseUp.Connect([this] { EmitCloseUp(); });
    events.DropDown.Connect([this](bool& cancel) { emit m_widget.dropDown(cancel); });
}

void VmCalDropDownWidget::Host::EmitCloseUp() {
    VmCalDropDownWidget* const widget = &m_widget;
    if (m_inWindowChange) {
        QMetaObject::invokeMethod(
            widget, [widget] { emit widget->closeUp(); }, Qt::QueuedConnection);
    } else {
        emit widget->closeUp();
    }
}

void VmCalDropDownWidget::Host::PropertyChanged(std::string_view name) {
    const QPointer<VmCalDropDownWidget> widget(&m_widget);
    const QString published = ToQString(name);
    if (name == kDateValue.name) emit widget->dateValueChanged(widget->dateValue());
    if (widget) emit widget->propertyChanged(published);
}

void VmCalDropDownWidget::Host::StartDrag() {
    if (std::exchange(m_dragging, true)) return;
    const QPointer<VmCalDropDownWidget> widget(&m_widget);
    dropDown.OnWindowChanged();  // the drag takes the release
    if (!widget) return;
    DataRef data = MakeDataObject();
    data->SetData(kTextFormat, dropDown.Text());
    std::int32_t effect = kDropCopy;
    dropDown.Events().OLEStartDrag.Raise(data, effect);
    if (!widget) return;
    effect = data ? RunDrag(data, effect, EventsOfDrag(m_widget, dropDown.Events())) : kDropNone;
    if (!widget) return;
    m_dragging = false;
    dropDown.Events().OLECompleteDrag.Raise(effect);
}

void VmCalDropDownWidget::Host::Paint(QPainter& painter) {
    const QtDrawing::Surface surface(m_drawing, painter);
    dropDown.OnPaint(surface.Handle());
}

void VmCalDropDownWidget::Host::MouseDown(const QMouseEvent& event) {
    m_form->MousePressed();
    dropDown.OnMouseDown(ButtonsOf(event.button()), ShiftOf(event.modifiers()), XOf(event),
                         YOf(event));
}

void VmCalDropDownWidget::Host::MouseMove(const QMouseEvent& event) {
    dropDown.OnMouseMove(ButtonsOf(event.buttons()), ShiftOf(event.modifiers()), XOf(event),
                         YOf(event));
}

void VmCalDropDownWidget::Host::MouseUp(const QMouseEvent& event) {
    m_form->MouseReleased();
    dropDown.OnMouseUp(ButtonsOf(event.button()), ShiftOf(event.modifiers()), XOf(event),
                       YOf(event));
}

void VmCalDropDownWidget::Host::WindowChanged() {
    const bool outer = std::exchange(m_inWindowChange, true);
    dropDown.OnWindowChanged();
    m_inWindowChange = outer;
}

void VmCalDropDownWidget::Host::EnabledChanged() {
    WindowChanged();
    if (m_windowing.TakeEnabledChange()) PropertyChanged(InBox(kEnabled).key);
}

void VmCalDropDownWidget::Host::LocaleChanged() {
    m_dates.Locale(DateLocaleOf(m_widget.locale()));
    dropDown.OnLocaleChanged();
    LookChanged();
}

void VmCalDropDownWidget::Host::LookChanged() {
    dropDown.RepaintControl();
    if (m_form->Form().GetOwner() == &dropDown) m_form->FollowOwner();
}

void VmCalDropDownWidget::Host::FocusGained() {
    if (!m_windowing.IsFocusing()) dropDown.OnGotFocus();
}

void VmCalDropDownWidget::Host::FocusLost() {
    if (QApplication::activeWindow() == m_form.get()) return;
    const bool outer = std::exchange(m_inWindowChange, true);
    dropDown.OnLostFocus();
    m_inWindowChange = outer;
}

void VmCalDropDownWidget::Host::SetDate(const char* property, void (VmCalDropDown::*setter)(Date),
                                        QDate value) {
    if (!value.isValid()) return WarnOfType(property);
    Set(property, setter, ToDate(value));
}

FontRef VmCalDropDownWidget::Host::NewFont(const QFont& font) {
    return std::make_shared<StdFont>(ToStdFont(font));
}

QColor VmCalDropDownWidget::Host::ColorOf(OLE_COLOR color) {
    return ToQColor(ResolveColor(m_drawing, color));
}

QFont VmCalDropDownWidget::Host::FontOf(const FontRef& font) const {
    return ToQFont(font ? *font : *AmbientFont());
}

void VmCalDropDownWidget::Host::Warn(const char* property, const char* what) {
    qWarning("VmCalDropDownWidget: %s: %s", property, what);
}

void VmCalDropDownWidget::Host::WarnOfType(const char* property) {
    Warn(property, AutomationError(ErrorNumber::TypeMismatch).what());
}

}  // namespace velmora
