#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"
#include "hosts/qt/drawing/QtDrawing.h"
#include "hosts/qt/windows/QtDrop.h"
#include "hosts/qt/windows/QtHost.h"
#include "hosts/qt/windows/SelectorInput.h"
#include "platform/AutomationError.h"
#include "platform/dates/Dates.h"

class QMouseEvent;
class QPainter;
class QRegion;

namespace velmora {

/// The calendar of one widget with all that it stands on. Its notifications become the widget's
/// signals, whose slots may delete the widget and with it this object: no member that calls into
/// the calendar touches anything afterwards, unless it has made sure that the widget lives.
class VmCalendarWidget::Host final : public QtHosting {
public:
    explicit Host(VmCalendarWidget& widget);

    void PropertyChanged(std::string_view name) override;
    void StartDrag() override;

    /// False when nothing was drawn. Emits nothing before it returns.
    bool Paint(QPainter& painter, const QRegion& exposed);
    void MouseDown(const QMouseEvent& event);
    void DblClick(const QMouseEvent& event);
    void MouseMove(const QMouseEvent& event);
    void MouseUp(const QMouseEvent& event);
    void LoseMouse();
    /// Makes the calendar know all that the user has done in its children. False when it is gone.
    bool TakeSelectorInput() { return m_input.Deliver(); }
    DropTarget<VmCalendar>& Drops() noexcept { return m_drops; }
    void EnabledChanged();
    void LocaleChanged();

    /// Does what may be refused; a refusal becomes a warning about that property of the widget.
    template <class Operation>
    static void Attempt(const char* property, Operation operation) {
        try {
            operation();
        } catch (const AutomationError& error) {
            Warn(property, error.what());
        }
    }
    template <class T, class Value>
    void Set(const char* property, void (VmCalendar::*setter)(T), Value value) {
        Attempt(property, [&] { (calendar.*setter)(static_cast<T>(value)); });
    }
    void SetColor(const char* property, void (VmCalendar::*setter)(OLE_COLOR), const QColor& value);
    void SetFont(const char* property, void (VmCalendar::*setter)(FontRef), const QFont& value);
    void SetDate(const char* property, void (VmCalendar::*setter)(Date), QDate value);
    QColor ColorOf(OLE_COLOR color);
    QFont FontOf(const FontRef& font) const;
    static void Warn(const char* property, const char* what);
    static void WarnOfType(const char* property);

private:
    void EmitMonth(std::int16_t month);

    VmCalendarWidget& m_widget;
    SelectorInput m_input;
    QtWindowing m_windowing;
    QtDrawing m_drawing;
    Dates m_dates;
    bool m_painting = false;
    bool m_dragging = false;
    bool m_clickBegun = false;  // the left button went down here, as the first press of a click

public:
    VmCalendar calendar;  // ends before what it stands on

private:
    DropTarget<VmCalendar> m_drops;
};

}  // namespace velmora
