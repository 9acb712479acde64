#pragma once

#include <QAccessibleWidget>

class QAbstractSlider;

namespace velmora {

/// The spinner of the year box to screen readers: it runs over negated years, and they hear of
/// years.
class YearAccess final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit YearAccess(QAbstractSlider& bar);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& year) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override { return 1; }

private:
    QAbstractSlider& m_bar;
};

}  // namespace velmora
