#include "hosts/activex/access/CalendarAccess.h"

#include "dropdown/DropDownForm.h"
#include "hosts/activex/win32/WinTexts.h"
#include "hosts/activex/win32/WinWindowing.h"

#include <utility>

namespace velmora {
namespace {

AccessItem ItemOfDay(const DayDescription& day) {
    AccessItem item{.role = ROLE_SYSTEM_CELL, .name = day.name, .place = day.place};
    if (day.isToday) item.description = "today";
    if (!day.caption.empty()) {
        item.description += (item.description.empty() ? "" : ", ") + day.caption;
    }
    if (day.isSelected) item.state |= STATE_SYSTEM_SELECTED;
    if (day.isFocused) item.state |= STATE_SYSTEM_FOCUSED;
    if (day.isSelectable) {
        item.state |= STATE_SYSTEM_SELECTABLE;
        item.action = "Select";
    } else {
        item.state |= STATE_SYSTEM_UNAVAILABLE;
    }
    return item;
}

}  // namespace

CalendarAccess::CalendarAccess(const WinWindowing& window, DropDownForm& form)
    : m_window(window), m_calendar(form.Calendar()), m_form(&form) {}

HWND CalendarAccess::Window() const { return m_window.Window(); }

std::vector<AccessItem> CalendarAccess::Items() {
    const CalendarDescription shown = m_calendar.Describe();
    std::vector<AccessItem> items;
    items.push_back({.role = ROLE_SYSTEM_TABLE,
                     .state = (m_form ? 0 : STATE_SYSTEM_FOCUSABLE) |
                              (m_window.TakesInput() ? 0 : STATE_SYSTEM_UNAVAILABLE),
                     .name = m_form ? shown.title : NameAnd(shown.title),
                     .place = m_calendar.Layout().Client()});
    for (const ArrowDescription& arrow : shown.arrows) {
        items.push_back({.role = ROLE_SYSTEM_PUSHBUTTON,
                         .state = arrow.leads ? 0 : STATE_SYSTEM_UNAVAILABLE,
                         .name = ForReaders(NameOf(arrow.arrow)),
                         .action = "Press",
                         .place = arrow.place});
    }
    for (const WeekDayDescription& weekDay : shown.weekDays) {
        items.push_back(
            {.role = ROLE_SYSTEM_COLUMNHEADER, .name = weekDay.name, .place = weekDay.place});
    }
    for (const DayDescription& day : shown.days) items.push_back(ItemOfDay(day));
    return items;
}

void CalendarAccess::Act(std::size_t item) {
    const CalendarDescription shown = m_calendar.Describe();
    const std::size_t arrows = 1;
    const std::size_t weekDays = arrows + shown.arrows.size();
    const std::size_t days = weekDays + shown.weekDays.size();
    if (item < arrows || item >= days + shown.days.size()) return;
    if (item < weekDays) return m_calendar.OnArrowPicked(shown.arrows[item - arrows].arrow);
    if (item < days) return;
    const DayNumber day = shown.days[item - days].day;
    if (m_form) {
        m_form->PickDay(day);
    } else {
        m_calendar.OnDayPicked(day);
    }
}

/// Without the words of all cells. 0: it is not to be seen.
std::size_t CalendarAccess::ItemOf(DayNumber day) {
    const auto cell = m_calendar.Describe(day);
    if (!cell) return 0;
    const CalendarLayout& layout = m_calendar.Layout();
    const bool hasArrows = m_calendar.MonthYearSelStyle() == VmMonthSelArrows;
    const int row = cell->row + (layout.hasWeekDayRow ? 1 : 0);
    return static_cast<std::size_t>(1 + (hasArrows ? kArrowCount : 0) + row * layout.columnCount +
                                    cell->column);
}

void CalendarAccess::TellNews() {
    const CalendarNews now = m_calendar.News();
    const CalendarNews before = std::exchange(m_told, now);
    if (now == before || !IsWindowVisible(Window())) return;
    if (now.month != before.month) {
        Tell(EVENT_OBJECT_NAMECHANGE, CHILDID_SELF);
        Tell(EVENT_OBJECT_REORDER, CHILDID_SELF);
    }
    const std::size_t cell = ItemOf(now.selected);
    if (cell == CHILDID_SELF) return;
    if (now.selected != before.selected) Tell(EVENT_OBJECT_SELECTION, cell);
    if (now.focused) Tell(EVENT_OBJECT_FOCUS, cell);
}

}  // namespace velmora
