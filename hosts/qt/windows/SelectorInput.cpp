#include "hosts/qt/windows/SelectorInput.h"

#include "VelmoraCalendar/VmCalendarWidget.h"

#include <utility>

namespace velmora {

void SelectorInput::Post(Action action) {
    m_actions.push_back(std::move(action));
    if (std::exchange(m_posted, true)) return;
    QMetaObject::invokeMethod(
        &m_widget, [this] { Deliver(); }, Qt::QueuedConnection);
}

bool SelectorInput::Deliver() {
    const Lifetime::Watch alive(m_lifetime);
    m_posted = false;
    while (alive && !m_actions.empty()) {
        const Action action = std::exchange(m_actions.front(), nullptr);
        m_actions.pop_front();
        action(m_widget.calendar());
    }
    return static_cast<bool>(alive);
}

}  // namespace velmora
