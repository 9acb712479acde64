#pragma once

#include "calendar/VmCalendar.h"

#include <deque>
#include <functional>

namespace velmora {

class VmCalendarWidget;

/// What the user does with the child controls, kept until none of their own handlers runs any more
/// and then told to the calendar, in the same order. So a slot may delete the calendar's widget,
/// and its children with it, whatever the user has done.
class SelectorInput {
public:
    using Action = std::function<void(VmCalendar&)>;

    /// For the calendar of this widget, which outlives it. Delivers from the event loop.
    explicit SelectorInput(VmCalendarWidget& widget) : m_widget(widget) {}
    SelectorInput(const SelectorInput&) = delete;
    SelectorInput& operator=(const SelectorInput&) = delete;

    void Post(Action action);
    /// Tells what has been posted, now; from outside of any child's handler. False when the
    /// calendar is gone.
    bool Deliver();

private:
    VmCalendarWidget& m_widget;
    std::deque<Action> m_actions;
    bool m_posted = false;
    Lifetime m_lifetime;
};

}  // namespace velmora
