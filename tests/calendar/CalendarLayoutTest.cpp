#include "calendar/CalendarLayout.h"

#include <gtest/gtest.h>

#include <climits>
#include <ostream>

namespace velmora {

std::ostream& operator<<(std::ostream& out, const Rect& rect) {
    return out << rect.left << ',' << rect.top << ',' << rect.right << ',' << rect.bottom;
}

namespace {

LayoutMetrics MetricsOf(int width, int height) {
    LayoutMetrics metrics;
    metrics.client = {width, height};
    metrics.captionWidth = 84;
    metrics.monthList = {90, 21};
    metrics.yearText = {40, 20};
    metrics.yearSpinner = {17, 20};
    metrics.dateScroll = {100, 17};
    return metrics;
}

struct Case {
    VmMonthYearSelStyleConstants style;
    VmWeekDayDisplayConstants weekDays;
    bool showWeekend;
    int width, height;
    int cellWidth, rowHeight, band, gridTop;
};

TEST(CalendarLayout, SharesTheHeightAmongItsRows) {
    for (const Case& c : std::initializer_list<Case>{
             {VmMonthSelNone, VmWeekDayAbbrName, true, 250, 200, 35, 24, 30, 54},
             {VmMonthSelNone, VmWeekDayAbbrName, false, 250, 200, 49, 24, 30, 54},
             {VmMonthSelNone, VmWeekDayAbbrName, true, 250, 202, 35, 25, 25, 50},  // exact multiple
             {VmMonthSelArrows, VmWeekdayNone, true, 250, 200, 35, 28, 30, 30},
             {VmMonthSelNone, VmWeekDayDisplayConstants(7), true, 250, 200, 35, 28, 30, 30},
             {VmMonthSelCombo, VmWeekDayAbbrName, true, 250, 202, 35, 25, 25, 50},
             {VmMonthSelCombo, VmWeekDayAbbrName, true, 250, 150, 35, 17, 29, 46},  // a tall list
             {VmMonthSelScrollbar, VmWeekDayLetter, true, 250, 200, 35, 22, 27, 49},
         }) {
        CalendarState state;
        state.monthYearSelStyle = c.style;
        state.weekDayDisplay = c.weekDays;
        state.showWeekend = c.showWeekend;
        const CalendarLayout layout = LayoutCalendar(state, MetricsOf(c.width, c.height));
        EXPECT_EQ(layout.cellWidth, c.cellWidth);
        EXPECT_EQ(layout.rowHeight, c.rowHeight);
        EXPECT_EQ(layout.monthBandHeight, c.band);
        EXPECT_EQ(layout.gridTop, c.gridTop);
        const int strip = c.style == VmMonthSelScrollbar ? 17 : 0;
        EXPECT_EQ(layout.gridTop + 6 * layout.rowHeight, c.height - 2 - strip);
    }
}

TEST(CalendarLayout, ArrowsAreSquareAndBounded) {
    struct Arrows {
        int width, height;
        Rect yearBack, yearForward, monthBack, monthForward;
    };
    for (const Arrows& c : std::initializer_list<Arrows>{
             {250, 200, {2, 2, 30, 30}, {219, 2, 247, 30}, {31, 2, 59, 30}, {190, 2, 218, 30}},
             {1600,
              1200,
              {2, 58, 42, 98},
              {1557, 58, 1597, 98},
              {43, 58, 83, 98},
              {1516, 58, 1556, 98}},
             {60, 40, {2, -2, 17, 13}, {42, -2, 57, 13}, {18, -2, 33, 13}, {26, -2, 41, 13}},
         }) {
        CalendarState state;
        state.monthYearSelStyle = VmMonthSelArrows;
        const auto arrows = LayoutCalendar(state, MetricsOf(c.width, c.height)).arrows;
        EXPECT_EQ(arrows[static_cast<int>(Arrow::YearBack)], c.yearBack) << c.width;
        EXPECT_EQ(arrows[static_cast<int>(Arrow::YearForward)], c.yearForward) << c.width;
        EXPECT_EQ(arrows[static_cast<int>(Arrow::MonthBack)], c.monthBack) << c.width;
        EXPECT_EQ(arrows[static_cast<int>(Arrow::MonthForward)], c.monthForward) << c.width;
    }
}

TEST(CalendarLayout, SelectorsSitInTheBandAndAtTheBottom) {
    CalendarState state;
    state.monthYearSelStyle = VmMonthSelCombo;
    const CalendarLayout combo = LayoutCalendar(state, MetricsOf(300, 202));
    EXPECT_EQ(combo.yearSpinner, (Rect{272, 3, 289, 23}));
    EXPECT_EQ(combo.yearText, (Rect{232, 3, 272, 23}));
    EXPECT_EQ(combo.monthList, (Rect{132, 3, 222, 24}));
    state.monthYearSelStyle = VmMonthSelScrollbar;
    EXPECT_EQ(LayoutCalendar(state, MetricsOf(300, 202)).dateScroll, (Rect{1, 184, 299, 201}));
}

TEST(CalendarLayout, IsTotalOnAnySizeAndStyle) {
    for (const int style : {-1, 0, 1, 2, 3, 4, INT_MAX}) {
        for (const int size : {INT_MIN, -1, 0, 1, 2, 7, 32767, INT_MAX}) {
            CalendarState state;
            state.monthYearSelStyle = static_cast<VmMonthYearSelStyleConstants>(style);
            LayoutMetrics metrics = MetricsOf(size, size);
            metrics.captionWidth = size;
            metrics.monthList = metrics.dateScroll = {size, size};
            const CalendarLayout layout = LayoutCalendar(state, metrics);
            EXPECT_GE(layout.client.width, 0);
            EXPECT_LE(layout.cellWidth, 32767);
        }
    }
}

}  // namespace
}  // namespace velmora
