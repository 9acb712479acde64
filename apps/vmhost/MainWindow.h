#pragma once

#include "apps/vmhost/Form.h"
#include "apps/vmhost/PropertyPanel.h"

#include <memory>
#include <optional>
#include <string>

namespace velmora::vmhost {

/// The form host's window: a form with both controls, the events as they come, and the properties
/// of the control that was used last.
class MainWindow {
public:
    MainWindow();
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// The three tell the user what went wrong; false then.
    bool AddControls();
    bool Save(const std::wstring& path);
    bool Load(const std::wstring& path);
    /// Writes the window's picture as a bitmap file.
    bool Shoot(const std::wstring& path) const;
    /// Serves messages until the window is closed, or for so long.
    void RunMessages(std::optional<DWORD> milliseconds);

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT OnMessage(UINT message, WPARAM w, LPARAM l);
    void OnCommand(int id);
    void BuildButtons();
    void Follow(ControlSite& site);
    void FollowAll();
    void ServeDrag(IUnknown* control, Event& event);
    void Log(const std::string& line);
    void ShowSite(ControlSite* site);
    void ShowPages();
    void ShowAbout();
    bool Guarded(const std::function<void()>& step);

    HWND m_window = nullptr;
    HWND m_events = nullptr;
    ComPtr<Form> m_form;
    std::unique_ptr<PropertyPanel> m_properties;
    ComPtr<ControlSite> m_shown;   // whose properties are listed
    std::optional<POINT> m_press;  // on the screen, until a drag has begun
    std::string m_lastLine;
    bool m_refreshPending = false;
};

}  // namespace velmora::vmhost
