#pragma once

#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/access/DateWidgetAccess.h"

namespace velmora {

/// A date box to screen readers: a combo box with its text, which its actions open and close.
class BoxAccess final : public DateWidgetAccess {
public:
    /// `lifetime` ends before the box does.
    BoxAccess(QWidget& widget, VmCalDropDown& box, const Lifetime& lifetime);

    void TellNews() override;

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    struct News {
        QString text;
        bool open = false;
    };

    VmCalDropDown& m_box;
    Lifetime::Watch m_alive;
    News m_told;
};

}  // namespace velmora
