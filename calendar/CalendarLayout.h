#pragma once

#include "calendar/CalendarState.h"
#include "model/MonthGrid.h"
#include "platform/Values.h"

#include <array>

namespace velmora {

/// The four arrow buttons, in this order everywhere.
enum class Arrow { YearBack, YearForward, MonthBack, MonthForward };
inline constexpr int kArrowCount = 4;

/// Months that it turns.
constexpr int MonthsOf(Arrow arrow) noexcept {
    constexpr int kMonths[kArrowCount] = {-12, 12, -1, 1};
    return kMonths[static_cast<int>(arrow)];
}

inline constexpr int kTextInsetX = 2;  // pixels between a cell's edge and its texts
inline constexpr int kTextInsetY = 1;

/// What the layout depends on besides the state.
struct LayoutMetrics {
    Size client;
    int captionWidth = 0;  // of the widest month caption in the month font; arrows style only
    Size monthList;        // own sizes of the child controls; those of the current style only
    Size yearText;
    Size yearSpinner;
    Size dateScroll;
    bool rightToLeft = false;

    friend bool operator==(const LayoutMetrics&, const LayoutMetrics&) = default;
};

/// Where everything of a calendar is, in pixels of its client area: a one-pixel frame, the month
/// band, the row of week-day captions when there is one, and six rows of cells. From right to left
/// all of it is mirrored: the places here, those of the grid, and the sides that alignments name.
struct CalendarLayout {
    Size client;
    bool rightToLeft = false;
    int columnCount = 7;
    int cellWidth = 0;
    int rowHeight = 0;
    int monthBandHeight = 0;  // from y = 0; the line at this y closes the band
    bool hasWeekDayRow = false;
    int gridTop = 0;                         // the first row of cells begins below this line
    Rect monthCaption;                       // right and bottom exclusive, as of all that follow
    std::array<Rect, kArrowCount> arrows{};  // arrows style only
    Rect monthList;                          // combo style only
    Rect yearText;
    Rect yearSpinner;
    Rect dateScroll;  // scroll-bar style only

    Rect Client() const noexcept { return {0, 0, client.width, client.height}; }
    /// The band with its closing line, inside the frame. Right and bottom exclusive.
    Rect MonthBand() const noexcept;
    /// The captions below that line, down to and including the line at `gridTop`.
    Rect WeekDayRow() const noexcept;

    friend bool operator==(const CalendarLayout&, const CalendarLayout&) = default;
};

/// Total: any state and any size give a layout, whose parts may be empty or inverted.
CalendarLayout LayoutCalendar(const CalendarState& state, const LayoutMetrics& given) noexcept;

/// How large the texts are that a calendar shows.
struct TextExtents {
    Size cell;  // what a day shows at least
    Size weekDay;
    Size title;
};

/// The smallest client area whose layout cuts none of the texts and no selector.
Size ClientFor(const CalendarState& state, const LayoutMetrics& given,
               const TextExtents& texts) noexcept;

/// The grid of the shown month in that layout.
GridShape GridShapeOf(const CalendarState& state, const CalendarLayout& layout) noexcept;
MonthGrid GridOf(const CalendarState& state, const CalendarLayout& layout) noexcept;

}  // namespace velmora
