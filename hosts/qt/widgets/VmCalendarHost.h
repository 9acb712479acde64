#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"
#include "hosts/qt/widgets/DateWidgetHost.h"
#include "hosts/qt/windows/SelectorInput.h"

class QPainter;
class QRegion;

namespace velmora {

/// What stands behind the widget of a calendar.
class VmCalendarWidget::Host final : public VmDateWidget::Host {
public:
    explicit Host(VmCalendarWidget& widget);

    /// False when nothing was drawn. Emits nothing before it returns.
    bool Paint(QPainter& painter, const QRegion& exposed);
    void MouseDown(const QMouseEvent& event) override;
    void DblClick(const QMouseEvent& event) override;
    void MouseUp(const QMouseEvent& event) override;
    void LoseMouse() override;
    bool TakeSelectorInput() override { return m_input.Deliver(); }

private:
    Variant DragText() const override { return calendar.DateValue(); }
    void EmitDateValue() override { emit m_widget.dateValueChanged(m_widget.dateValue()); }
    void WindowChanged() override;

    VmCalendarWidget& m_widget;
    SelectorInput m_input;
    QtWindowing m_windowing;
    bool m_clickBegun = false;  // the left button went down here, as the first press of a click

public:
    VmCalendar calendar;  // ends before what it stands on
};

}  // namespace velmora
