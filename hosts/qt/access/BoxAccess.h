#pragma once

#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/access/DateWidgetAccess.h"

namespace velmora {

/// A date box to screen readers: a combo box with its text, which its actions open and close; the
/// open calendar is its child.
class BoxAccess final : public DateWidgetAccess {
public:
    /// `lifetime` ends before the box does, and that before the window of its calendar.
    BoxAccess(QWidget& widget, VmCalDropDown& box, QWidget& form, const Lifetime& lifetime);

    void TellNews() override;

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override { return IsOpen() ? 1 : 0; }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    struct News {
        QString text;
        bool open = false;
    };

    bool IsOpen() const { return m_alive && m_box.DropDownState(); }

    VmCalDropDown& m_box;
    QWidget& m_form;
    Lifetime::Watch m_alive;
    News m_told;
};

}  // namespace velmora
