#include "hosts/activex/win32/WinClock.h"

#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/ThreadShared.h"

#include <algorithm>
#include <vector>

namespace velmora {

/// A hidden window, which hears the system's broadcasts; children and message windows do not.
class WinClock::Shared {
public:
    Shared()
        : m_window(CreateWindowExW(0, L"Static", nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                   ThisModule(), nullptr)) {
        SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;
    ~Shared() { DestroyWindow(m_window); }

    void Add(VmCalendar& calendar) {
        m_calendars.push_back(&calendar);
        Tell();
    }
    void Remove(VmCalendar& calendar) { std::erase(m_calendars, &calendar); }

private:
    void Tell() {
        std::chrono::milliseconds wait = std::chrono::hours(24);
        for (VmCalendar* const calendar : m_calendars) wait = std::min(wait, calendar->OnClock());
        SetTimer(m_window, 1, static_cast<UINT>(wait.count()), nullptr);
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
        if (message == WM_TIMER || message == WM_TIMECHANGE || message == WM_POWERBROADCAST) {
            reinterpret_cast<Shared*>(GetWindowLongPtrW(window, GWLP_USERDATA))->Tell();
        }
        return DefWindowProcW(window, message, w, l);
    }

    const HWND m_window;
    std::vector<VmCalendar*> m_calendars;
};

WinClock::WinClock(VmCalendar& calendar) : m_calendar(calendar), m_shared(ThreadShared<Shared>()) {
    m_shared->Add(calendar);
}

WinClock::~WinClock() { m_shared->Remove(m_calendar); }

}  // namespace velmora
