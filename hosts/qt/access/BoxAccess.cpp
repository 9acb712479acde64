#include "hosts/qt/access/BoxAccess.h"

#include "VelmoraCalendar/QtConversions.h"

#include <QWidget>

#include <utility>

namespace velmora {

BoxAccess::BoxAccess(QWidget& widget, VmCalDropDown& box, QWidget& form, const Lifetime& lifetime)
    : DateWidgetAccess(&widget, QAccessible::ComboBox),
      m_box(box),
      m_form(form),
      m_alive(lifetime),
      m_told{ToQString(box.Text()), false} {}

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
        if (!now.open && widget()->hasFocus()) {
            QAccessibleEvent focus(widget(), QAccessible::Focus);
            QAccessible::updateAccessibility(&focus);
        }
    }
}

QString BoxAccess::text(QAccessible::Text kind) const {
    QString shown = m_alive ? ToQString(m_box.Text()) : QString();
    if (kind == QAccessible::Value) return shown;
    if (kind == QAccessible::Name && kIsValueInName) return NameAnd(shown);
    return DateWidgetAccess::text(kind);
}

QAccessible::State BoxAccess::state() const {
    QAccessible::State state = DateWidgetAccess::state();
    state.hasPopup = state.expandable = true;
    state.expanded = IsOpen();
    state.collapsed = !state.expanded;
    return state;
}

QAccessibleInterface* BoxAccess::child(int index) const {
    return index == 0 && IsOpen() ? QAccessible::queryAccessibleInterface(&m_form) : nullptr;
}

int BoxAccess::indexOfChild(const QAccessibleInterface* child) const {
    return child && child->object() == &m_form && IsOpen() ? 0 : -1;
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
