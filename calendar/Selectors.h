#pragma once

#include "calendar/CalendarLayout.h"
#include "platform/Windowing.h"
#include "platform/dates/Dates.h"

#include <memory>

namespace velmora {

/// The child controls for changing the shown month and year: the month list `cboMonth`, the year
/// box `txtYear` with its spinner `scrYear`, and the month scroll bar `scrDate`. Holds their
/// values, whether they exist or not; native controls are made when their style is first shown.
/// Setting a value here never counts as the user's own change of it.
class Selectors {
public:
    /// A scroll bar's values; the value is that of the last handled change, which the user's next
    /// one is measured against.
    struct Position {
        int minimum = 0;
        int maximum = 0;
        int value = 0;
    };

    Selectors(Windowing& windowing, const Dates& dates) : m_windowing(windowing), m_dates(dates) {}

    /// The date services speak another language now.
    void FollowLocale();

    /// Makes the native controls of a style where they are missing; their sizes are in the metrics.
    void Prepare(VmMonthYearSelStyleConstants style, LayoutMetrics& metrics);
    /// Shows those of the style at their places and hides the others.
    void Place(VmMonthYearSelStyleConstants style, const CalendarLayout& layout);

    /// List index month - 1.
    void Month(int month);
    int ListIndex() const noexcept { return m_listIndex; }
    bool MonthListDropped() const { return m_monthList && m_monthList->DroppedDown(); }
    WindowHandle MonthListHandle() const;
    /// Ends the native controls, which `Prepare` makes anew with the values of these.
    void DropNative();

    /// Spinner and year box show the year; the spinner runs over negated years.
    void Year(int year);
    void YearRange(int firstYear, int lastYear);
    const Position& YearSpinner() const noexcept { return m_yearSpinner; }

    /// The scroll bar's position on the `MonthIndex` scale.
    void MonthPosition(int monthIndex);
    void MonthPositionRange(int first, int last);
    const Position& DateScroll() const noexcept { return m_dateScroll; }

private:
    void PushMonthNames();
    void PushMonth();
    void PushYear();
    void PushDate();

    Windowing& m_windowing;
    const Dates& m_dates;
    int m_listIndex = -1;
    Position m_yearSpinner;
    Position m_dateScroll;
    std::unique_ptr<ComboBox> m_monthList;
    std::unique_ptr<TextBox> m_yearText;
    std::unique_ptr<ScrollBar> m_yearSpinnerBar;
    std::unique_ptr<ScrollBar> m_dateScrollBar;
};

}  // namespace velmora
