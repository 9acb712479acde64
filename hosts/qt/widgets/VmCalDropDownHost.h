#pragma once

#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/drawing/QtDrawing.h"
#include "hosts/qt/windows/QtDrop.h"
#include "hosts/qt/windows/QtDropDownForm.h"
#include "hosts/qt/windows/QtHost.h"
#include "platform/AutomationError.h"
#include "platform/dates/Dates.h"

#include <functional>
#include <memory>
#include <utility>

class QMouseEvent;
class QPainter;

namespace velmora {

/// A widget as a date box's window.
class QtBoxWindowing final : public QtWindowing {
public:
    /// `gotFocus` is called when the focus that the box has asked for is there. It may end the
    /// widget, and this object with it.
    QtBoxWindowing(QWidget& widget, std::function<void()> gotFocus)
        : QtWindowing(widget), m_gotFocus(std::move(gotFocus)) {}

    void SetFocus() override;
    /// The focus is on its way because the box has asked for it: in the middle of that no slot may
    /// delete the widget.
    bool IsFocusing() const noexcept { return m_focusing; }

private:
    std::function<void()> m_gotFocus;
    bool m_focusing = false;
};

/// The date box of one widget with all that it stands on. Its notifications become the widget's
/// signals, whose slots may delete the widget and with it this object: no member that calls into
/// the box touches anything afterwards, unless it has made sure that the widget lives.
class VmCalDropDownWidget::Host final : public QtHosting {
public:
    explicit Host(VmCalDropDownWidget& widget);

    void PropertyChanged(std::string_view name) override;
    void StartDrag() override;

    DropTarget<VmCalDropDown>& Drops() noexcept { return m_drops; }
    void FocusGained();
    void Paint(QPainter& painter);
    void MouseDown(const QMouseEvent& event);
    void MouseMove(const QMouseEvent& event);
    void MouseUp(const QMouseEvent& event);
    /// Hidden, moved or resized, or a widget around it was. In the middle of that no slot may
    /// delete the widget, so what it closes is announced afterwards.
    void WindowChanged();
    void EnabledChanged();
    void LocaleChanged();
    /// An open calendar looks as the widget does.
    void LookChanged();
    /// Announces afterwards what it closes, as `WindowChanged` does. A focus that only the
    /// drop-down window has taken is not lost.
    void FocusLost();

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
    void Set(const char* property, void (VmCalDropDown::*setter)(T), const Value& value) {
        Attempt(property, [&] { (dropDown.*setter)(static_cast<T>(value)); });
    }
    template <class Row, class Value>
    void Let(const char* property, const Row& row, const Value& value) {
        Attempt(property, [&] { dropDown.Let(row, static_cast<typename Row::Value>(value)); });
    }
    template <class Row>
    void LetColor(const char* property, const Row& row, const QColor& value) {
        if (!value.isValid()) return WarnOfType(property);
        Let(property, row, ToOleColor(value));
    }
    template <class Row>
    void LetFont(const char* property, const Row& row, const QFont& value) {
        Let(property, row, NewFont(value));
    }
    void SetDate(const char* property, void (VmCalDropDown::*setter)(Date), QDate value);
    static FontRef NewFont(const QFont& font);
    QColor ColorOf(OLE_COLOR color);
    QFont FontOf(const FontRef& font) const;
    static void Warn(const char* property, const char* what);
    static void WarnOfType(const char* property);

private:
    void EmitCloseUp();

    VmCalDropDownWidget& m_widget;
    QtBoxWindowing m_windowing;
    QtDrawing m_drawing;
    Dates m_dates;
    std::shared_ptr<QtDropDownForm> m_form;
    bool m_inWindowChange = false;
    bool m_dragging = false;

public:
    VmCalDropDown dropDown;  // ends before what it stands on

private:
    DropTarget<VmCalDropDown> m_drops;
};

}  // namespace velmora
