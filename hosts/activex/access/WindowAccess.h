#pragma once

#include "platform/Values.h"

#include <oleacc.h>
#include <windows.h>
#include <wrl/client.h>

#include <string>
#include <vector>

namespace velmora {

class AccessObject;

/// One thing that screen readers are told of.
struct AccessItem {
    long role = 0;   // `ROLE_SYSTEM_...`
    long state = 0;  // `STATE_SYSTEM_...`; what the window is, its parts are too
    std::string name{};
    std::string value{};
    std::string description{};
    const char* action = nullptr;  // what is done by its default action; null for none
    Rect place{};                  // pixels of the client area
};

/// What a window shows, to screen readers, which see it as `IAccessible`. Nothing is made before
/// the first of them asks. Who keeps the interface longer than the window lives is told that it has
/// gone. The window's messages `WM_USER + 0x710` and the next belong to this class.
class WindowAccess {
public:
    WindowAccess(const WindowAccess&) = delete;
    WindowAccess& operator=(const WindowAccess&) = delete;

    /// Something of it may have changed: those who listen hear of it when what is under way is
    /// over.
    void Changed();
    /// To be told of every message of the window, where a handler may end the control. True when
    /// the message needs nothing more.
    bool OnAccessMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result);
    /// The window is going.
    void End();

protected:
    WindowAccess();
    ~WindowAccess();

    /// Null while there is none.
    virtual HWND Window() const = 0;
    /// The whole, then its parts, whose numbers are their places here.
    virtual std::vector<AccessItem> Items() = 0;
    /// Does the default action. The control may be gone afterwards.
    virtual void Act(std::size_t) {}
    /// Tells what has changed since the last time.
    virtual void TellNews() {}
    /// The windows that are further parts of it.
    virtual std::vector<HWND> Windows() const;

    /// The label before the window on its form, and what is shown.
    std::string NameAnd(const std::string& shown) const;
    /// `EVENT_OBJECT_...` about an item.
    void Tell(DWORD event, std::size_t item) const;

private:
    friend class AccessObject;

    static constexpr UINT kTellNews = WM_USER + 0x710;
    static constexpr UINT kAct = kTellNews + 1;  // with the item

    Microsoft::WRL::ComPtr<AccessObject> m_object;
    bool m_telling = false;  // the window has a message to that end
};

}  // namespace velmora
