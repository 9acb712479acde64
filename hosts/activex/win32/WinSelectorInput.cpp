#include "hosts/activex/win32/WinSelectorInput.h"

#include <utility>

namespace velmora {

void WinSelectorInput::Window(HWND window) {
    m_window = window;
    m_actions.clear();
    m_posted = false;
}

void WinSelectorInput::Post(Action action) {
    m_actions.push_back(std::move(action));
    if (!std::exchange(m_posted, true)) PostMessageW(m_window, kMessage, 0, 0);
}

bool WinSelectorInput::Deliver(VmCalendar& calendar) {
    const Lifetime::Watch alive(m_lifetime);
    m_posted = false;
    while (alive && !m_actions.empty()) {
        const Action action = std::exchange(m_actions.front(), nullptr);
        m_actions.pop_front();
        action(calendar);
    }
    return static_cast<bool>(alive);
}

}  // namespace velmora
