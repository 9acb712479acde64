#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"
#include "calendar/SelectorInput.h"
#include "hosts/qt/widgets/DateWidgetHost.h"
#include "hosts/qt/windows/QtClock.h"
#include "hosts/qt/windows/QtTouch.h"

#include <memory>

class QPainter;
class QRegion;

namespace velmora {

/// What stands behind the widget of a calendar.
class Q_DECL_HIDDEN VmCalendarWidget::Host final : public VmDateWidget::Host {
public:
    explicit Host(VmCalendarWidget& widget);

    /// False when nothing was drawn. Emits nothing before it returns.
    bool Paint(QPainter& painter, const QRegion& exposed);
    /// Whether the finger's event has been used.
    bool Touch(const QTouchEvent& event);
    void LoseMouse() override { calendar.OnCaptureLost(); }
    bool TakeSelectorInput() override { return m_input.Deliver(calendar); }

private:
    QAccessibleInterface* NewAccess() override;
    void EmitDateValue() override { emit m_widget.dateValueChanged(m_widget.dateValue()); }
    void WindowChanged() override { calendar.OnWindowChanged(); }

    VmCalendarWidget& m_widget;
    SelectorInput m_input;
    QtWindowing m_windowing;

public:
    VmCalendar calendar;  // ends before what it stands on

private:
    QtClock m_clock;
    std::unique_ptr<QtTouch> m_touch;  // made for the first finger
    Lifetime m_lifetime;               // ends first
};

}  // namespace velmora
