#include "hosts/activex/access/BoxAccess.h"

#include "dropdown/VmCalDropDown.h"
#include "hosts/activex/win32/WinFormWindow.h"

#include <utility>

namespace velmora {

HWND BoxAccess::Window() const { return m_window.Window(); }

std::vector<AccessItem> BoxAccess::Items() {
    const bool open = m_box.DropDownState();
    const long state = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_HASPOPUP |
                       (open ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED) |
                       (m_window.TakesInput() ? 0 : STATE_SYSTEM_UNAVAILABLE);
    const Size size = m_window.ClientSize();
    return {{.role = ROLE_SYSTEM_COMBOBOX,
             .state = state,
             .name = NameAnd({}),
             .value = m_box.Text(),
             .action = open ? "Close" : "Open",
             .place = {0, 0, size.width, size.height}}};
}

void BoxAccess::Act(std::size_t) {
    if (m_window.TakesInput()) m_box.DropDownState(!m_box.DropDownState());
}

void BoxAccess::TellNews() {
    const std::string text = std::exchange(m_toldText, m_box.Text());
    const bool open = std::exchange(m_toldOpen, m_box.DropDownState());
    if (text != m_toldText) Tell(EVENT_OBJECT_VALUECHANGE, CHILDID_SELF);
    if (open != m_toldOpen) Tell(EVENT_OBJECT_STATECHANGE, CHILDID_SELF);
}

std::vector<HWND> BoxAccess::Windows() const {
    const bool isOpen = m_box.DropDownState() && m_form.Form().GetOwner() == &m_box;
    return isOpen && IsWindowVisible(m_form.Window()) ? std::vector{m_form.Window()}
                                                      : std::vector<HWND>();
}

}  // namespace velmora
