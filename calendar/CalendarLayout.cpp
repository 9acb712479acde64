#include "calendar/CalendarLayout.h"

#include "platform/FloorDiv.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int kFrame = 2;        // the outer frame, both sides together
constexpr int kLargest = 32767;  // of a window's width and height
constexpr int kLeastArrow = 15;  // both sides of a button
constexpr int kSelectorGap = 10;

bool HasWeekDayRow(const CalendarState& state) noexcept {
    return state.weekDayDisplay >= VmWeekDayFullName && state.weekDayDisplay <= VmWeekDayLetter;
}

/// Shares `height` among `rows`; the band takes one share and the remainder, so that the week rows
/// are all alike and end at the bottom frame.
void ShareRows(CalendarLayout& layout, int height, int rows) noexcept {
    layout.rowHeight = FloorDiv(height, rows);
    layout.monthBandHeight = height % rows + layout.rowHeight;
}

void LayoutRows(CalendarLayout& layout, const CalendarState& state,
                const LayoutMetrics& metrics) noexcept {
    const int rows = layout.hasWeekDayRow ? 8 : 7;
    const int height = layout.client.height;
    if (state.monthYearSelStyle == VmMonthSelScrollbar) {
        ShareRows(layout, height - kFrame - metrics.dateScroll.height, rows);
        return;
    }
    ShareRows(layout, height - kFrame, rows);
    const int list = metrics.monthList.height;
    if (state.monthYearSelStyle == VmMonthSelCombo && list + kFrame > layout.rowHeight) {
        // The band is made for the list; the other rows share what is left.
        layout.monthBandHeight = list + kFrame + (height - list - 4) % (rows - 1);
        layout.rowHeight = FloorDiv(height - layout.monthBandHeight, rows - 1);
    }
}

void LayoutArrows(CalendarLayout& layout, int captionWidth) noexcept {
    const int quarter = FloorDiv(layout.client.width - 8 - captionWidth, 4);
    const int size = std::max(std::min({layout.monthBandHeight - 2, quarter, 40}), kLeastArrow);
    const int top = 1 + FloorDiv(layout.monthBandHeight - size, 2);
    const auto button = [&](int left) { return Rect{left, top, left + size, top + size}; };
    const int rightEdge = layout.client.width - 3;
    layout.arrows[static_cast<int>(Arrow::YearBack)] = button(2);
    layout.arrows[static_cast<int>(Arrow::MonthBack)] = button(2 + size + 1);
    layout.arrows[static_cast<int>(Arrow::YearForward)] = button(rightEdge - size);
    layout.arrows[static_cast<int>(Arrow::MonthForward)] = button(rightEdge - size - 1 - size);
}

/// From the end of the line: year spinner, year box beside it, month list.
void LayoutCombo(CalendarLayout& layout, const LayoutMetrics& metrics) noexcept {
    const int top = (layout.monthBandHeight - metrics.yearText.height) / 2 + 1;
    const int spinner = layout.client.width - 1 - kSelectorGap - metrics.yearSpinner.width;
    const int year = spinner - metrics.yearText.width;
    layout.yearSpinner = RectAt(spinner, top, metrics.yearSpinner);
    layout.yearText = RectAt(year, top, metrics.yearText);
    layout.monthList =
        RectAt(year - kSelectorGap - metrics.monthList.width, top, metrics.monthList);
    layout.monthCaption.right = layout.monthList.left - 2;
}

void Mirror(CalendarLayout& layout) noexcept {
    const Rect client = layout.Client();
    layout.rightToLeft = true;
    for (Rect& arrow : layout.arrows) arrow = Mirrored(arrow, client);
    for (Rect* const place :
         {&layout.monthCaption, &layout.monthList, &layout.yearText, &layout.yearSpinner}) {
        *place = Mirrored(*place, client);
    }
}

