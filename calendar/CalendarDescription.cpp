#include "calendar/CalendarDescription.h"

#include "calendar/DateLimits.h"

namespace velmora {

std::string MonthTitle(const CalendarView& view, std::string_view month) {
    const DayNumber shown = DayOf(view.state.shownDate);
    return view.dates.Format(DateOf(shown), month) + ' ' + view.dates.Number(YearOf(shown));
}

int WeekDayOfColumn(const CalendarView& view, int column) noexcept {
    return (view.state.GridFirstDay() % 7 + 6 + column) % 7;  // Sunday is 1 there
}

std::string WeekDayName(const CalendarView& view, int column, std::string_view form) {
    return view.dates.Format(DateOf(WeekDayOfColumn(view, column) + 1), form);  // 1 is a Sunday
}

const char* NameOf(Arrow arrow) noexcept {
    switch (arrow) {
        case Arrow::YearBack: return "Previous year";
        case Arrow::YearForward: return "Next year";
        case Arrow::MonthBack: return "Previous month";
        case Arrow::MonthForward: break;
    }
    return "Next month";
}

std::optional<DayDescription> DescribeDay(const CalendarView& view, DayNumber day) {
    const MonthGrid grid = GridOf(view.state, view.layout);
    const auto cell = grid.DayCellRect(day);
    if (!cell) return std::nullopt;
    const VmDay* const decoration = DecorationOf(view.days, grid, day);
    const bool isOfShownMonth = grid.IsShownMonth(day);
    const bool isSelected = isOfShownMonth && day == DayOf(view.state.dateValue);
    return DayDescription{.day = day,
                          .row = grid.RowOf(day),
                          .column = grid.ColumnOf(day),
                          .place = {cell->left, cell->top, cell->right + 1, cell->bottom + 1},
                          .name = view.dates.Format(DateOf(day), "Long Date"),
                          .caption = decoration ? decoration->Caption() : std::string(),
                          .isSelected = isSelected,
                          .isFocused = isSelected && view.focused,
                          .isToday = day == view.dates.Today(),
                          .isOfOtherMonth = !isOfShownMonth,
                          .isSelectable = IsInLimits(view.state, day)};
}

CalendarDescription DescribeCalendar(const CalendarView& view) {
    const MonthGrid grid = GridOf(view.state, view.layout);
    CalendarDescription description;
    description.title = MonthTitle(view, "mmmm");
    description.titlePlace = view.layout.MonthBand();
    if (view.state.monthYearSelStyle == VmMonthSelArrows) {
        constexpr Arrow kFromTheLeft[] = {Arrow::YearBack, Arrow::MonthBack, Arrow::MonthForward,
                                          Arrow::YearForward};
        for (const Arrow arrow : kFromTheLeft) {
            description.arrows.push_back({arrow,
                                          view.layout.arrows[static_cast<std::size_t>(arrow)],
                                          ShownAfter(view.state, MonthsOf(arrow)).has_value()});
        }
    }
    for (int column = 0; view.layout.hasWeekDayRow && column < grid.ColumnCount(); ++column) {
        const Rect cells = grid.ColumnRect(column);
        const Rect row = view.layout.WeekDayRow();
        description.weekDays.push_back({WeekDayName(view, column, "dddd"),
                                        {cells.left, row.top, cells.right + 1, row.bottom}});
    }
    for (int row = 0; row < kGridRows; ++row) {
        for (int column = 0; column < grid.ColumnCount(); ++column) {
            auto cell = DescribeDay(view, grid.DayAt(row, column));
            if (cell) description.days.push_back(*std::move(cell));
        }
    }
    return description;
}

}  // namespace velmora
