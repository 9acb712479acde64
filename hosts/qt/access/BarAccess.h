#pragma once

#include <QAccessibleWidget>

class QAbstractSlider;

namespace velmora {

/// A bar among the selectors to screen readers. The spinner of the year box runs over negated
/// years, and they hear of years; of the other one they hear the month.
class BarAccess final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    enum class Kind { Years, Months };
    BarAccess(QAbstractSlider& bar, Kind kind);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override { return 1; }

private:
    int Shown(int value) const { return m_kind == Kind::Years ? -value : value; }

    QAbstractSlider& m_bar;
    const Kind m_kind;
};

}  // namespace velmora
