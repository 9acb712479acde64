#include "calendar/SelectorInput.h"

#include "platform/Keys.h"

#include <utility>

namespace velmora {
namespace {

/// Years that a key of the year box steps, 0 for any other key.
constexpr int YearsOf(std::int16_t keyCode) noexcept {
    switch (keyCode) {
        case kKeyUp: return 1;
        case kKeyDown: return -1;
        case kKeyPageUp: return 10;
        case kKeyPageDown: return -10;
        default: return 0;
    }
}

}  // namespace

void SelectorInput::Post(Action action) {
    m_actions.push_back(std::move(action));
    Wake();
}

void SelectorInput::Wake() {
    if (!std::exchange(m_awake, true)) m_wake();
}

bool SelectorInput::PostYearKey(std::int16_t keyCode, const std::string& text, bool isTyped) {
    if (const int years = YearsOf(keyCode); years != 0) {
        PostYearStep(years, text, isTyped);
    } else if (keyCode == kKeyEnter) {
        Post(&VmCalendar::OnYearText, text);
    } else if (keyCode == kKeyEscape) {
        Post(&VmCalendar::OnYearTextCancel);
    } else {
        return false;
    }
    return true;
}

void SelectorInput::PostYearStep(int years, const std::string& text, bool isTyped) {
    if (isTyped) Post(&VmCalendar::OnYearText, text);
    Post(&VmCalendar::OnYearStep, years);
}

bool SelectorInput::Deliver(VmCalendar& calendar) {
    const Lifetime::Watch alive(m_lifetime);
    m_awake = false;
    while (alive && !m_actions.empty()) {
        const Action action = std::exchange(m_actions.front(), nullptr);
        m_actions.pop_front();
        try {
            action(calendar);
        } catch (...) {
            if (alive && !m_actions.empty()) Wake();
            throw;
        }
    }
    return static_cast<bool>(alive);
}

void SelectorInput::Clear() {
    m_actions.clear();
    m_awake = false;
}

}  // namespace velmora
