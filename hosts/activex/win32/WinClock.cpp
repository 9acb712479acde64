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

    void Add(WinClock& clock) {
        m_clocks.push_back(&clock);
        Tell();
    }
    void Remove(WinClock& clock) {
        std::erase(m_clocks, &clock);
        if (m_clocks.empty()) KillTimer(m_window, 1);
    }

private:
    /// Those that are to be seen no more run again with their next paint.
    void Tell() {
        std::erase_if(m_clocks, [](WinClock* clock) {
            clock->m_runs = IsWindowVisible(clock->m_window);
            return !clock->m_runs;
        });
        if (m_clocks.empty()) return static_cast<void>(KillTimer(m_window, 1));
        std::chrono::milliseconds wait = std::chrono::hours(24);
        for (WinClock* const clock : m_clocks) wait = std::min(wait, clock->m_calendar.OnClock());
        SetTimer(m_window, 1, static_cast<UINT>(wait.count()), nullptr);
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
        if (message == WM_TIMER || message == WM_TIMECHANGE || message == WM_POWERBROADCAST) {
            reinterpret_cast<Shared*>(GetWindowLongPtrW(window, GWLP_USERDATA))->Tell();
        }
        return DefWindowProcW(window, message, w, l);
    }

    const HWND m_window;
    std::vector<WinClock*> m_clocks;
};

WinClock::WinClock(VmCalendar& calendar, HWND window)
    : m_calendar(calendar), m_window(window), m_shared(ThreadShared<Shared>()) {}

WinClock::~WinClock() { m_shared->Remove(*this); }

void WinClock::OnPaint() {
    if (!m_runs) m_shared->Add(*this);
}

}  // namespace velmora
