#pragma once

#include "dropdown/DropDownForm.h"
#include "hosts/activex/access/CalendarAccess.h"
#include "hosts/activex/win32/WinDrawing.h"
#include "hosts/activex/win32/WinWindowing.h"
#include "platform/dates/Dates.h"

#include <windows.h>

#include <memory>

namespace velmora {

/// The window of the open calendar. While a button is held the capture waits, so that the release
/// arrives where the press did.
class WinFormWindowing final : public WinWindowing {
public:
    void SetCapture() override;
    void ReleaseCapture() override;
    /// Takes a capture that waits, if no button is held any more.
    void TakeCapture();
    /// The window of the box, whose resolution counts: the size is in proportion to that.
    void Box(HWND window) noexcept { m_box = window; }
    HWND Box() const noexcept { return m_box; }
    int Dpi() const override;

private:
    HWND m_box = nullptr;
    bool m_wanted = false;
};

/// The container of the calendar in the drop-down window, which counts in pixels.
class WinFormHosting final : public Hosting {
public:
    WinFormHosting(const WinWindowing& window, const DropDownForm& form)
        : m_window(window), m_form(form) {}

    void Font(FontRef font) { m_font = std::move(font); }

    void PropertyChanged(std::string_view) override {}
    bool RequestEdit(std::string_view) override;
    FontRef AmbientFont() const override { return m_font; }
    std::optional<std::int16_t> ContainerScaleMode() const override;
    std::optional<std::int16_t> ParentScaleMode() const override { return std::nullopt; }
    std::int32_t Drag(const DataRef&, std::int32_t, const DragEvents&) override {
        return kDropNone;
    }
    void ShowAboutBox(const AboutText& text) override;

private:
    const WinWindowing& m_window;
    const DropDownForm& m_form;
    FontRef m_font = std::make_shared<StdFont>();
};

/// The one drop-down window of a thread's date boxes: borderless, above all others, never active.
/// It closes by itself when the box's window moves or another program comes to the front.
///
/// Made by `ThreadDropDownForm`; its window is made when it is first shown.
class WinFormWindow final : public FormWindow, public std::enable_shared_from_this<WinFormWindow> {
public:
    WinFormWindow();
    WinFormWindow(const WinFormWindow&) = delete;
    WinFormWindow& operator=(const WinFormWindow&) = delete;
    ~WinFormWindow() override;

    DropDownForm& Form() noexcept { return m_form; }
    /// The font, the language and its direction of the box that is about to open it: to be told in
    /// the box's `DropDown` event at the latest.
    void Follow(FontRef ambientFont, std::shared_ptr<const DateLocale> locale, bool rightToLeft);
    /// Null as long as it has never been shown.
    HWND Window() const noexcept { return m_windowing.Window(); }

    void Show(const Rect& screen) override;
    void Hide() override;
    Rect WorkArea() const override;
    Size DesktopSize() const override;
    void Timer(bool on) override;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT OnMessage(HWND window, UINT message, WPARAM w, LPARAM l);
    void OnPaint(HWND window);
    bool Make();
    void Tick();
    bool IsOwnerInPlace() const;

    WinFormWindowing m_windowing;
    WinFormHosting m_hosting;
    WinDrawing m_drawing;
    Dates m_dates;
    RECT m_boxPlace{};  // on the screen, when it was opened
    bool m_wasInFront = false;
    DropDownForm m_form;  // ends before what it stands on
    CalendarAccess m_access;
};

/// The drop-down form of the calling thread, held by each of its boxes.
std::shared_ptr<WinFormWindow> ThreadDropDownForm();

}  // namespace velmora