LayoutMetrics Bounded(LayoutMetrics metrics) noexcept {
    const auto bound = [](Size& size) {
        size.width = std::clamp(size.width, 0, kLargest);
        size.height = std::clamp(size.height, 0, kLargest);
    };
    bound(metrics.client);
    bound(metrics.monthList);
    bound(metrics.yearText);
    bound(metrics.yearSpinner);
    bound(metrics.dateScroll);
    metrics.captionWidth = std::clamp(metrics.captionWidth, 0, kLargest);
    return metrics;
}

}  // namespace

Rect CalendarLayout::MonthBand() const noexcept {
    return {1, 1, client.width - 1, monthBandHeight + 1};
}

Rect CalendarLayout::WeekDayRow() const noexcept {
    return {1, monthBandHeight + 1, client.width - 1, gridTop + 1};
}

CalendarLayout LayoutCalendar(const CalendarState& state, const LayoutMetrics& given) noexcept {
    const LayoutMetrics metrics = Bounded(given);
    CalendarLayout layout;
    layout.client = metrics.client;
    layout.columnCount = state.showWeekend ? 7 : 5;
    layout.cellWidth = FloorDiv(metrics.client.width - kFrame, layout.columnCount);
    layout.hasWeekDayRow = HasWeekDayRow(state);
    LayoutRows(layout, state, metrics);
    layout.gridTop = layout.monthBandHeight + (layout.hasWeekDayRow ? layout.rowHeight : 0);

    layout.monthCaption = {2, 2, metrics.client.width - 3, layout.monthBandHeight - 2};
    switch (state.monthYearSelStyle) {
        case VmMonthSelArrows: LayoutArrows(layout, metrics.captionWidth); break;
        case VmMonthSelCombo: LayoutCombo(layout, metrics); break;
        case VmMonthSelScrollbar:
            layout.dateScroll = {1, metrics.client.height - metrics.dateScroll.height - 1,
                                 metrics.client.width - 1, metrics.client.height - 1};
            break;
        case VmMonthSelNone: break;
    }
    if (metrics.rightToLeft) Mirror(layout);
    return layout;
}

Size ClientFor(const CalendarState& state, const LayoutMetrics& given,
               const TextExtents& texts) noexcept {
    const LayoutMetrics metrics = Bounded(given);
    const Size weekDay = HasWeekDayRow(state) ? texts.weekDay : Size{};
    const int columns = state.showWeekend ? 7 : 5;
    const int weekRows = HasWeekDayRow(state) ? 7 : 6;
    const int text = std::max({texts.cell.height, weekDay.height, texts.title.height});
    const int row = text + 2 * kTextInsetY + kFrame;  // a cell's own edges are as its frame
    const int column = std::max(texts.cell.width, weekDay.width) + 2 * kTextInsetX + kFrame;
    int band = row;
    int least = texts.title.width + 5;
    int below = 0;
    switch (state.monthYearSelStyle) {
        case VmMonthSelArrows:
            least = std::max(texts.title.width, metrics.captionWidth) + 8 + 4 * kLeastArrow;
            break;
        case VmMonthSelCombo:
            band = std::max(row, metrics.monthList.height + kFrame);
            least = 4 + 2 * kSelectorGap + metrics.monthList.width + metrics.yearText.width +
                    metrics.yearSpinner.width;
            break;
        case VmMonthSelScrollbar: below = metrics.dateScroll.height; break;
        case VmMonthSelNone: break;
    }
    return {std::max(columns * column + kFrame, least), band + weekRows * row + kFrame + below};
}

GridShape GridShapeOf(const CalendarState& state, const CalendarLayout& layout) noexcept {
    return {.shownDate = DayOf(state.shownDate),
            .firstDayOfWeek = state.firstDayOfWeek,
            .gridFirstDay = state.GridFirstDay(),
            .showWeekend = state.showWeekend,
            .gridTop = layout.gridTop,
            .cellWidth = layout.cellWidth,
            .rowHeight = layout.rowHeight,
            .clientWidth = layout.client.width,
            .rightToLeft = layout.rightToLeft};
}

MonthGrid GridOf(const CalendarState& state, const CalendarLayout& layout) noexcept {
    return MonthGrid(GridShapeOf(state, layout));
}

}  // namespace velmora
