#pragma once

#include "calendar/VmCalendar.h"

#include <memory>

namespace velmora {

/// Tells a calendar of the clock for as long as it lives: at midnight, when clock or time zone have
/// been set, and when the machine has slept. Those of a thread share one timer.
class WinClock {
public:
    /// The calendar, which belongs to this thread, outlives this object.
    explicit WinClock(VmCalendar& calendar);
    WinClock(const WinClock&) = delete;
    WinClock& operator=(const WinClock&) = delete;
    ~WinClock();

private:
    class Shared;

    VmCalendar& m_calendar;
    std::shared_ptr<Shared> m_shared;
};

}  // namespace velmora
