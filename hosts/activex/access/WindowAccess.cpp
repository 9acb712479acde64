#include "hosts/activex/access/WindowAccess.h"

#include "hosts/activex/access/AccessObject.h"
#include "hosts/activex/win32/WinText.h"

#include <utility>

namespace velmora {
namespace {

BOOL CALLBACK AddVisible(HWND window, LPARAM windows) {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

}  // namespace

WindowAccess::WindowAccess() = default;

WindowAccess::~WindowAccess() { End(); }

void WindowAccess::Changed() {
    const HWND window = Window();
    if (m_telling || !window || !IsWinEventHookInstalled(EVENT_OBJECT_FOCUS)) return;
    m_telling = PostMessageW(window, kTellNews, 0, 0) != FALSE;
}

bool WindowAccess::OnAccessMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    switch (message) {
        case WM_GETOBJECT: {
            if (static_cast<LONG>(l) != OBJID_CLIENT) return false;
            if (!m_object) m_object = Adopt(new AccessObject(*this, Window()));
            result = LresultFromObject(__uuidof(IAccessible), w,
                                       static_cast<IAccessible*>(m_object.Get()));
            return true;
        }
        case kTellNews:
            m_telling = false;
            TellNews();
            return true;
        case kAct: Act(w); return true;
        case WM_SETFOCUS:
        case WM_KILLFOCUS: Changed(); return false;
        default: return false;
    }
}

void WindowAccess::End() {
    m_telling = false;
    if (const auto object = std::exchange(m_object, nullptr)) object->Disconnect();
}

std::vector<HWND> WindowAccess::Windows() const {
    std::vector<HWND> windows;
    EnumChildWindows(Window(), AddVisible, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

/// A container may have put windows of its own around the control.
std::string WindowAccess::NameAnd(const std::string& shown) const {
    const HWND form = GetAncestor(Window(), GA_ROOT);
    HWND before = nullptr;
    for (HWND at = Window(); at && at != form && !before; at = GetAncestor(at, GA_PARENT)) {
        before = GetWindow(at, GW_HWNDPREV);
    }
    wchar_t text[80] = {};
    if (!before || !GetClassNameW(before, text, 80) || lstrcmpiW(text, L"Static") != 0)
        return shown;
    GetWindowTextW(before, text, 80);
    std::string name = ToUtf8(text);
    std::erase(name, '&');
    return name.empty() || shown.empty() ? name + shown : name + ", " + shown;
}

void WindowAccess::Tell(DWORD event, std::size_t item) const {
    NotifyWinEvent(event, Window(), OBJID_CLIENT, static_cast<LONG>(item));
}

}  // namespace velmora
