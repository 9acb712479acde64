#include "hosts/activex/win32/WinDrawing.h"
#include "hosts/activex/win32/WinInput.h"
#include "hosts/activex/win32/WinLocale.h"
#include "hosts/activex/win32/WinWindowing.h"
#include "hosts/activex/win32/WindowPaint.h"

#include <commctrl.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

/// How quickly a calendar paints and answers a key, beside what GDI needs for the plain operations
/// and beside the system's own month calendar. Prints a table; tenths, microseconds.
namespace velmora {
namespace {

constexpr SIZE kSize{400, 300};

/// One that the system has, so that both sides draw the same glyphs.
FontRef TheFont() {
    auto font = std::make_shared<StdFont>();
    font->name = "Tahoma";
    font->size = 8.25;
    return font;
}

class BenchHosting final : public Hosting {
public:
    void PropertyChanged(std::string_view) override {}
    FontRef AmbientFont() const override { return m_font; }
    std::optional<std::int16_t> ContainerScaleMode() const override { return 3; }
    std::optional<std::int16_t> ParentScaleMode() const override { return std::nullopt; }
    std::int32_t Drag(const DataRef&, std::int32_t, const DragEvents&) override {
        return kDropNone;
    }
    void ShowAboutBox(const AboutText&) override {}

private:
    FontRef m_font = TheFont();
};

/// A window that paints a month of 400 x 300 pixels.
class MonthWindow {
public:
    MonthWindow() {
        WNDCLASSW description{};
        description.lpfnWndProc = &Procedure;
        description.lpszClassName = L"VelmoraBench";
        RegisterClassW(&description);
        m_window = CreateWindowW(description.lpszClassName, L"", WS_POPUP, 0, 0, kSize.cx, kSize.cy,
                                 nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    MonthWindow(const MonthWindow&) = delete;
    MonthWindow& operator=(const MonthWindow&) = delete;
    virtual ~MonthWindow() {
        SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
        DestroyWindow(m_window);
    }

    HWND Window() const { return m_window; }

protected:
    virtual void Paint(HDC target, std::span<const Rect> exposed) = 0;
    virtual bool Input(UINT, WPARAM, LPARAM) { return false; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
        auto* const self = reinterpret_cast<MonthWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self && message == WM_PAINT) {
            const WindowPaint paint(window);
            self->Paint(paint.Context(), paint.Exposed());
            return 0;
        }
        if (self && message == WM_PRINTCLIENT) {
            constexpr Rect kAll{0, 0, kSize.cx, kSize.cy};
            self->Paint(reinterpret_cast<HDC>(w), {&kAll, 1});
            return 0;
        }
        if (self && self->Input(message, w, l)) return 0;
        return DefWindowProcW(window, message, w, l);
    }

    HWND m_window = nullptr;
};

class CalendarWindow final : public MonthWindow {
public:
    CalendarWindow() : m_dates(SharedDateLocale(), LocalNow) {
        m_windowing.Attach(Window());
        m_calendar.InitProperties();
        ShowWindow(Window(), SW_SHOWNOACTIVATE);
        m_calendar.OnWindowChanged();
        UpdateWindow(Window());
    }

protected:
    void Paint(HDC target, std::span<const Rect> exposed) override {
        m_calendar.OnPaint(WinDrawing::SurfaceOf(target), exposed);
    }
    bool Input(UINT message, WPARAM w, LPARAM l) override {
        LRESULT result = 0;
        return DispatchInput(m_calendar, Window(), message, w, l, result);
    }

private:
    WinDrawing m_drawing;
    WinWindowing m_windowing;
    BenchHosting m_hosting;
    Dates m_dates;
    VmCalendar m_calendar{Platform{m_drawing, m_windowing, m_dates, m_hosting}};
};

/// The least that a month of 42 cells takes: fill, number and two edges of each, and one copy of
/// all to the window; what that needs is made before.
class FloorWindow final : public MonthWindow {
public:
    FloorWindow() : m_font(m_drawing.CreateFontIndirectA(FontToLogFont(*TheFont()))) {
        const HDC target = GetDC(Window());
        m_memory = CreateCompatibleDC(target);
        m_bitmap = CreateCompatibleBitmap(target, kSize.cx, kSize.cy);
        ReleaseDC(Window(), target);
        SelectObject(m_memory, m_bitmap);
        SelectObject(m_memory, reinterpret_cast<HGDIOBJ>(m_font));
        SetBkMode(m_memory, TRANSPARENT);
        ShowWindow(Window(), SW_SHOWNOACTIVATE);
    }
    ~FloorWindow() override {
        DeleteDC(m_memory);
        DeleteObject(m_bitmap);
        m_drawing.DeleteObject(m_font);
    }

protected:
    void Paint(HDC target, std::span<const Rect>) override {
        for (int i = 0; i < 42; ++i) PaintCell(m_memory, i);
        BitBlt(target, 0, 0, kSize.cx, kSize.cy, m_memory, 0, 0, SRCCOPY);
    }

private:
    static void PaintCell(HDC memory, int i) {
        const int left = i % 7 * 57;
        const int top = i / 7 * 50;
        RECT cell{left, top, left + 57, top + 50};
        FillRect(memory, &cell, GetSysColorBrush(COLOR_WINDOW));
        const std::wstring number = std::to_wstring(i % 31 + 1);
        DrawTextW(memory, number.c_str(), static_cast<int>(number.size()), &cell,
                  DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
        MoveToEx(memory, left, top + 49, nullptr);
        LineTo(memory, left, top);
        LineTo(memory, left + 56, top);
    }

    WinDrawing m_drawing;
    ObjectHandle m_font;
    HDC m_memory = nullptr;
    HBITMAP m_bitmap = nullptr;
};

double Microseconds(const std::function<void()>& operation) {
    LARGE_INTEGER frequency{}, before{}, after{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&before);
    operation();
    QueryPerformanceCounter(&after);
    return static_cast<double>(after.QuadPart - before.QuadPart) * 1e6 /
           static_cast<double>(frequency.QuadPart);
}

/// The time that one run in ten stays below. The operations take turns, so that what else the
/// computer does meets all of them alike, each right after a run that does not count, so that none
/// pays for the caches that another has filled with its own.
std::vector<double> LowestTenths(const std::vector<std::function<void()>>& operations) {
    constexpr std::size_t kRuns = 301;
    std::vector<std::vector<double>> times(operations.size());
    for (std::size_t run = 0; run < kRuns; ++run) {
        for (std::size_t i = 0; i < operations.size(); ++i) {
            operations[i]();
            times[i].push_back(Microseconds(operations[i]));
        }
    }
    std::vector<double> tenths;
    for (auto& of : times) {
        std::nth_element(of.begin(), of.begin() + kRuns / 10, of.end());
        tenths.push_back(of[kRuns / 10]);
    }
    return tenths;
}

/// Paints all of it at once on the window's own context, without what the system does to find out
/// what is exposed, which is the same for every window.
void Repaint(HWND window) {
    const HDC context = GetDC(window);
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context), PRF_CLIENT);
    ReleaseDC(window, context);
    GdiFlush();
}

void PressKeys(HWND window) {
    for (const WPARAM key : {WPARAM{VK_RIGHT}, WPARAM{VK_LEFT}}) {
        SendMessageW(window, WM_KEYDOWN, key, 0);
        UpdateWindow(window);
    }
    GdiFlush();
}

/// The month calendar's dates are moved by message, as not every system's moves them by key.
void MoveDates(HWND month) {
    for (const WORD day : {WORD{12}, WORD{11}}) {
        SYSTEMTIME date{2024, 4, 0, day, 0, 0, 0, 0};
        SendMessageW(month, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&date));
        UpdateWindow(month);
    }
    GdiFlush();
}

void Print(const char* name, double ours, double other, double least, double most) {
    const double ratio = other / ours;
    std::printf("%-52s %8.1f %8.1f %7.2fx  %s\n", name, ours, other, ratio,
                ratio >= least && ratio <= most ? "met" : "MISSED");
}

int Run() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_DATE_CLASSES};
    InitCommonControlsEx(&classes);
    const CalendarWindow calendar;
    const FloorWindow floor;
    const HWND month = CreateWindowW(MONTHCAL_CLASSW, L"", WS_POPUP | WS_VISIBLE, 0, 0, 250, 200,
                                     nullptr, nullptr, nullptr, nullptr);
    if (!IsWindow(calendar.Window()) || !IsWindow(floor.Window()) || !IsWindow(month)) {
        std::fprintf(stderr, "There are no windows to paint: no display?\n");
        return 1;
    }
    const auto times =
        LowestTenths({[&] { Repaint(calendar.Window()); }, [&] { Repaint(floor.Window()); },
                      [&] { Repaint(month); }, [&] { PressKeys(calendar.Window()); },
                      [&] { MoveDates(month); }});
    DestroyWindow(month);
    constexpr double kAny = 1e9;
    std::printf("%-52s %8s %8s %8s\n", "microseconds", "ours", "other", "ratio");
    Print("full repaint 400 x 300 / its plain GDI calls", times[0], times[1], 1 / 1.5, kAny);
    Print("full repaint / the system's month calendar", times[0], times[2], 6, kAny);
    Print("two keys to painted / two dates in that calendar", times[3], times[4], 5, kAny);
    return 0;
}

}  // namespace
}  // namespace velmora

int main() { return velmora::Run(); }
