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

/// What is painted: a month of that size, whose days have nothing, or a caption and a picture.
struct Scene {
    SIZE size;
    bool isDecorated;
};

constexpr Scene kSystems{{250, 200}, false};  // of the system's month calendar
constexpr Scene kUsual{{400, 300}, false};
constexpr const char* kCaption = "Meeting";

/// One of its own for each: a bitmap can be in one context at a time.
PictureRef NewPicture() {
    auto image = std::make_shared<PixelImage>();
    image->width = image->height = 12;
    image->pixels.assign(12 * 12, 0xFF2060C0);
    constexpr Size kHimetric{318, 318};  // 12 pixels
    return std::make_shared<StdPicture>(PictureType::Bitmap, kHimetric, image);
}

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

/// A window that paints a month.
class MonthWindow {
public:
    explicit MonthWindow(const Scene& scene) : m_scene(scene) {
        WNDCLASSW description{};
        description.lpfnWndProc = &Procedure;
        description.lpszClassName = L"VelmoraBench";
        RegisterClassW(&description);
        m_window = CreateWindowW(description.lpszClassName, L"", WS_POPUP, 0, 0, scene.size.cx,
                                 scene.size.cy, nullptr, nullptr, nullptr, nullptr);
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
    const Scene& Shown() const { return m_scene; }
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
            const Rect all{0, 0, self->m_scene.size.cx, self->m_scene.size.cy};
            self->Paint(reinterpret_cast<HDC>(w), {&all, 1});
            return 0;
        }
        if (self && self->Input(message, w, l)) return 0;
        return DefWindowProcW(window, message, w, l);
    }

    const Scene m_scene;
    HWND m_window = nullptr;
};

class CalendarWindow final : public MonthWindow {
public:
    explicit CalendarWindow(const Scene& scene)
        : MonthWindow(scene), m_dates(SharedDateLocale(), LocalNow) {
        m_windowing.Attach(Window());
        m_calendar.InitProperties();
        if (scene.isDecorated) Decorate();
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
    void Decorate() {
        const PictureRef picture = NewPicture();
        for (std::int16_t day = 1; day <= m_calendar.Days()->Count(); ++day) {
            m_calendar.Days()->Item(day)->Caption(kCaption);
            m_calendar.Days()->Item(day)->Picture(picture);
        }
    }

    WinDrawing m_drawing;
    WinWindowing m_windowing;
    BenchHosting m_hosting;
    Dates m_dates;
    VmCalendar m_calendar{Platform{m_drawing, m_windowing, m_dates, m_hosting}};
};

/// The least that a month of 42 cells takes: fill, number and two edges of each, caption and
/// picture of the decorated ones, and one copy of all to the window; what that needs is made
/// before.
class FloorWindow final : public MonthWindow {
public:
    explicit FloorWindow(const Scene& scene)
        : MonthWindow(scene),
          m_picture(NewPicture()),
          m_font(m_drawing.CreateFontIndirectA(FontToLogFont(*TheFont()))) {
        const HDC target = GetDC(Window());
        m_memory = CreateCompatibleDC(target);
        m_bitmap = CreateCompatibleBitmap(target, scene.size.cx, scene.size.cy);
        m_source = CreateCompatibleDC(target);
        SelectObject(m_source, reinterpret_cast<HGDIOBJ>(m_drawing.PictureHandle(*m_picture)));
        ReleaseDC(Window(), target);
        SelectObject(m_memory, m_bitmap);
        SelectObject(m_memory, reinterpret_cast<HGDIOBJ>(m_font));
        SetBkMode(m_memory, TRANSPARENT);
        ShowWindow(Window(), SW_SHOWNOACTIVATE);
    }
    ~FloorWindow() override {
        DeleteDC(m_memory);
        DeleteDC(m_source);
        DeleteObject(m_bitmap);
        m_drawing.DeleteObject(m_font);
    }

protected:
    void Paint(HDC target, std::span<const Rect>) override {
        for (int i = 0; i < 42; ++i) PaintCell(i);
        BitBlt(target, 0, 0, Shown().size.cx, Shown().size.cy, m_memory, 0, 0, SRCCOPY);
    }

private:
    void PaintCell(int i) {
        const int width = Shown().size.cx / 7;
        const int height = Shown().size.cy / 6;
        const int left = i % 7 * width;
        const int top = i / 7 * height;
        RECT cell{left, top, left + width, top + height};
        FillRect(m_memory, &cell, GetSysColorBrush(COLOR_WINDOW));
        if (Shown().isDecorated && i < 31) {
            Write(kCaption, cell, DT_BOTTOM);
            BitBlt(m_memory, left, top, 12, 12, m_source, 0, 0, SRCCOPY);
        }
        Write(std::to_string(i % 31 + 1), cell, DT_VCENTER);
        MoveToEx(m_memory, left, top + height - 1, nullptr);
        LineTo(m_memory, left, top);
        LineTo(m_memory, left + width - 1, top);
    }

