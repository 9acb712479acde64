#pragma once

#include "calendar/CProperties.h"
#include "calendar/VmCalendar.h"
#include "platform/Platform.h"

#include <cstdint>
#include <span>

namespace velmora {

class VmCalDropDown;

/// The top-level window of the form: borderless, topmost, never active, without a task-bar entry.
/// The calendar fills it.
class FormWindow {
public:
    virtual ~FormWindow() = default;

    /// Shows it at that place of the screen, above all other windows, without taking the focus.
    virtual void Show(const Rect& screen) = 0;
    virtual void Hide() = 0;
    /// Of the owner's screen, what is free for windows.
    virtual Rect WorkArea() const = 0;
    /// Of all screens together. No window is larger, as systems have no room for it.
    virtual Size DesktopSize() const = 0;
    /// While on, the host calls `DropDownForm::OnTimer` some thirty times a second.
    virtual void Timer(bool on) = 0;
};

/// The one drop-down window of all date boxes, with its calendar. The box that opened it is its
/// owner until it is closed; without an owner whatever the calendar reports is dropped. Nothing
/// runs while it is closed.
class DropDownForm {
public:
    /// `platform` is that of the calendar in the window; its container counts in pixels. The
    /// calendar is made here.
    DropDownForm(const Platform& platform, FormWindow& window);

    /// `VmCalendar1`. The host passes it what happens to its window, except paints.
    VmCalendar& Calendar() noexcept { return m_calendar; }
    /// `VmCalendar::OnPaint`, without the first paint's `MonthChanged` reaching a box.
    bool OnPaint(SurfaceHandle surface, std::span<const Rect> exposed);

    VmCalDropDown* GetOwner() const noexcept { return m_owner; }
    void SetOwner(VmCalDropDown* owner) noexcept { m_owner = owner; }
    /// Loads the calendar with a box's properties and decorations; nothing of the last box stays.
    void Load(const CProperties& properties);
    void Show(const Rect& screen);
    Rect WorkArea() const { return m_window.WorkArea(); }
    Size DesktopSize() const { return m_window.DesktopSize(); }
    /// Hides the window, ends a press in the calendar, gives the mouse back and stops the timer.
    void Close();

    /// Follows the pointer from now on: over the calendar it has the mouse as usual, elsewhere the
    /// calendar has the capture, so that a press anywhere arrives at it.
    void TrackMouse();
    void OnTimer();

    /// The user has picked that day of the calendar by a screen reader: closes, as a click does.
    void PickDay(DayNumber day);

private:
    void ConnectDates();
    void ConnectInput();
    void RelayKeyDown(std::int16_t& keyCode, std::int16_t& shift);
    void RelayMouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void RelayMouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    void TakePress(std::int16_t button, float x, float y);
    void TakeRelease(std::int16_t button, float x, float y);
    bool IsInside(float x, float y) const;
    bool IsCursorInside(bool& known) const;
    void NoteDayChosen();

    Platform m_platform;
    FormWindow& m_window;
    VmCalendar m_calendar;
    VmCalDropDown* m_owner = nullptr;
    bool m_painting = false;
    bool m_cursorInside = false;     // the pointer has been over the calendar since it opened
    std::int16_t m_buttonsHeld = 0;  // since a press on the calendar
    bool m_dayChosen = false;        // a day has been picked with the left one
};

}  // namespace velmora
