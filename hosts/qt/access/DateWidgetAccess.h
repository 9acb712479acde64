#pragma once

#include <QAccessibleWidget>

namespace velmora {

/// What screen readers are told of one of the two widgets. It belongs to Qt, from the first
/// question about the widget to the widget's end; the control may end a little earlier.
class DateWidgetAccess : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    /// Tells them what has changed since the last call. To be called while the control lives.
    virtual void TellNews() = 0;

protected:
    /// The widget's own name, from its program or the label beside it, and what it shows.
    QString NameAnd(const QString& shown) const {
        const QString own = QAccessibleWidget::text(QAccessible::Name);
        return own.isEmpty() ? shown : own + QStringLiteral(", ") + shown;
    }
};

}  // namespace velmora
