#include "hosts/qt/access/BoxAccess.h"

#include "VelmoraCalendar/QtConversions.h"

#include <QWidget>

#include <utility>

namespace velmora {

BoxAccess::BoxAccess(QWidget& widget, VmCalDropDown& box, const Lifetime& lifetime)
    : DateWidgetAccess(&widget, QAccessible::ComboBox), m_box(box), m_alive(lifetime) {}

void BoxAccess::TellNews() {
    const News now{ToQString(m_box.Text()), m_box.DropDownState()};
    const News before = std::exchange(m_told, now);
    if (now.text != before.text) {
        QAccessibleValueChangeEvent value(widget(), now.text);
        QAccessible::updateAccessibility(&value);
    }
    if (now.open != before.open) {
        QAccessible::State changed;
        changed.expanded = changed.collapsed = true;
        QAccessibleStateChangeEvent state(widget(), changed);
        QAccessible::updateAccessibility(&state);
    }
}

/// The bus of Unix desktops carries no text as a value: there the name has it too, as that of Qt's
/// own combo box.
QString BoxAccess::text(QAccessible::Text kind) const {
    const QString shown = m_alive ? ToQString(m_box.Text()) : QString();
    if (kind == QAccessible::Value) return shown;
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    if (kind == QAccessible::Name) return NameAnd(shown);
#endif
    return DateWidgetAccess::text(kind);
}

QAccessible::State BoxAccess::state() const {
    QAccessible::State state = DateWidgetAccess::state();
    state.hasPopup = state.expandable = true;
    state.expanded = m_alive && m_box.DropDownState();
    state.collapsed = !state.expanded;
    return state;
}

QStringList BoxAccess::actionNames() const {
    return QStringList{showMenuAction(), pressAction()} + DateWidgetAccess::actionNames();
}

/// A handler may end the widget, and this with it.
void BoxAccess::doAction(const QString& name) {
    if (name != showMenuAction() && name != pressAction()) return DateWidgetAccess::doAction(name);
    if (m_alive && m_box.Enabled()) m_box.DropDownState(!m_box.DropDownState());
}

}  // namespace velmora
