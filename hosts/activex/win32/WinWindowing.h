#pragma once

#include "calendar/SelectorInput.h"
#include "platform/Windowing.h"

#include <windows.h>

#include <memory>
#include <vector>

namespace velmora {

class NativeChild;

/// A control's window, which may come and go: without one it answers from what it has been told,
/// and keeps what it is told for the next one.
///
/// The window's procedure passes every message to `OnChildMessage` first (a calendar's window),
/// then to `DispatchInput` (WinInput.h). When a window has come or gone, the calendar is told by
/// `OnWindowRecreated`. The window belongs to the calling thread and its messages `WM_USER + 0x700`
/// to this class.
class WinWindowing : public Windowing {
public:
    WinWindowing();
    ~WinWindowing() override;
    WinWindowing(const WinWindowing&) = delete;
    WinWindowing& operator=(const WinWindowing&) = delete;

    /// The window takes over the enabled state.
    void Attach(HWND window);
    /// The window is going, and with it the selectors and what they have not told yet.
    void Detach();
    /// The client size while there is no window.
    void Extent(Size size) noexcept { m_extent = size; }
    /// Null while there is none.
    HWND Window() const noexcept { return m_window; }
    /// Pixels an inch of the window, of the screen without one.
    virtual int Dpi() const;

    WindowHandle Handle() const override;
    Size ClientSize() const override;
    double PixelsPerInch() const override { return Dpi(); }
    bool IsRightToLeft() const override { return m_rightToLeft; }
    /// Mirrors the selectors as well; whoever sets it tells the control.
    void RightToLeft(bool rightToLeft);

    bool Enabled() const override;
    void Enabled(bool enabled) override;
    bool TakesInput() const override;

    std::int16_t MousePointer() const override { return m_pointer; }
    void MousePointer(std::int16_t pointer) override;
    PictureRef MouseIcon() const override { return m_icon; }
    void MouseIcon(PictureRef icon) override;
    std::int32_t OLEDropMode() const override { return m_dropMode; }
    void OLEDropMode(std::int32_t mode) override;

    void SetCapture() override;
    void ReleaseCapture() override;
    Point ClientToScreen(Point point) const override;
    Point ScreenToClient(Point point) const override;
    std::optional<Point> GetCursorPos() const override;
    void SetFocus() override;

    /// Without a window a stand-in is made, which only keeps its values and its place.
    std::unique_ptr<ComboBox> CreateMonthList() override;
    std::unique_ptr<TextBox> CreateYearText() override;
    std::unique_ptr<ScrollBar> CreateYearSpinner() override;
    std::unique_ptr<ScrollBar> CreateDateScroll() override;

    /// For `WM_SETCURSOR` over the client area: true when it has set a pointer other than the
    /// default one.
    bool OnSetCursor();
    /// Takes what the selectors tell the window, and tells the calendar what the user has done with
    /// them: at once before any key or press on the calendar, else from the message loop, so that a
    /// handler may destroy the window and the calendar. True when the message needs nothing more;
    /// then this object and the calendar may be gone.
    bool OnChildMessage(VmCalendar& calendar, UINT message, WPARAM w, LPARAM l, LRESULT& result);
    /// Moves the focus from the window to its selectors, one after the other, or back: false when
    /// it has to go on to another control.
    bool FocusNext(bool forward) const;
    /// Draws the visible selectors, windows or stand-ins, on something other than the window.
    void PaintChildren(HDC context);

protected:
    /// `OLEDropMode` has been set, or a window has come for it.
    virtual void OnDropModeChanged() {}

private:
    struct ChildSite Site();
    NativeChild* ChildOf(HWND window) const;

    HWND m_window = nullptr;
    Size m_extent;
    PictureRef m_icon;
    HCURSOR m_madeCursor = nullptr;  // of an icon that has only pixels
    std::int32_t m_dropMode = 0;
    std::int16_t m_pointer = 0;
    bool m_enabled = true;
    bool m_rightToLeft = false;
    SelectorInput m_input;
    std::vector<NativeChild*> m_children;  // those that live
};

}  // namespace velmora
