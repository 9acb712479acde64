#include "hosts/activex/win32/WinFormWindow.h"

#include "dropdown/VmCalDropDown.h"
#include "hosts/activex/win32/AboutDialog.h"
#include "hosts/activex/win32/ScreenDpi.h"
#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/ThreadShared.h"
#include "hosts/activex/win32/WinInput.h"
#include "hosts/activex/win32/WinLocale.h"
#include "hosts/activex/win32/WindowPaint.h"
#include "platform/ScaleMode.h"

#include <utility>

namespace velmora {
namespace {

constexpr wchar_t kClassName[] = L"VelmoraDropDownForm";
constexpr UINT_PTR kTimer = 1;
constexpr UINT kTick = 30;  // milliseconds

bool IsAnyButtonHeld() {
    return GetAsyncKeyState(VK_LBUTTON) < 0 || GetAsyncKeyState(VK_RBUTTON) < 0 ||
           GetAsyncKeyState(VK_MBUTTON) < 0;
}

bool IsOurs(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId();
}

/// Between the class's registration and the window's creation no other thread may end the class.
SRWLOCK& ClassLock() {
    static SRWLOCK lock = SRWLOCK_INIT;
    return lock;
}

HWND MakeFormWindow(WNDPROC procedure) {
    const ExclusiveLock locked(ClassLock());
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = CS_SAVEBITS | CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.hInstance = ThisModule();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = kClassName;
    RegisterClassExW(&description);  // fails where another thread has done so
    return CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, kClassName, L"",
                           WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, description.hInstance, nullptr);
}

/// The class goes with the last form of the process, as its procedure goes with the module.
void EndFormWindow(HWND window) {
    const ExclusiveLock locked(ClassLock());
    DestroyWindow(window);
    UnregisterClassW(kClassName, ThisModule());
}

}  // namespace

void WinFormWindowing::SetCapture() {
    m_wanted = true;
    TakeCapture();
}

void WinFormWindowing::ReleaseCapture() {
    m_wanted = false;
    WinWindowing::ReleaseCapture();
}

void WinFormWindowing::TakeCapture() {
    if (!m_wanted || !Window() || GetCapture()) return;
    if (IsWindowVisible(Window()) && !IsAnyButtonHeld()) WinWindowing::SetCapture();
}

int WinFormWindowing::Dpi() const { return m_box ? DpiOf(m_box) : WinWindowing::Dpi(); }

std::optional<std::int16_t> WinFormHosting::ContainerScaleMode() const { return kScalePixels; }

bool WinFormHosting::RequestEdit(std::string_view) {
    VmCalDropDown* const box = m_form.GetOwner();
    return !box || box->RequestUserDate(DayOf(box->DateMin()));  // whichever day it will be
}

void WinFormHosting::ShowAboutBox(const AboutText& text) {
    const HWND active = GetActiveWindow();
    ShowAboutDialog(active ? active : m_window.Window(), text, LOCALE_USER_DEFAULT);
}

WinFormWindow::WinFormWindow()
    : m_hosting(m_windowing, m_form),
      m_dates(SharedDateLocale(), LocalNow),
      m_form({m_drawing, m_windowing, m_dates, m_hosting}, *this),
      m_access(m_windowing, m_form) {
    CalendarEvents& events = m_form.Calendar().Events();
    events.DateChanged.Connect([this](Date&) { m_access.Changed(); });
    events.MonthChanged.Connect([this](std::int16_t&) { m_access.Changed(); });
    events.YearChanged.Connect([this](std::int16_t&) { m_access.Changed(); });
}

WinFormWindow::~WinFormWindow() {
    const HWND window = m_windowing.Window();
    if (!window) return;
    m_access.End();
    m_windowing.Detach();
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    EndFormWindow(window);
}

void WinFormWindow::Follow(FontRef ambientFont, std::shared_ptr<const DateLocale> locale,
                           bool rightToLeft) {
    if (ambientFont) m_hosting.Font(std::move(ambientFont));
    m_windowing.RightToLeft(rightToLeft);
    if (!locale || locale.get() == &m_dates.Locale()) return;
    m_dates.Locale(std::move(locale));
    m_form.Calendar().OnLocaleChanged();
}

