#pragma once

#include "dropdown/VmCalDropDown.h"
#include "tests/support/TestCalendar.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora::test {

/// A window at a place of the screen.
class FakeWindow : public FakeWindowing {
public:
    explicit FakeWindow(Rect place) : screen(place) {}

    WindowHandle Handle() const override {
        return static_cast<WindowHandle>(reinterpret_cast<std::uintptr_t>(this));
    }
    Size ClientSize() const override {
        return {screen.right - screen.left, screen.bottom - screen.top};
    }
    void SetCapture() override { captured = true; }
    void ReleaseCapture() override { captured = false; }
    Point ClientToScreen(Point p) const override { return {p.x + screen.left, p.y + screen.top}; }
    Point ScreenToClient(Point p) const override { return {p.x - screen.left, p.y - screen.top}; }
    std::optional<Point> GetCursorPos() const override { return cursor; }
    std::unique_ptr<ComboBox> CreateMonthList() override { return nullptr; }
    std::unique_ptr<TextBox> CreateYearText() override { return nullptr; }
    std::unique_ptr<ScrollBar> CreateYearSpinner() override { return nullptr; }
    std::unique_ptr<ScrollBar> CreateDateScroll() override { return nullptr; }
    void SetFocus() override {
        if (focused) focused();
    }

    Rect screen;
    bool captured = false;
    std::optional<Point> cursor;
    std::function<void()> focused;
};

class FakeHost : public FakeHosting {
public:
    void PropertyChanged(std::string_view name) override {
        if (whenNotified) whenNotified(std::string(name));
    }

    std::function<void(const std::string&)> whenNotified;
};

/// Two date boxes on one form with the one drop-down window, at noon of 15 March 2020. The log has
/// the boxes' events as "A CloseUp", their notifications, and the window.
class TestBoxes : private FormWindow {
public:
    explicit TestBoxes(Drawing* other = nullptr);  // as with a calendar
    ~TestBoxes() override;

    struct Box {
        std::unique_ptr<FakeWindow> window;
        FakeHost host;
        std::unique_ptr<VmCalDropDown> control;
    };

    std::vector<std::string> TakeLog() { return std::exchange(log, {}); }
    std::string Key(Box& box, int keyCode, int shift = 0);  // the key code on return
    /// A press and release of the left button on the open calendar.
    void ClickCalendar(Point at);
    void PressCalendar(float x, float y);
    void ReleaseCalendar(float x, float y);
    /// As that of `TestCalendar`.
    std::string BrokenInvariant();
    Point CenterOf(DayNumber day) { return test::CenterOf(form->Calendar(), day); }
    /// The pointer goes there on the screen, and the timer ticks if it runs.
    void PointAt(Point screen);

    std::vector<std::string> log;
    StrictDrawing drawing;
    Drawing& drawn;
    Dates dates;
    FakeWindow calendarWindow{{0, 0, 250, 200}};
    FakeHost calendarHost;
    bool visible = false;
    bool timer = false;
    std::unique_ptr<DropDownForm> form;
    Box a, b;

private:
    void Make(Box& box, const std::string& name, Rect screen);
    void Show(const Rect& screen) override;
    void Hide() override;
    Rect WorkArea() const override { return {0, 0, 640, 480}; }
    Size DesktopSize() const override { return {640, 480}; }
    void Timer(bool on) override { timer = on; }
};

}  // namespace velmora::test