    void Write(std::string_view text, RECT& cell, UINT place) {
        const std::wstring wide(text.begin(), text.end());
        DrawTextW(m_memory, wide.c_str(), static_cast<int>(wide.size()), &cell,
                  DT_SINGLELINE | DT_CENTER | place | DT_NOPREFIX);
    }

    WinDrawing m_drawing;
    PictureRef m_picture;
    ObjectHandle m_font;
    HDC m_memory = nullptr;
    HDC m_source = nullptr;
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

/// `most`: what is wanted of our time, as a multiple of the other.
void Print(const std::string& name, double ours, double other, double most) {
    std::printf("%-52s %8.1f %8.1f %7.2f  <= %.2f  %s\n", name.c_str(), ours, other, ours / other,
                most, ours <= most * other ? "met" : "MISSED");
}

/// What is wanted of a full repaint, as a multiple of its plain calls.
struct Bound {
    Scene scene;
    double most;
};

constexpr Bound kBounds[] = {
    {kSystems, 1.25}, {kUsual, 1.25}, {{{400, 300}, true}, 1.35}, {{{1600, 1200}, false}, 1.0}};

void RunRepaint(const Bound& bound) {
    const CalendarWindow calendar(bound.scene);
    const FloorWindow floor(bound.scene);
    const auto times =
        LowestTenths({[&] { Repaint(calendar.Window()); }, [&] { Repaint(floor.Window()); }});
    Print("full repaint " + std::to_string(bound.scene.size.cx) + " x " +
              std::to_string(bound.scene.size.cy) +
              (bound.scene.isDecorated ? ", 31 pictures" : "") + " / its plain GDI calls",
          times[0], times[1], bound.most);
}

int Run() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_DATE_CLASSES};
    InitCommonControlsEx(&classes);
    const CalendarWindow calendar(kSystems);
    const HWND month =
        CreateWindowW(MONTHCAL_CLASSW, L"", WS_POPUP | WS_VISIBLE, 0, 0, kSystems.size.cx,
                      kSystems.size.cy, nullptr, nullptr, nullptr, nullptr);
    if (!IsWindow(calendar.Window()) || !IsWindow(month)) {
        std::fprintf(stderr, "There are no windows to paint: no display?\n");
        return 1;
    }
    const auto times =
        LowestTenths({[&] { Repaint(calendar.Window()); }, [&] { Repaint(month); },
                      [&] { PressKeys(calendar.Window()); }, [&] { MoveDates(month); }});
    DestroyWindow(month);
    std::printf("%-52s %8s %8s %7s\n", "microseconds", "ours", "other", "ratio");
    for (const Bound& bound : kBounds) RunRepaint(bound);
    Print("full repaint 250 x 200 / the system's month calendar", times[0], times[1], 1 / 6.0);
    Print("two keys to painted / two dates in that calendar", times[2], times[3], 1 / 5.0);
    return 0;
}

}  // namespace
}  // namespace velmora

int main() { return velmora::Run(); }
