#include "hosts/qt/access/CalendarAccess.h"

#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/access/CalendarParts.h"

#include <QWidget>

#include <utility>

namespace velmora {
namespace {

void Tell(QAccessibleInterface& part, QAccessible::Event type) {
    QAccessibleEvent event(&part, type);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

CalendarAccess::CalendarAccess(QWidget& widget, VmCalendar& calendar, const Lifetime& lifetime)
    : DateWidgetAccess(&widget, QAccessible::Table), m_calendar(calendar), m_alive(lifetime) {}

CalendarAccess::~CalendarAccess() {
    for (const Parts& parts : {m_days, m_weekDays}) {
        for (const auto& [key, id] : parts) QAccessible::deleteAccessibleInterface(id);
    }
}

void CalendarAccess::TellNews() {
    const News now{.month = MonthIndex(DayOf(m_calendar.ShownDate())),
                   .selected = DayOf(m_calendar.SelectedDate()),
                   .focused = widget()->hasFocus()};
    const News before = std::exchange(m_told, now);
    if (now == before) return;
    if (now.month != before.month) {
        Tell(*this, QAccessible::NameChanged);
        QAccessibleTableModelChangeEvent days(widget(),
                                              QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&days);
    }
    QAccessibleInterface* const cell = DayCell(now.selected);
    if (!cell) return;
    if (now.selected != before.selected) Tell(*cell, QAccessible::Selection);
    if (now.focused) Tell(*cell, QAccessible::Focus);
}

CalendarDescription CalendarAccess::Described() const {
    return m_alive ? m_calendar.Describe() : CalendarDescription();
}

QRect CalendarAccess::OnScreen(const Rect& place) const {
    return {widget()->mapToGlobal(QPoint(place.left, place.top)),
            QSize(place.Width(), place.Height())};
}

template <class Part>
QAccessibleInterface* CalendarAccess::PartOf(Parts& parts, int key) const {
    QAccessible::Id& id = parts[key];
    if (id == 0) id = QAccessible::registerAccessibleInterface(new Part(*this, key));
    return QAccessible::accessibleInterface(id);
}

QAccessibleInterface* CalendarAccess::DayCell(DayNumber day) const {
    if (!m_alive || !m_calendar.Describe(day)) return nullptr;
    return PartOf<DayPart>(m_days, day);
}

QAccessibleInterface* CalendarAccess::WeekDayCell(int column) const {
    const bool exists = column >= 0 && column < columnCount() && m_calendar.Layout().hasWeekDayRow;
    return exists ? PartOf<WeekDayPart>(m_weekDays, column) : nullptr;
}

int CalendarAccess::IndexOf(int row, int column) const {
    const int rows = m_alive && m_calendar.Layout().hasWeekDayRow ? row + 1 : row;
    return DateWidgetAccess::childCount() + rows * columnCount() + column;
}

void* CalendarAccess::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return DateWidgetAccess::interface_cast(type);
}

QString CalendarAccess::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name) return DateWidgetAccess::text(kind);
    return NameAnd(ToQString(Described().title));
}

int CalendarAccess::childCount() const { return IndexOf(kGridRows, 0); }

QAccessibleInterface* CalendarAccess::child(int index) const {
    const int widgets = DateWidgetAccess::childCount();
    if (index < widgets) return DateWidgetAccess::child(index);
    const int firstDay = IndexOf(0, 0);
    if (index < firstDay) return WeekDayCell(index - widgets);
    const auto days = Described().days;
    const auto cell = static_cast<std::size_t>(index - firstDay);
    return cell < days.size() ? DayCell(days[cell].day) : nullptr;
}

int CalendarAccess::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const part = dynamic_cast<const CalendarPart*>(child);
    return part ? part->Index() : DateWidgetAccess::indexOfChild(child);
}

QAccessibleInterface* CalendarAccess::childAt(int x, int y) const {
    if (QAccessibleInterface* const selector = DateWidgetAccess::childAt(x, y)) return selector;
    if (!m_alive) return nullptr;
    const QPoint at = widget()->mapFromGlobal(QPoint(x, y));
    const auto day =
        m_calendar.DateFromPoint(static_cast<float>(at.x()), static_cast<float>(at.y()));
    if (day) return DayCell(*day);
    for (int column = 0; column < columnCount(); ++column) {
        QAccessibleInterface* const weekDay = WeekDayCell(column);
        if (weekDay && weekDay->rect().contains(x, y)) return weekDay;
    }
    return nullptr;
}

QAccessibleInterface* CalendarAccess::focusChild() const {
    if (!m_alive || !widget()->hasFocus()) return DateWidgetAccess::focusChild();
    return DayCell(DayOf(m_calendar.SelectedDate()));
}

QAccessibleInterface* CalendarAccess::cellAt(int row, int column) const {
    const int columns = columnCount();
    if (row < 0 || row >= kGridRows || column < 0 || column >= columns) return nullptr;
    return child(IndexOf(row, column));
}

int CalendarAccess::columnCount() const { return m_alive ? m_calendar.Layout().columnCount : 0; }

QString CalendarAccess::columnDescription(int column) const {
    const QAccessibleInterface* const weekDay = WeekDayCell(column);
    return weekDay ? weekDay->text(QAccessible::Name) : QString();
}

QList<QAccessibleInterface*> CalendarAccess::selectedCells() const {
    for (const DayDescription& each : Described().days) {
        if (each.isSelected) return {DayCell(each.day)};
    }
    return {};
}

void CalendarAccess::modelChange(QAccessibleTableModelChangeEvent*) {
    std::erase_if(m_days, [this](const auto& part) {
        const bool isGone = !m_alive || !m_calendar.Describe(part.first);
        if (isGone) QAccessible::deleteAccessibleInterface(part.second);
        return isGone;
    });
}

}  // namespace velmora
