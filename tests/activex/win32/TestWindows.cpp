#include "tests/activex/win32/TestWindows.h"

#include "hosts/activex/win32/WinInput.h"
#include "hosts/activex/win32/WinLocale.h"
#include "hosts/activex/win32/WindowPaint.h"

#include <utility>

namespace velmora::test {
namespace {

constexpr wchar_t kClassName[] = L"VelmoraTestControl";
const Date kMidMarch = DateOf(DayFromCivil(2020, 3, 15));

std::string NameOf(Date date) {
    const CivilDate civil = CivilOf(DayOf(date));
    return std::to_string(civil.year) + '-' + std::to_string(civil.month) + '-' +
           std::to_string(civil.day);
}

}  // namespace

/// From the table of the process's objects, as the counting function of some systems says 0.
int GdiObjectCount() {
    constexpr int kEntries = 0x4000;
    constexpr int kEntrySize = 24;
    constexpr int kTypeAt = 14;
    const FARPROC environmentOf =
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb");
    const auto* const environment =
        reinterpret_cast<const BYTE*(WINAPI*)()>(reinterpret_cast<void*>(environmentOf))();
    const auto* const table = *reinterpret_cast<const BYTE* const*>(environment + 0xF8);
    int count = 0;
    for (int i = 0; i < kEntries; ++i) {
        if (*reinterpret_cast<const WORD*>(table + i * kEntrySize + kTypeAt) != 0) ++count;
    }
    return count;
}

void Pump(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (;;) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        const ULONGLONG now = GetTickCount64();
        if (now >= end) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    }
}

TestHosting::TestHosting() {
    m_font->name = "Tahoma";
    m_font->size = 8.25;
}

ControlWindow::ControlWindow(SIZE size) : dates(std::make_shared<DateLocale>(), LocalNow) {
    WNDCLASSW description{};
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = &Procedure;
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = kClassName;
    RegisterClassW(&description);
    m_frame = CreateWindowW(kClassName, L"Frame", WS_POPUP, 100, 100, size.cx + 40, size.cy + 40,
                            nullptr, nullptr, nullptr, nullptr);
    m_window = CreateWindowW(kClassName, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 20, 20,
                             size.cx, size.cy, m_frame, nullptr, nullptr, nullptr);
    windowing.Attach(m_window);
}

void ControlWindow::EndWindow() {
    if (m_frame) DestroyWindow(std::exchange(m_frame, nullptr));
}

LRESULT CALLBACK ControlWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* const self = reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    LRESULT result = 0;
    if (self && message == WM_NCDESTROY) {
        self->m_window = nullptr;
        self->windowing.Detach();
    } else if (self && self->OnMessage(message, w, l, result)) {
        return result;
    }
    return DefWindowProcW(window, message, w, l);
}

template <class Events>
void ControlWindow::NoteDates(Events& events) {
    const auto number = [this](const char* name) {
        return [this, name](std::int16_t& value) { Note(name + std::to_string(value)); };
    };
    events.DateChanged.Connect([this](Date& date) { Note("date " + NameOf(date)); });
    events.MonthChanged.Connect(number("month "));
    events.YearChanged.Connect(number("year "));
    events.KeyDown.Connect([this](std::int16_t& key, std::int16_t& shift) {
        Note("key " + std::to_string(key) + '/' + std::to_string(shift));
    });
    events.MouseDown.Connect([this](std::int16_t& button, std::int16_t&, float&, float&) {
        Note("down " + std::to_string(button));
    });
    events.MouseUp.Connect([this](std::int16_t& button, std::int16_t&, float&, float&) {
        Note("up " + std::to_string(button));
    });
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ShowWindow(m_frame, SW_SHOW);
    SetFocus(m_window);
    Pump();
    TakeLog();
}

std::string ControlWindow::TakeLog() {
    Pump();
    return std::exchange(m_log, {});
}

void ControlWindow::Key(WORD key) {
    SendMessageW(m_window, WM_KEYDOWN, key, 0);
    if (m_window) SendMessageW(m_window, WM_KEYUP, key, 0);
}

void ControlWindow::Press(int x, int y, WPARAM keys) {
    const UINT message = keys == MK_RBUTTON ? WM_RBUTTONDOWN : WM_LBUTTONDOWN;
    SendMessageW(m_window, message, keys, MAKELPARAM(x, y));
}

