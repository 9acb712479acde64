#include "hosts/qt/access/CalendarAccess.h"

#include "VelmoraCalendar/QtConversions.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/access/CalendarParts.h"
#include "hosts/qt/drawing/QtDrawing.h"

#include <QWidget>

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

void Tell(QAccessibleInterface& part, QAccessible::Event type) {
    QAccessibleEvent event(&part, type);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

CalendarAccess::CalendarAccess(QWidget& widget, VmCalendar& calendar, const Lifetime& lifetime)
    : DateWidgetAccess(&widget, QAccessible::Table),
      m_calendar(calendar),
      m_alive(lifetime),
      m_told{.month = calendar.News().month} {}

CalendarAccess::CalendarAccess(QWidget& widget, DropDownForm& form, const Lifetime& lifetime)
    : DateWidgetAccess(&widget, QAccessible::Table),
      m_calendar(form.Calendar()),
      m_form(&form),
      m_alive(lifetime),
      m_told{.month = form.Calendar().News().month} {}

CalendarAccess::~CalendarAccess() {
    for (const Parts& parts : {m_arrows, m_days, m_weekDays}) {
        for (const auto& [key, id] : parts) QAccessible::deleteAccessibleInterface(id);
    }
}

void CalendarAccess::TellNews() {
    CalendarNews now = m_calendar.News();
    now.focused = HasFocus();
    const CalendarNews before = std::exchange(m_told, now);
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

int CalendarAccess::ArrowCount() const {
    return m_alive && m_calendar.MonthYearSelStyle() == VmMonthSelArrows ? kArrowCount : 0;
}

QAccessibleInterface* CalendarAccess::ArrowButton(int index) const {
    const auto arrows = Described().arrows;
    const auto at = static_cast<std::size_t>(index);
    return at < arrows.size() ? PartOf<ArrowPart>(m_arrows, static_cast<int>(arrows[at].arrow))
                              : nullptr;
}

int CalendarAccess::IndexOf(int row, int column) const {
    const int rows = m_alive && m_calendar.Layout().hasWeekDayRow ? row + 1 : row;
    return DateWidgetAccess::childCount() + ArrowCount() + rows * columnCount() + column;
}

int CalendarAccess::IndexOf(Arrow arrow) const {
    const auto arrows = Described().arrows;
    const auto found = std::ranges::find(arrows, arrow, &ArrowDescription::arrow);
    if (found == arrows.end()) return -1;
    return DateWidgetAccess::childCount() + static_cast<int>(found - arrows.begin());
}

bool CalendarAccess::HasFocus() const {
    return m_form ? widget()->isVisible() : m_alive && m_calendar.News().focused;
}

bool CalendarAccess::IsFocused(const DayDescription& day) const {
    return day.isSelected && HasFocus();
}

void CalendarAccess::Pick(DayNumber day) const {
    if (!m_alive) return;
    if (m_form) {
        m_form->PickDay(day);
    } else {
        m_calendar.OnDayPicked(day);
    }
}

void CalendarAccess::Pick(Arrow arrow) const {
    if (m_alive) m_calendar.OnArrowPicked(arrow);
}

void* CalendarAccess::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return DateWidgetAccess::interface_cast(type);
}

QString CalendarAccess::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name) return DateWidgetAccess::text(kind);
    return NameAnd(ToQString(Described().title));
}

QAccessibleInterface* CalendarAccess::parent() const {
    const VmCalDropDown* const box = m_alive && m_form ? m_form->GetOwner() : nullptr;
    if (!box) return DateWidgetAccess::parent();
    return QAccessible::queryAccessibleInterface(QtDrawing::WidgetOf(box->hWnd()));
}

int CalendarAccess::childCount() const { return IndexOf(kGridRows, 0); }

QAccessibleInterface* CalendarAccess::child(int index) const {
    const int widgets = DateWidgetAccess::childCount();
    if (index < widgets) return DateWidgetAccess::child(index);
    if (index < widgets + ArrowCount()) return ArrowButton(index - widgets);
    const int firstDay = IndexOf(0, 0);
    if (index < firstDay) return WeekDayCell(index - widgets - ArrowCount());
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
    for (int index = DateWidgetAccess::childCount(); index < IndexOf(0, 0); ++index) {
        QAccessibleInterface* const part = child(index);
        if (part && part->rect().contains(x, y)) return part;
    }
    return nullptr;
}

QAccessibleInterface* CalendarAccess::focusChild() const {
    if (!m_alive || !HasFocus()) return DateWidgetAccess::focusChild();
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
