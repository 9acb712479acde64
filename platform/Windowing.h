#pragma once

#include "platform/Drawing.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace velmora {

/// A native child control of a control's window. Made hidden and disabled with its parent.
/// Setting a value never tells the control that the user changed it.
class ChildControl {
public:
    virtual ~ChildControl() = default;

    virtual WindowHandle Handle() const = 0;
    /// Its own width and height in pixels, which `Move` keeps or changes.
    virtual Size Extent() const = 0;
    virtual void Move(const Rect& rect) = 0;
    virtual void Visible(bool visible) = 0;
};

/// A drop-down list of fixed items.
class ComboBox : public ChildControl {
public:
    virtual void Items(std::span<const std::string> items) = 0;
    virtual int ListIndex() const = 0;  // -1 when nothing is chosen
    virtual void ListIndex(int index) = 0;
    virtual bool DroppedDown() const = 0;
};

/// A one-line text box.
class TextBox : public ChildControl {
public:
    virtual std::string Text() const = 0;
    virtual void Text(const std::string& text) = 0;
};

class ScrollBar : public ChildControl {
public:
    /// Sets range and position in one go; a value outside the range is clamped.
    virtual void Position(int minimum, int maximum, int value) = 0;
};

/// The published properties that live on a control's window.
class WindowProperties {
public:
    virtual ~WindowProperties() = default;

    /// The window's own state; what it looks like depends on `Windowing::TakesInput`.
    virtual bool Enabled() const = 0;
    virtual void Enabled(bool enabled) = 0;
    /// 0 default, 1..15 the platform's pointers, 99 the mouse icon.
    virtual std::int16_t MousePointer() const = 0;
    virtual void MousePointer(std::int16_t pointer) = 0;
    virtual PictureRef MouseIcon() const = 0;
    virtual void MouseIcon(PictureRef icon) = 0;
};

/// One control's window: its state, its children, its place on the screen. Coordinates are pixels.
class Windowing : public WindowProperties {
public:
    virtual WindowHandle Handle() const = 0;
    virtual Size ClientSize() const = 0;
    virtual double PixelsPerInch() const = 0;
    /// Whether its surroundings run from right to left: then places are mirrored, as keys are.
    virtual bool IsRightToLeft() const = 0;

    /// Enabled, and so is every window around it.
    virtual bool TakesInput() const = 0;
    /// 0 none, 1 manual (events only), 2 automatic (the platform answers by itself).
    virtual std::int32_t OLEDropMode() const = 0;
    virtual void OLEDropMode(std::int32_t mode) = 0;

    /// Asks for the keyboard focus; the host tells the control when it has come.
    virtual void SetFocus() = 0;
    virtual void SetCapture() = 0;
    virtual void ReleaseCapture() = 0;
    /// Calls `act` as often as the system repeats for a button that is held, first after its longer
    /// delay, until it is told otherwise; null ends it. A host may leave it out.
    virtual void Repeat(std::function<void()> act) { static_cast<void>(act); }
    virtual Point ClientToScreen(Point point) const = 0;
    virtual Point ScreenToClient(Point point) const = 0;
    virtual std::optional<Point> GetCursorPos() const = 0;  // screen coordinates

    /// Children, made when they are first shown. Null when the window cannot have them.
    virtual std::unique_ptr<ComboBox> CreateMonthList() = 0;
    virtual std::unique_ptr<TextBox> CreateYearText() = 0;
    virtual std::unique_ptr<ScrollBar> CreateYearSpinner() = 0;
    virtual std::unique_ptr<ScrollBar> CreateDateScroll() = 0;
};

}  // namespace velmora
