#include "hosts/qt/widgets/DateWidgetHost.h"

#include "hosts/qt/access/BarAccess.h"
#include "hosts/qt/access/DateWidgetAccess.h"
#include "hosts/qt/values/QtLocale.h"
#include "hosts/qt/values/QtNames.h"
#include "hosts/qt/windows/QtDropDownForm.h"
#include "hosts/qt/windows/QtInput.h"
#include "hosts/qt/windows/QtSelectors.h"

#include <QMetaProperty>
#include <QMouseEvent>
#include <QPointer>

#include <utility>

namespace velmora {

using Short = std::int16_t;
using Long = std::int32_t;

VmDateWidget::Host::Host(VmDateWidget& widget, QtWindowing& windowing, AnyControl control)
    : QtHosting(widget),
      m_drawing(&widget),
      m_widget(widget),
      m_windowing(windowing),
      m_control(control),
      m_drops(control, m_dates),
      m_dates(DateLocaleOf(widget.locale()), LocalNow) {
    QAccessible::installFactory(&AccessOf);  // the first time
}

/// Widgets that are on their way, and those of the library's own, are not known by the name of
/// their class.
QAccessibleInterface* VmDateWidget::Host::AccessOf(const QString&, QObject* object) {
    if (auto* const bar = dynamic_cast<SelectorBar*>(object)) {
        const bool isYear = dynamic_cast<YearBar*>(bar) != nullptr;
        return new BarAccess(*bar, isYear ? BarAccess::Kind::Years : BarAccess::Kind::Months);
    }
    if (auto* const form = dynamic_cast<QtDropDownForm*>(object)) return form->NewAccess();
    auto* const widget = dynamic_cast<VmDateWidget*>(object);
    return widget && widget->m_host ? widget->m_host->NewAccess() : nullptr;
}

void VmDateWidget::Host::TellReaders() { DateWidgetAccess::TellReaders(m_widget); }

void VmDateWidget::Host::Begin() {
    With([this](auto& control) {
        control.InitProperties();
        for (const auto& font : {kDayFont, kMonthFont, kWeekDayFont}) control.Let(font, nullptr);
        EmitEvents(control.Events());
    });
}

template <class Events>
void VmDateWidget::Host::EmitEvents(Events& events) {
    using Widget = VmDateWidget;
    VmDateWidget* const to = &m_widget;
    const auto relay = [to]<class... Args>(Event<Args...>& event, auto signal) {
        event.Connect([to, signal](Args... arguments) { (to->*signal)(arguments...); });
    };
    events.DateChanged.Connect([to](Date& date) { emit to->dateChanged(ToQDate(DayOf(date))); });
    events.MonthChanged.Connect(
        [this, to](Short& month) { EmitSafely([to, month] { emit to->monthChanged(month); }); });
    events.YearChanged.Connect(
        [this, to](Short& year) { EmitSafely([to, year] { emit to->yearChanged(year); }); });
    events.MonthChanged.Connect([this](Short&) { TellReaders(); });
    events.YearChanged.Connect([this](Short&) { TellReaders(); });
    relay(events.DayChanged, &Widget::dayChanged);
    events.KeyDown.Connect([to](Short& keyCode, Short& shift) {
        VmKeyArguments key(keyCode, shift);
        emit to->keyDown(&key);
    });
    events.KeyPress.Connect([to](Short& keyAscii) {
        VmKeyPressArguments key(keyAscii);
        emit to->keyPress(&key);
    });
    events.KeyUp.Connect([to](Short& keyCode, Short& shift) {
        VmKeyArguments key(keyCode, shift);
        emit to->keyUp(&key);
    });
    relay(events.MouseDown, &Widget::mouseDown);
    relay(events.MouseMove, &Widget::mouseMove);
    relay(events.MouseUp, &Widget::mouseUp);
    events.OLEStartDrag.Connect([to](DataRef& data, Long& allowedEffects) {
        VmDragArguments drag(data, allowedEffects);
        emit to->oleStartDrag(&drag);
        data = drag.data();
        allowedEffects = drag.effect();
    });
    events.OLESetData.Connect([to](DataRef& data, Short& dataFormat) {
        VmDragArguments drag(data, 0, {}, dataFormat);
        emit to->oleSetData(&drag);
        data = drag.data();
    });
    events.OLEGiveFeedback.Connect([to](Long& effect, bool& defaultCursors) {
        VmDragArguments drag(nullptr, effect);
        drag.setDefaultCursors(defaultCursors);
        emit to->oleGiveFeedback(&drag);
        effect = drag.effect();
        defaultCursors = drag.defaultCursors();
    });
    events.OLECompleteDrag.Connect([to](Long& effect) {
        VmDragArguments drag(nullptr, effect);
        emit to->oleCompleteDrag(&drag);
        effect = drag.effect();
    });
    events.OLEDragOver.Connect([to](DataRef& data, Long& effect, Short& button, Short& shift,
                                    float& x, float& y, Short& state) {
        VmDragArguments drag(data, effect, {button, shift, x, y, state});
        emit to->oleDragOver(&drag);
        data = drag.data();
        effect = drag.effect();
    });
    events.OLEDragDrop.Connect(
        [to](DataRef& data, Long& effect, Short& button, Short& shift, float& x, float& y) {
            VmDragArguments drag(data, effect, {button, shift, x, y});
            emit to->oleDragDrop(&drag);
            data = drag.data();
            effect = drag.effect();
        });
}

void VmDateWidget::Host::EmitSafely(const std::function<void()>& signal) {
    if (m_emitsLater) {
        QMetaObject::invokeMethod(&m_widget, signal, Qt::QueuedConnection);
    } else {
        signal();
    }
}

void VmDateWidget::Host::PropertyChanged(std::string_view key) {
    TellReaders();
    if (key != kDateValue.name) m_widget.updateGeometry();
    const QPointer<VmDateWidget> widget(&m_widget);
    const QByteArray name = QtNameOf(NameOfKey(BoxOrder(), key));
    if (key == kDateValue.name) {
        EmitDateValue();
    } else {
        Notify(name);
    }
    if (widget) emit widget->propertyChanged(QString::fromLatin1(name));
}

void VmDateWidget::Host::Notify(const QByteArray& name) {
    const QMetaObject& type = *m_widget.metaObject();
    const QMetaProperty property = type.property(type.indexOfProperty(name));
    if (property.hasNotifySignal()) property.notifySignal().invoke(&m_widget, Qt::DirectConnection);
}

void VmDateWidget::Host::MouseDown(const QMouseEvent& event) {
    With([&]<class Control>(Control& to) { TellMouse(to, &Control::OnMouseDown, event); });
}

void VmDateWidget::Host::DblClick(const QMouseEvent& event) {
    if (auto* const calendar = std::get_if<VmCalendar*>(&m_control)) {
        TellMouse(**calendar, &VmCalendar::OnMouseDoubleClick, event);
    } else {
        MouseDown(event);
    }
}

void VmDateWidget::Host::MouseMove(const QMouseEvent& event) {
    With([&]<class Control>(Control& to) { TellMouse(to, &Control::OnMouseMove, event); });
}

void VmDateWidget::Host::MouseUp(const QMouseEvent& event) {
    With([&]<class Control>(Control& to) { TellMouse(to, &Control::OnMouseUp, event); });
}

void VmDateWidget::Host::ClassicLook(bool value) {
    m_drawing.Classic(value);
    With([](auto& control) { control.RepaintControl(); });
}

void VmDateWidget::Host::EnabledChanged() {
    WindowChanged();
    if (!m_windowing.TakeEnabledChange()) return;
    PropertyChanged(std::holds_alternative<VmCalendar*>(m_control) ? kEnabled.name
                                                                   : InBox(kEnabled).key);
}

void VmDateWidget::Host::LocaleChanged() {
    m_dates.Locale(DateLocaleOf(m_widget.locale()));
    m_widget.updateGeometry();
    With([](auto& control) { control.OnLocaleChanged(); });
}

void VmDateWidget::Host::LookChanged() {
    FontChanged();
    m_widget.updateGeometry();
    const QPointer<VmDateWidget> widget(&m_widget);
    With([](auto& control) { control.RepaintControl(); });
    With([&](auto& control) { NotifyFollowers(control, Slots(), widget); });
}

void VmDateWidget::Host::Warn(std::string_view type, std::string_view property,
                              const AutomationError& error) {
    qWarning("%sWidget: %s: %s", std::string(type).c_str(), QtNameOf(property).constData(),
             error.what());
}

OLE_COLOR VmDateWidget::Host::Stored(const QColor& value) {
    if (!value.isValid()) throw AutomationError(ErrorNumber::TypeMismatch);
    if (value.alpha() != 255) throw AutomationError(ErrorNumber::InvalidPropertyValue);
    return ToOleColor(value);
}

Date VmDateWidget::Host::Stored(QDate value) {
    if (!value.isValid()) throw AutomationError(ErrorNumber::TypeMismatch);
    return ToDate(value);
}

Date VmDateWidget::Host::Stored(const QDateTime& value) {
    if (!value.isValid()) throw AutomationError(ErrorNumber::TypeMismatch);
    return ToDate(value);
}

FontRef VmDateWidget::Host::Stored(const QFont& value) {
    return std::make_shared<StdFont>(ToStdFont(value));
}

}  // namespace velmora
