#include "hosts/qt/access/YearAccess.h"

#include <QAbstractSlider>

namespace velmora {

YearAccess::YearAccess(QAbstractSlider& bar)
    : QAccessibleWidget(&bar, QAccessible::SpinBox), m_bar(bar) {}

void* YearAccess::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString YearAccess::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? QString::number(-m_bar.value())
                                      : QAccessibleWidget::text(kind);
}

QVariant YearAccess::currentValue() const { return -m_bar.value(); }
void YearAccess::setCurrentValue(const QVariant& year) { m_bar.setValue(-year.toInt()); }
QVariant YearAccess::maximumValue() const { return -m_bar.minimum(); }
QVariant YearAccess::minimumValue() const { return -m_bar.maximum(); }

}  // namespace velmora
