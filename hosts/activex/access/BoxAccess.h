#pragma once

#include "hosts/activex/access/WindowAccess.h"

namespace velmora {

class VmCalDropDown;
class WinFormWindow;
class WinWindowing;

/// A date box to screen readers: a combo box with its text, which its action opens and closes; the
/// open calendar is its child.
class BoxAccess final : public WindowAccess {
public:
    BoxAccess(const WinWindowing& window, VmCalDropDown& box, WinFormWindow& form)
        : m_window(window), m_box(box), m_form(form) {}

private:
    HWND Window() const override;
    std::vector<AccessItem> Items() override;
    void Act(std::size_t item) override;
    void TellNews() override;
    std::vector<HWND> Windows() const override;

    const WinWindowing& m_window;
    VmCalDropDown& m_box;
    WinFormWindow& m_form;
    std::string m_toldText;
    bool m_toldOpen = false;
};

}  // namespace velmora
