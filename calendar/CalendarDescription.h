#pragma once

#include "calendar/CalendarPainter.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// One day as the grid shows it.
struct DayDescription {
    DayNumber day = 0;
    int row = 0;          // 0..5
    int column = 0;       // 0..6, without the weekend 0..4
    Rect place;           // pixels of the client area, right and bottom exclusive
    std::string name;     // the date in the locale's long form
    std::string caption;  // the day's own
    bool isSelected = false;
    bool isFocused = false;  // selected, and the calendar has the keyboard focus
    bool isToday = false;
    bool isOfOtherMonth = false;
    bool isSelectable = true;  // within the limits
};

struct WeekDayDescription {
    std::string name;  // in full, however the column's caption is shown
    Rect place;
};

struct ArrowDescription {
    Arrow arrow = Arrow::YearBack;
    Rect place;
    bool leads = true;  // to a month within the limits
};

/// What a calendar shows, for those who do not see it: a host translates it to what its platform
/// tells screen readers. Made when it is asked for, and kept by nobody.
struct CalendarDescription {
    std::string title;  // "March 2026"
    Rect titlePlace;
    std::vector<ArrowDescription> arrows;      // in the arrows style
    std::vector<WeekDayDescription> weekDays;  // by columns; none where there is no row of them
    std::vector<DayDescription> days;          // row by row, all cells
};

/// What readers hear of when it has changed.
struct CalendarNews {
    int month = 0;  // `MonthIndex` of the shown one
    DayNumber selected = 0;
    bool focused = false;  // the calendar itself has the keyboard focus
    friend bool operator==(const CalendarNews&, const CalendarNews&) = default;
};

CalendarDescription DescribeCalendar(const CalendarView& view);
/// Nothing when the day has no cell.
std::optional<DayDescription> DescribeDay(const CalendarView& view, DayNumber day);

/// What an arrow button does, in English.
const char* NameOf(Arrow arrow) noexcept;

// The words that are painted too.

/// The month as "mmmm" or "mmm", and the year.
std::string MonthTitle(const CalendarView& view, std::string_view month);
/// The week day of a column, Sunday is 0.
int WeekDayOfColumn(const CalendarView& view, int column) noexcept;
/// The same as "dddd" or "ddd".
std::string WeekDayName(const CalendarView& view, int column, std::string_view form);

}  // namespace velmora
