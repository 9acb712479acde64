#pragma once

#include "calendar/VmCalendar.h"
#include "hosts/activex/access/WindowAccess.h"

namespace velmora {

class DropDownForm;
class WinWindowing;

/// A calendar to screen readers: a table named after the month; its parts are the arrow buttons,
/// the week days and the cells, then the windows of the selectors.
class CalendarAccess final : public WindowAccess {
public:
    CalendarAccess(const WinWindowing& window, VmCalendar& calendar)
        : m_window(window), m_calendar(calendar) {}
    /// The calendar of the open drop-down, which never has the focus.
    CalendarAccess(const WinWindowing& window, DropDownForm& form);

private:
    HWND Window() const override;
    std::vector<AccessItem> Items() override;
    void Act(std::size_t item) override;
    void TellNews() override;
    std::size_t ItemOf(DayNumber day);

    const WinWindowing& m_window;
    VmCalendar& m_calendar;
    DropDownForm* const m_form = nullptr;
    CalendarNews m_told;
};

}  // namespace velmora
