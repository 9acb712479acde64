#include "hosts/qt/access/BarAccess.h"

#include "hosts/qt/access/DateWidgetAccess.h"
#include "platform/dates/Date.h"

#include <QAbstractSlider>
#include <QLocale>

#include <algorithm>

namespace velmora {

BarAccess::BarAccess(QAbstractSlider& bar, Kind kind)
    : QAccessibleWidget(&bar, kind == Kind::Years ? QAccessible::SpinBox : QAccessible::ScrollBar),
      m_bar(bar),
      m_kind(kind) {}

void* BarAccess::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

/// A bar of months is at a `MonthIndex`.
QString BarAccess::text(QAccessible::Text kind) const {
    const QString own = QAccessibleWidget::text(kind);
    if (m_kind == Kind::Years) {
        return kind == QAccessible::Value ? QString::number(-m_bar.value()) : own;
    }
    const DayNumber shown = AddMonths(DayFromCivil(1899, 12, 1), m_bar.value());
    QString month =
        m_bar.locale().standaloneMonthName(MonthOf(shown)) + u' ' + QString::number(YearOf(shown));
    if (kind == QAccessible::Value) return month;
    return kind == QAccessible::Name && kIsValueInName ? own + QStringLiteral(", ") + month : own;
}

QVariant BarAccess::currentValue() const { return Shown(m_bar.value()); }
void BarAccess::setCurrentValue(const QVariant& value) { m_bar.setValue(Shown(value.toInt())); }
QVariant BarAccess::maximumValue() const {
    return std::max(Shown(m_bar.minimum()), Shown(m_bar.maximum()));
}
QVariant BarAccess::minimumValue() const {
    return std::min(Shown(m_bar.minimum()), Shown(m_bar.maximum()));
}

}  // namespace velmora