bool WinFormWindow::Make() {
    if (m_windowing.Window()) return true;
    const HWND window = MakeFormWindow(&Procedure);
    if (!window) return false;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_windowing.Attach(window);
    return true;
}

/// Owned by the window of its box, above which it stays, while it is open.
void WinFormWindow::Show(const Rect& screen) {
    if (!Make()) return;
    const HWND window = m_windowing.Window();
    const HWND box = WinDrawing::WindowOf(m_form.GetOwner()->hWnd());
    m_windowing.Box(box);
    m_boxPlace = {};
    GetWindowRect(box, &m_boxPlace);
    m_wasInFront = false;
    if (m_drawing.Dpi() != m_windowing.Dpi()) {
        m_drawing.Dpi(m_windowing.Dpi());
        m_form.Calendar().OnWindowRecreated();
    }
    SetWindowLongPtrW(window, GWLP_HWNDPARENT,
                      reinterpret_cast<LONG_PTR>(GetAncestor(box, GA_ROOT)));
    SetWindowPos(window, HWND_TOPMOST, screen.left, screen.top, screen.Width(), screen.Height(),
                 SWP_NOACTIVATE);
    m_form.Calendar().OnWindowChanged();
    ShowWindow(window, SW_SHOWNOACTIVATE);
    m_access.Changed();
}

Rect WinFormWindow::WorkArea() const {
    const HWND box = WinDrawing::WindowOf(m_form.GetOwner()->hWnd());
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(box, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    return {work.left, work.top, work.right, work.bottom};
}

Size WinFormWindow::DesktopSize() const {
    return {GetSystemMetrics(SM_CXVIRTUALSCREEN), GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

void WinFormWindow::Hide() {
    m_windowing.Box(nullptr);
    const HWND window = m_windowing.Window();
    if (!window) return;
    ShowWindow(window, SW_HIDE);
    SetWindowLongPtrW(window, GWLP_HWNDPARENT, 0);
}

void WinFormWindow::Timer(bool on) {
    const HWND window = m_windowing.Window();
    if (!window) return;
    if (on) {
        SetTimer(window, kTimer, kTick, nullptr);
    } else {
        KillTimer(window, kTimer);
    }
}

bool WinFormWindow::IsOwnerInPlace() const {
    RECT place{};
    const HWND box = m_windowing.Box();
    return IsWindowVisible(box) && GetWindowRect(box, &place) && EqualRect(&place, &m_boxPlace);
}

void WinFormWindow::Tick() {
    VmCalDropDown* const owner = m_form.GetOwner();
    if (!owner) return;
    if (!IsOwnerInPlace()) return owner->OnWindowChanged();
    const HWND front = GetForegroundWindow();
    if (front && IsOurs(front)) {
        m_wasInFront = true;
    } else if (front && m_wasInFront) {
        return owner->OnLostFocus();
    }
    m_windowing.TakeCapture();
    m_form.OnTimer();
}

LRESULT CALLBACK WinFormWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* const form = reinterpret_cast<WinFormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!form) return DefWindowProcW(window, message, w, l);
    return form->OnMessage(window, message, w, l);
}

LRESULT WinFormWindow::OnMessage(HWND window, UINT message, WPARAM w, LPARAM l) {
    const auto hold = weak_from_this().lock();  // a handler may end the last box
    switch (message) {
        case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: OnPaint(window); return 0;
        case WM_TIMER: Tick(); return 0;
        case WM_SETCURSOR:
            if (LOWORD(l) == HTCLIENT && m_windowing.OnSetCursor()) return TRUE;
            break;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            m_access.End();
            m_windowing.Detach();
            break;
        default: break;
    }
    LRESULT result = 0;
    if (m_access.OnAccessMessage(message, w, l, result)) return result;
    if (DispatchInput(m_form.Calendar(), window, message, w, l, result)) return result;
    return DefWindowProcW(window, message, w, l);
}

void WinFormWindow::OnPaint(HWND window) {
    const WindowPaint paint(window);
    m_form.OnPaint(WinDrawing::SurfaceOf(paint.Context()), paint.Exposed());
}

std::shared_ptr<WinFormWindow> ThreadDropDownForm() { return ThreadShared<WinFormWindow>(); }

}  // namespace velmora
