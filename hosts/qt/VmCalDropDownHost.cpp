#include "hosts/qt/VmCalDropDownHost.h"

#include "hosts/qt/QtInput.h"
#include "hosts/qt/QtLocale.h"
#include "platform/DrawingScopes.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace velmora {
namespace {

float XOf(const QMouseEvent& event) { return static_cast<float>(event.position().x()); }
float YOf(const QMouseEvent& event) { return static_cast<float>(event.position().y()); }

}  // namespace

void QtBoxWindowing::SetFocus() {
    const QPointer<QWidget> widget(&m_widget);
    m_focusing = true;
    widget->setFocus(Qt::OtherFocusReason);
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
    ConnectDateEvents();
    ConnectInputEvents();
    ConnectDragEvents();
}

void VmCalDropDownWidget::Host::ConnectDateEvents() {
    VmCalDropDownWidget* const widget = &m_widget;
    DropDownEvents& events = dropDown.Events();
    events.CloseUp.Connect([this] { EmitCloseUp(); });
    events.DropDown.Connect([widget](bool& cancel) { emit widget->dropDown(cancel); });
    events.DateChanged.Connect(
        [widget](Date& date) { emit widget->dateChanged(ToQDate(DayOf(date))); });
    events.DayChanged.Connect([widget](std::int16_t& day) { emit widget->dayChanged(day); });
    events.MonthChanged.Connect(
        [widget](std::int16_t& month) { emit widget->monthChanged(month); });
    events.YearChanged.Connect([widget](std::int16_t& year) { emit widget->yearChanged(year); });
}

void VmCalDropDownWidget::Host::ConnectInputEvents() {
    using Short = std::int16_t;
    VmCalDropDownWidget* const widget = &m_widget;
    DropDownEvents& events = dropDown.Events();
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

void VmCalDropDownWidget::Host::ConnectDragEvents() {
    using Short = std::int16_t;
    using Long = std::int32_t;
    VmCalDropDownWidget* const widget = &m_widget;
    DropDownEvents& events = dropDown.Events();
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

void VmCalDropDownWidget::Host::OleDrag() {
    if (std::exchange(m_dragging, true)) return;
    const QPointer<VmCalDropDownWidget> widget(&m_widget);
    dropDown.OnWindowChanged();  // the drag takes the release
    if (!widget) return;
    DataRef data = MakeDataObject();
    data->SetData(kTextFormat, dropDown.Text());
    std::int32_t effect = kDropCopy;
    dropDown.Events().OLEStartDrag.Raise(data, effect);
    if (!widget) return;
    effect = data ? RunDrag(data, effect, EventsOfDrag()) : kDropNone;
    if (!widget) return;
    m_dragging = false;
    dropDown.Events().OLECompleteDrag.Raise(effect);
}

DragEvents VmCalDropDownWidget::Host::EventsOfDrag() {
    const QPointer<VmCalDropDownWidget> widget(&m_widget);
    return {.setData =
                [widget](DataRef data, std::int16_t format) {
                    if (widget) widget->dropDownBox().Events().OLESetData.Raise(data, format);
                },
            .giveFeedback =
                [widget](std::int32_t effect) {
                    bool defaultCursors = true;
                    if (!widget) return QPixmap();
                    widget->dropDownBox().Events().OLEGiveFeedback.Raise(effect, defaultCursors);
                    return widget && !defaultCursors ? widget->cursor().pixmap() : QPixmap();
                }};
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
    if (m_windowing.TakeEnabledChange()) PropertyChanged(DropDownKeys::kEnabled);
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
