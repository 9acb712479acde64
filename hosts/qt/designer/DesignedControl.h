#pragma once

#include "platform/Automation.h"

class QDesignerFormWindowInterface;
class QWidget;

namespace velmora {

/// A control on a form that is being designed, by the names of its properties. What is written
/// becomes part of the form, and can be undone there. A value that the control refuses leaves the
/// form as it was.
class DesignedControl final : public AutomationObject {
public:
    /// `widget` is a calendar or date box of that form; both live longer.
    DesignedControl(QDesignerFormWindowInterface& form, QWidget& widget);
    ~DesignedControl() override;

    std::string_view TypeName() const override;
    Variant GetMember(std::string_view name) const override;
    void LetMember(std::string_view name, const Variant& value) override;

    /// All that was written since the last call is one step of the form's undo.
    void EndCommand();

private:
    QDesignerFormWindowInterface& m_form;
    QWidget& m_widget;
    AutomationObject& m_control;
    bool m_inCommand = false;
};

}  // namespace velmora
