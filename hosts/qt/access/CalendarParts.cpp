#include "hosts/qt/access/CalendarParts.h"

#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/values/QtTranslation.h"

#include <utility>

namespace velmora {

QAccessibleInterface* CalendarPart::parent() const {
    return QAccessible::queryAccessibleInterface(m_calendar.object());
}

QAccessible::State CalendarPart::StateOfAll() const {
    const QAccessible::State all = m_calendar.state();
    QAccessible::State state;
    state.disabled = all.disabled;
    state.invisible = all.invisible;
    state.offscreen = all.offscreen;
    return state;
}

void* ArrowPart::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QString ArrowPart::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name ? Translated(NameOf(m_arrow)) : QString();
}

std::optional<ArrowDescription> ArrowPart::Described() const {
    for (const ArrowDescription& each : m_calendar.Described().arrows) {
        if (each.arrow == m_arrow) return each;
    }
    return std::nullopt;
}

QRect ArrowPart::rect() const {
    const auto described = Described();
    return described ? m_calendar.OnScreen(described->place) : QRect();
}

QAccessible::State ArrowPart::state() const {
    QAccessible::State state = StateOfAll();
    const auto described = Described();
    state.invalid = !described;
    if (described && !described->leads) state.disabled = true;
    return state;
}

/// A handler may end the widget, and this with it.
void ArrowPart::doAction(const QString& name) {
    if (name == pressAction()) m_calendar.Pick(m_arrow);
}

std::optional<WeekDayDescription> WeekDayPart::Described() const {
    auto weekDays = m_calendar.Described().weekDays;
    const auto column = static_cast<std::size_t>(m_column);
    return column < weekDays.size() ? std::optional(std::move(weekDays[column])) : std::nullopt;
}

QString WeekDayPart::text(QAccessible::Text kind) const {
    const auto described = Described();
    return described && kind == QAccessible::Name ? ToQString(described->name) : QString();
}

QRect WeekDayPart::rect() const {
    const auto described = Described();
    return described ? m_calendar.OnScreen(described->place) : QRect();
}

std::optional<DayDescription> DayPart::Described() const {
    VmCalendar* const calendar = m_calendar.Calendar();
    return calendar ? calendar->Describe(m_day) : std::nullopt;
}

int DayPart::Index() const {
    const auto described = Described();
    return described ? m_calendar.IndexOf(described->row, described->column) : -1;
}

void* DayPart::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface) {
        return static_cast<QAccessibleTableCellInterface*>(this);
    }
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QString DayPart::text(QAccessible::Text kind) const {
    const auto described = Described();
    if (!described) return {};
    if (kind == QAccessible::Name) return ToQString(described->name);
    if (kind != QAccessible::Description) return {};
    QStringList parts;
    if (described->isToday) parts.append(Translated("today"));
    if (!described->caption.empty()) parts.append(ToQString(described->caption));
    return parts.join(QStringLiteral(", "));
}

QRect DayPart::rect() const {
    const auto described = Described();
    return described ? m_calendar.OnScreen(described->place) : QRect();
}

QAccessible::State DayPart::state() const {
    QAccessible::State state = StateOfAll();
    const auto described = Described();
    state.invalid = !described;
    if (!described) return state;
    state.selectable = state.focusable = described->isSelectable;
    state.selected = described->isSelected;
    state.focused = m_calendar.IsFocused(*described);
    if (!described->isSelectable) state.disabled = true;
    return state;
}

int DayPart::columnIndex() const {
    const auto described = Described();
    return described ? described->column : -1;
}

int DayPart::rowIndex() const {
    const auto described = Described();
    return described ? described->row : -1;
}

QList<QAccessibleInterface*> DayPart::columnHeaderCells() const {
    QAccessibleInterface* const header = m_calendar.WeekDayCell(columnIndex());
    return header ? QList{header} : QList<QAccessibleInterface*>();
}

QStringList DayPart::actionNames() const {
    return state().disabled ? QStringList() : QStringList(pressAction());
}

/// A handler may end the widget, and this with it.
void DayPart::doAction(const QString& name) {
    if (name == pressAction() && isValid()) m_calendar.Pick(m_day);
}

}  // namespace velmora
