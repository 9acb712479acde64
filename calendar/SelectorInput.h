#pragma once

#include "calendar/VmCalendar.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>

namespace velmora {

/// What the user does with the child controls, kept until none of their own procedures runs any
/// more and then told to the calendar, in the same order. So a handler may destroy the calendar and
/// its children, whatever the user has done.
class SelectorInput {
public:
    using Action = std::function<void(VmCalendar&)>;

    /// `wake` is called when something is posted and nothing waits: the host calls `Deliver` soon,
    /// from outside of any child's procedure.
    explicit SelectorInput(std::function<void()> wake) : m_wake(std::move(wake)) {}
    SelectorInput(const SelectorInput&) = delete;
    SelectorInput& operator=(const SelectorInput&) = delete;

    void Post(Action action);
    /// A member of the calendar, with its arguments.
    template <class... Parameters, class... Arguments>
    void Post(void (VmCalendar::*member)(Parameters...), Arguments... arguments) {
        Post([=](VmCalendar& calendar) { (calendar.*member)(arguments...); });
    }
    /// A key of the year box with its text, and whether that has been typed and not yet told. Up
    /// and Down step the year, the page keys by ten; Enter commits the text, Escape gives it up.
    /// Returns whether it was one of these: what is typed has been told then.
    bool PostYearKey(std::int16_t keyCode, const std::string& text, bool isTyped);
    /// That many years on from the one that is typed or else shown.
    void PostYearStep(int years, const std::string& text, bool isTyped);

    /// Tells what has been posted, now; from outside of any child's procedure, and before any other
    /// key or press. False when this object, and the calendar with it, is gone. When a handler
    /// throws, the rest waits for the next time.
    bool Deliver(VmCalendar& calendar);
    /// Forgets what has been posted.
    void Clear();

private:
    void Wake();

    const std::function<void()> m_wake;
    std::deque<Action> m_actions;
    bool m_awake = false;
    Lifetime m_lifetime;
};

}  // namespace velmora
