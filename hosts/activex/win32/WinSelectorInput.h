#pragma once

#include "calendar/VmCalendar.h"

#include <windows.h>

#include <deque>
#include <functional>

namespace velmora {

/// What the user does with the child controls, kept until none of their own procedures runs any
/// more and then told to the calendar, in the same order. So a handler may destroy the calendar's
/// window, and the children with it, whatever the user has done.
class WinSelectorInput {
public:
    using Action = std::function<void(VmCalendar&)>;
    /// Posted to the window when there is something to tell.
    static constexpr UINT kMessage = WM_USER + 0x700;

    WinSelectorInput() = default;
    WinSelectorInput(const WinSelectorInput&) = delete;
    WinSelectorInput& operator=(const WinSelectorInput&) = delete;

    /// The window that the children are in; null forgets what has been posted.
    void Window(HWND window);
    void Post(Action action);
    /// Tells what has been posted, now; from outside of any child's procedure. False when the
    /// calendar or this object is gone.
    bool Deliver(VmCalendar& calendar);

private:
    HWND m_window = nullptr;
    std::deque<Action> m_actions;
    bool m_posted = false;
    Lifetime m_lifetime;
};

}  // namespace velmora
