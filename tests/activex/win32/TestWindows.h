#pragma once

#include "hosts/activex/win32/WinDrawing.h"
#include "hosts/activex/win32/WinFormWindow.h"
#include "hosts/activex/win32/WinWindowing.h"
#include "platform/Dates.h"

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

namespace velmora::test {

/// Objects of GDI that this process holds.
int GdiObjectCount();
/// Serves the messages that wait, and those of the next `milliseconds`.
void Pump(DWORD milliseconds = 0);

class TestHosting final : public Hosting {
public:
    TestHosting();

    void PropertyChanged(std::string_view) override {}
    FontRef AmbientFont() const override { return m_font; }
    std::optional<std::int16_t> ContainerScaleMode() const override { return 3; }
    std::optional<std::int16_t> ParentScaleMode() const override { return std::nullopt; }
    void OleDrag() override {}
    void ShowAboutBox(const AboutText&) override {}

private:
    FontRef m_font = std::make_shared<StdFont>();
};

/// A control's window inside of a top-level one, and the log of what the control reports.
class ControlWindow {
public:
    explicit ControlWindow(SIZE size);
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    virtual ~ControlWindow() { EndWindow(); }

    HWND Window() const noexcept { return m_window; }
    HWND Frame() const noexcept { return m_frame; }
    std::string TakeLog();  // ", " between the entries
    void Key(WORD key);     // pressed and released
    void Press(int x, int y, WPARAM keys = MK_LBUTTON);
    void Release(int x, int y);
    void Click(int x, int y) { Press(x, y), Release(x, y); }
    COLORREF PixelAt(int x, int y);

    WinDrawing drawing;
    WinWindowing windowing;
    TestHosting hosting;
    Dates dates;

protected:
    void Note(const std::string& text) { m_log += (m_log.empty() ? "" : ", ") + text; }
    template <class Events>
    void NoteDates(Events& events);
    void EndWindow();  // before the control

    virtual bool OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) = 0;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);

    HWND m_frame = nullptr;
    HWND m_window = nullptr;
    std::string m_log;
};

/// 15 March 2020 is selected.
class CalendarWindow final : public ControlWindow {
public:
    explicit CalendarWindow(VmMonthYearSelStyleConstants style = VmMonthSelNone,
                            SIZE size = {300, 202});
    ~CalendarWindow() override { EndWindow(); }

    /// The child of that window class.
    HWND Child(const wchar_t* className) const;
    /// Chooses an item as the user's keys or mouse do, and tells the window of it.
    void Choose(int index);
    void Type(const wchar_t* year);
    void ChildKey(HWND child, WORD key);
    void Scroll(WORD code, const wchar_t* className = L"SCROLLBAR");
    POINT CenterOf(DayNumber day);
    std::string Shown() const;  // "2020-3"

    std::unique_ptr<VmCalendar> calendar;

protected:
    bool OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
};

class BoxWindow final : public ControlWindow {
public:
    BoxWindow();
    ~BoxWindow() override { EndWindow(); }

    bool IsOpen() const;  // and seen

    std::shared_ptr<WinFormWindow> form = ThreadDropDownForm();
    std::unique_ptr<VmCalDropDown> box;

protected:
    bool OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
};

}  // namespace velmora::test
