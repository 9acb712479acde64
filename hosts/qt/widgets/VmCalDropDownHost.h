#pragma once

#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "hosts/qt/widgets/DateWidgetHost.h"
#include "hosts/qt/windows/QtDropDownForm.h"

#include <functional>
#include <memory>
#include <utility>

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

/// What stands behind the widget of a date box.
class Q_DECL_HIDDEN VmCalDropDownWidget::Host final : public VmDateWidget::Host {
public:
    explicit Host(VmCalDropDownWidget& widget);

    void Paint(QPainter& painter);
    void MouseDown(const QMouseEvent& event) override;
    void MouseUp(const QMouseEvent& event) override;
    /// An open calendar closes.
    void LoseMouse() override { dropDown.OnWindowChanged(); }
    /// Hidden, moved or resized, or a widget around it was. In the middle of that no slot may
    /// delete the widget, so what it closes is announced afterwards.
    void WindowChanged() override;
    using VmDateWidget::Host::ClassicLook;
    void ClassicLook(bool value) override;
    void LocaleChanged() override;
    /// An open calendar looks as the widget does.
    void LookChanged() override;
    void FocusGained();
    /// Announces afterwards what it closes, as `WindowChanged` does. A focus that only the
    /// drop-down window has taken is not lost.
    void FocusLost();

private:
    QAccessibleInterface* NewAccess() override;
    void EmitDateValue() override { emit m_widget.dateValueChanged(m_widget.dateValue()); }

    VmCalDropDownWidget& m_widget;
    QtBoxWindowing m_windowing;
    std::shared_ptr<QtDropDownForm> m_form;

public:
    VmCalDropDown dropDown;  // ends before what it stands on

private:
    Lifetime m_lifetime;  // ends first
};

}  // namespace velmora