void ControlWindow::Release(int x, int y) {
    SendMessageW(m_window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

COLORREF ControlWindow::PixelAt(int x, int y) {
    Pump();
    const HDC context = GetDC(m_window);
    const COLORREF color = GetPixel(context, x, y);
    ReleaseDC(m_window, context);
    return color;
}

CalendarWindow::CalendarWindow(VmMonthYearSelStyleConstants style, SIZE size)
    : ControlWindow(size) {
    calendar = std::make_unique<VmCalendar>(Platform{drawing, windowing, dates, hosting});
    calendar->InitProperties(kMidMarch);
    calendar->MonthYearSelStyle(style);
    calendar->Events().Click.Connect([this] { Note("click"); });
    calendar->Events().DblClick.Connect([this] { Note("double click"); });
    NoteDates(calendar->Events());
}

bool CalendarWindow::OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (!calendar) return false;
    if (message == WM_PAINT) {
        const WindowPaint paint(Window());
        calendar->OnPaint(WinDrawing::SurfaceOf(paint.Context()), paint.Exposed());
        return true;
    }
    if (message == WM_LBUTTONDOWN) SetFocus(Window());
    const HWND window = Window();
    return windowing.OnChildMessage(*calendar, message, w, l, result) ||
           DispatchInput(*calendar, window, message, w, l, result);
}

HWND CalendarWindow::Child(const wchar_t* className) const {
    return FindWindowExW(Window(), nullptr, className, nullptr);
}

void CalendarWindow::Choose(int index) {
    const HWND list = Child(L"COMBOBOX");
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

void CalendarWindow::Type(const wchar_t* year) {
    const HWND box = Child(L"EDIT");
    SetFocus(box);
    SendMessageW(box, EM_SETSEL, 0, -1);
    for (; *year; ++year) SendMessageW(box, WM_CHAR, *year, 0);
}

void CalendarWindow::ChildKey(HWND child, WORD key) {
    SendMessageW(child, WM_KEYDOWN, key, 0);
    if (key == VK_RETURN || key == VK_ESCAPE) SendMessageW(child, WM_CHAR, key, 0);
    SendMessageW(child, WM_KEYUP, key, 0);
}

void CalendarWindow::Scroll(WORD code, const wchar_t* className) {
    const HWND bar = Child(className);
    const bool vertical = (GetWindowLongPtrW(bar, GWL_STYLE) & SBS_VERT) != 0;
    SendMessageW(Window(), vertical ? WM_VSCROLL : WM_HSCROLL, code, reinterpret_cast<LPARAM>(bar));
}

POINT CalendarWindow::CenterOf(DayNumber day) {
    CalendarState state;
    state.shownDate = calendar->ShownDate();
    state.firstDayOfWeek = calendar->FirstDayOfWeek();
    const auto cell = GridOf(state, calendar->Layout()).DayCellRect(day);
    return cell ? POINT{(cell->left + cell->right) / 2, (cell->top + cell->bottom) / 2}
                : POINT{-1, -1};
}

std::string CalendarWindow::Shown() const {
    const CivilDate civil = CivilOf(DayOf(calendar->ShownDate()));
    return std::to_string(civil.year) + '-' + std::to_string(civil.month);
}

BoxWindow::BoxWindow() : ControlWindow({121, 21}) {
    box = std::make_unique<VmCalDropDown>(BoxPlatform{drawing, windowing, dates, hosting},
                                          form->Form());
    box->InitProperties();
    box->DateValue(Variant(kMidMarch));
    box->Events().DropDown.Connect([this](bool&) { Note("drop down"); });
    box->Events().CloseUp.Connect([this] { Note("close up"); });
    NoteDates(box->Events());
}

bool BoxWindow::IsOpen() const {
    return box->DropDownState() && form->Window() && IsWindowVisible(form->Window());
}

bool BoxWindow::OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (!box) return false;
    if (message == WM_PAINT) {
        const WindowPaint paint(Window());
        box->OnPaint(WinDrawing::SurfaceOf(paint.Context()));
        return true;
    }
    return DispatchInput(*box, Window(), message, w, l, result);
}

}  // namespace velmora::test
