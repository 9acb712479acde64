#pragma once

#include "platform/Values.h"
#include "platform/dates/Date.h"

#include <cstdint>
#include <optional>

namespace velmora {

inline constexpr int kGridRows = 6;

/// Number of days of a month. Error 6 when `year` - 1900 or `month` - 1 leaves 16 bits, or the
/// month lies outside the years 100..9999.
std::uint8_t DaysInMonth(std::int16_t month, std::int16_t year);

/// What a grid is made of.
struct GridShape {
    DayNumber shownDate = 0;          // a day of the shown month
    std::int32_t firstDayOfWeek = 1;  // as the user set it
    std::int32_t gridFirstDay = 1;    // of the first column: Monday (2) without the weekend
    bool showWeekend = true;
    std::int32_t gridTop = 0;  // y of the line above the first row
    std::int32_t cellWidth = 0;
    std::int32_t rowHeight = 0;
    std::int32_t clientWidth = 0;
    bool rightToLeft = false;  // the first column is the rightmost one

    friend bool operator==(const GridShape&, const GridShape&) = default;
};

/// The grid of one shown month: which date is in which cell, and where. Six rows, seven columns
/// (five without the weekend). All of it is total: any stored first day of the week, any date and
/// any size give an answer.
///
/// Cell rectangles are pixels of the client area with all four bounds inside the cell. Cells tile
/// the width: the first (client width - 2) mod columns of them are one pixel wider. From right to
/// left the columns are mirrored.
class MonthGrid {
public:
    explicit MonthGrid(const GridShape& shape) noexcept;

    const GridShape& Shape() const noexcept { return m_shape; }
    int ColumnCount() const noexcept { return m_shape.showWeekend ? 7 : 5; }
    /// Rows left free above the first week of the shown month, 0 or 1.
    int FirstRowOffset() const noexcept { return m_firstRowOffset; }
    /// 0..6; without the weekend Saturday and Sunday are 5 and 6, which are not shown.
    int ColumnOf(DayNumber day) const noexcept;
    /// 0..5; any other number for a day that has no cell.
    int RowOf(DayNumber day) const noexcept;
    bool IsShownMonth(DayNumber day) const noexcept { return m_first <= day && day <= m_last; }

    /// Nothing when the date has no cell.
    std::optional<Rect> DayCellRect(DayNumber day) const noexcept;
    /// Left and right of the cells of a column, which are counted from the week's first day; top
    /// and bottom are 0.
    Rect ColumnRect(int column) const noexcept;
    /// Top and bottom of a row's cells; left and right are 0.
    Rect RowRect(int row) const noexcept;
    /// The date whose cell holds the point, or nothing.
    std::optional<DayNumber> DateFromPoint(float x, float y) const noexcept;

    /// What is in the cell of a row 0..5 and a column, which is counted from the week's first day.
    DayNumber DayAt(int row, int column) const noexcept {
        return m_first - m_firstColumn + 7 * (row - m_firstRowOffset) + column;
    }
    /// The place of that cell.
    Rect CellRect(int row, int column) const noexcept;

private:
    Rect ColumnFromStart(int column) const noexcept;

    GridShape m_shape;
    DayNumber m_first;  // of the shown month
    DayNumber m_last;
    int m_firstColumn;
    int m_firstRowOffset;
};

/// Week rows that the month of `day` spans, 4..6, in weeks that begin on `firstDayOfWeek`.
/// Weeks are counted away from day 0 on both sides of it: before 1900 they begin a day later.
int WeekRowsOfMonth(DayNumber day, std::int32_t firstDayOfWeek) noexcept;

/// Edges included; for the rectangles of cells.
bool PtInCellRect(const Rect& cell, float x, float y) noexcept;

}  // namespace velmora
