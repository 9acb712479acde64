#include "model/MonthGrid.h"

#include "platform/AutomationError.h"
#include "platform/FloorDiv.h"

#include <algorithm>
#include <limits>

namespace velmora {
namespace {

constexpr std::int32_t Saturated(std::int64_t value) noexcept {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

/// 0..6 for any weekDay and first day.
constexpr int WeekOffset(std::int64_t weekDay, std::int64_t firstDay) noexcept {
    return static_cast<int>(((weekDay - firstDay) % 7 + 7) % 7);
}

constexpr int WeekRows(DayNumber first, DayNumber last, std::int32_t firstDayOfWeek) noexcept {
    const auto week = [&](DayNumber d) { return (std::int64_t{d} - firstDayOfWeek) / 7; };
    return static_cast<int>(week(last) - week(first)) + 1;
}

}  // namespace

std::uint8_t DaysInMonth(std::int16_t month, std::int16_t year) {
    const int years = year - 1900;
    const int months = month - 1;
    if (years < std::numeric_limits<std::int16_t>::min() ||
        months < std::numeric_limits<std::int16_t>::min()) {
        throw AutomationError(ErrorNumber::Overflow);
    }
    const DayNumber first = DayFromCivil(year, month, 1);
    const DayNumber next = AddMonths(first, 1);
    if (first < kFirstDay || next - 1 > kLastDay) throw AutomationError(ErrorNumber::Overflow);
    return static_cast<std::uint8_t>(next - first);
}

int WeekRowsOfMonth(DayNumber day, std::int32_t firstDayOfWeek) noexcept {
    return WeekRows(FirstOfMonth(day), LastOfMonth(day), firstDayOfWeek);
}

bool PtInCellRect(const Rect& cell, float x, float y) noexcept {
    const double px = x;
    const double py = y;
    return cell.left <= px && px <= cell.right && cell.top <= py && py <= cell.bottom;
}

MonthGrid::MonthGrid(const GridShape& shape) noexcept
    : m_shape(shape),
      m_first(FirstOfMonth(shape.shownDate)),
      m_last(LastOfMonth(shape.shownDate)),
      m_firstColumn(ColumnOf(m_first)),
      m_firstRowOffset((kGridRows - WeekRows(m_first, m_last, shape.firstDayOfWeek)) / 2) {
    // A month that begins early in the week leaves a full week of the month before above it.
    const int secondColumn = (m_firstColumn + 1) % 7;
    if (m_firstRowOffset == 0 && secondColumn != 0 && secondColumn < (ColumnCount() + 1) / 2) {
        m_firstRowOffset = 1;
    }
}

int MonthGrid::ColumnOf(DayNumber day) const noexcept {
    return WeekOffset(WeekDayOf(day), m_shape.gridFirstDay);
}

int MonthGrid::RowOf(DayNumber day) const noexcept {
    const std::int64_t fromFirstRow = std::int64_t{day} - m_first + m_firstColumn;
    return static_cast<int>(FloorDiv(fromFirstRow, 7)) + m_firstRowOffset;  // any day / 7 fits
}

/// As distances from the side at which the first column stands.
Rect MonthGrid::ColumnFromStart(int column) const noexcept {
    const int spare = (std::max(m_shape.clientWidth, 2) - 2) % ColumnCount();
    const std::int64_t width = m_shape.cellWidth;
    return {Saturated(width * column + 1 + std::min(column, spare)), 0,
            Saturated(width * (column + 1) + std::min(column + 1, spare)), 0};
}

Rect MonthGrid::ColumnRect(int column) const noexcept {
    const Rect from = ColumnFromStart(column);
    if (!m_shape.rightToLeft) return from;
    const std::int64_t last = std::int64_t{m_shape.clientWidth} - 1;
    return {Saturated(last - from.right), 0, Saturated(last - from.left), 0};
}

std::optional<Rect> MonthGrid::DayCellRect(DayNumber day) const noexcept {
    if (!m_shape.showWeekend && IsWeekend(day)) return std::nullopt;
    const int row = RowOf(day);
    if (row < 0 || row >= kGridRows) return std::nullopt;
    return CellRect(row, ColumnOf(day));
}

Rect MonthGrid::CellRect(int row, int column) const noexcept {
    const Rect columns = ColumnRect(column);
    const Rect rows = RowRect(row);
    return {columns.left, rows.top, columns.right, rows.bottom};
}

Rect MonthGrid::RowRect(int row) const noexcept {
    const std::int64_t height = m_shape.rowHeight;
    return {0, Saturated(height * row + m_shape.gridTop + 1), 0,
            Saturated(height * (row + 1) + m_shape.gridTop)};
}

/// The first columns may be wider by a pixel: the estimate is never too low.
std::optional<DayNumber> MonthGrid::DateFromPoint(float x, float y) const noexcept {
    const double height = m_shape.rowHeight;
    const double width = std::max(m_shape.cellWidth, 1);
    const double rowAt = (double{y} - m_shape.gridTop - 1) / height;
    const double across = m_shape.rightToLeft ? m_shape.clientWidth - 1.0 - x : x;
    const double columnAt = (across - 1) / width;
    if (!(height > 0 && 0 <= rowAt && rowAt < kGridRows && 0 <= columnAt)) return std::nullopt;
    const int row = static_cast<int>(rowAt);
    int column = static_cast<int>(std::min<double>(columnAt, ColumnCount()));
    Rect cell = ColumnFromStart(column);
    while (column > 0 && across < cell.left) cell = ColumnFromStart(--column);
    const Rect rows = RowRect(row);
    cell.top = rows.top;
    cell.bottom = rows.bottom;
    if (column >= ColumnCount() || !PtInCellRect(cell, static_cast<float>(across), y)) {
        return std::nullopt;
    }
    return DayAt(row, column);
}

}  // namespace velmora
