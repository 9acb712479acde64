#pragma once

#include "apps/vmhost/Automation.h"
#include "hosts/activex/com/ComObject.h"

#include <ocidl.h>

#include <memory>
#include <string>
#include <vector>

namespace velmora::vmhost {

class PageSite;

/// A window with the property pages of a control, OK, Cancel and Apply.
class PageFrame {
public:
    /// Every page that the control names. Throws `HostError`.
    PageFrame(HWND owner, IUnknown* control, const std::string& title);
    ~PageFrame();
    PageFrame(const PageFrame&) = delete;
    PageFrame& operator=(const PageFrame&) = delete;

    /// Serves messages until the frame is closed; the owner is disabled meanwhile.
    void RunMessages();
    void ShowPage(std::size_t index);
    /// Applies what has changed. The first page that refuses stops it and its error comes back.
    HRESULT Apply();
    /// IDOK, IDCANCEL or `kApply`, as if pressed; a refused value is told to the user.
    void Press(int button);

    static constexpr int kApply = 0x3021;
    bool IsOpen() const { return m_window != nullptr; }
    bool CanApply() const;
    HWND Window() const { return m_window; }
    std::size_t PageCount() const { return m_pages.size(); }
    IPropertyPage* Page(std::size_t index) const { return m_pages[index].page.Get(); }
    bool PreTranslate(MSG& message);

    // What the pages' sites report.

    void StatusChanged();

private:
    struct Loaded {
        ComPtr<IPropertyPage> page;
        ComPtr<PageSite> site;
        std::wstring title;
        SIZE size = {};
        bool active = false;
    };

    void Load(const CLSID& classId, IUnknown* control);
    void BuildWindow(HWND owner, const std::string& title);
    void ShowError(HRESULT code) const;
    void Close();
    RECT PageArea() const;
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT OnMessage(UINT message, WPARAM w, LPARAM l);

    HWND m_owner;
    HWND m_window = nullptr;
    HWND m_tabs = nullptr;
    std::vector<Loaded> m_pages;
    std::size_t m_shown = static_cast<std::size_t>(-1);
};

}  // namespace velmora::vmhost
