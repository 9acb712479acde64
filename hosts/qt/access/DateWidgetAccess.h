#pragma once

#include <QAccessibleWidget>

namespace velmora {

/// The bus of Unix desktops carries no text as a value: there the name has it too, as that of Qt's
/// own combo box.
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
inline constexpr bool kIsValueInName = true;
#else
inline constexpr bool kIsValueInName = false;
#endif

/// What screen readers are told of one of the two widgets. It belongs to Qt, from the first
/// question about the widget to the widget's end; the control may end a little earlier.
class DateWidgetAccess : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    /// Tells them what has changed since the last call. To be called while the control lives.
    virtual void TellNews() = 0;

    /// Something of such a widget may have changed. Readers hear of it when what is under way is
    /// over; without one it costs nothing.
    static void TellReaders(QWidget& widget);

protected:
    /// The widget's own name, from its program or the label beside it, and what it shows.
    QString NameAnd(const QString& shown) const {
        const QString own = QAccessibleWidget::text(QAccessible::Name);
        return own.isEmpty() ? shown : own + QStringLiteral(", ") + shown;
    }
};

}  // namespace velmora
