#pragma once

#include "calendar/VmCalendar.h"

#include <windows.h>

#include <memory>

namespace velmora {

/// Tells a calendar of the clock while its window is to be seen: at midnight, when clock or time
/// zone have been set, and when the machine has slept. Those of a thread share one timer.
class WinClock {
public:
    /// The calendar, which belongs to this thread, outlives this object.
    WinClock(VmCalendar& calendar, HWND window);
    WinClock(const WinClock&) = delete;
    WinClock& operator=(const WinClock&) = delete;
    ~WinClock();

    /// The window has been painted, as it is whenever it has come to be seen: nothing else tells of
    /// the windows around it.
    void OnPaint();

private:
    class Shared;

    VmCalendar& m_calendar;
    const HWND m_window;
    std::shared_ptr<Shared> m_shared;
    bool m_runs = false;
};

}  // namespace velmora
