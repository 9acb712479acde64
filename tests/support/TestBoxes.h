#pragma once

#include "dropdown/VmCalDropDown.h"
#include "tests/support/TestCalendar.h"

namespace velmora::test {

/// Two date boxes on one form with the one drop-down window, at noon of 15 March 2020. The log has
/// the boxes' events as "A CloseUp", their notifications, and the window.
class TestBoxes : private FormWindow {
public:
    explicit TestBoxes(Drawing* other = nullptr)  // as with a calendar
        : drawn(other ? *other : drawing),
          dates(std::make_shared<DateLocale>(), [] { return DateOf(Day(2020, 3, 15), 0.5); }) {
        form.reset(new DropDownForm({drawn, calendarWindow, dates, calendarHost}, *this));
        Make(a, "A", {100, 50, 250, 72});
        Make(b, "B", {400, 50, 550, 72});
    }

    struct Box {
        std::unique_ptr<FakeWindow> window;
        FakeHost host;
        std::unique_ptr<VmCalDropDown> control;
    };

    std::vector<std::string> TakeLog() { return std::exchange(log, {}); }
    std::string Key(Box& box, int keyCode, int shift = 0) {  // the key code on return
        auto key = static_cast<std::int16_t>(keyCode);
        auto state = static_cast<std::int16_t>(shift);
        box.control->OnKeyDown(key, state);
        return std::to_string(key);
    }
    void PressCalendar(float x, float y) { form->Calendar().OnMouseDown(1, 0, x, y); }
    void ReleaseCalendar(float x, float y) { form->Calendar().OnMouseUp(1, 0, x, y); }
    /// A press and release of the left button on the open calendar.
    void ClickCalendar(Point at) {
        PressCalendar(static_cast<float>(at.x), static_cast<float>(at.y));
        ReleaseCalendar(static_cast<float>(at.x), static_cast<float>(at.y));
    }
    /// As that of `TestCalendar`.
    std::string BrokenInvariant() {
        for (const Box* each : {&a, &b}) {
            if (!each->control) continue;
            const VmCalDropDown& c = *each->control;
            const DayNumber day = DayOf(c.DateValue());
            if (day < DayOf(c.DateMin()) || day > DayOf(c.DateMax())) return "DateValue is outside";
            if (c.Text() != dates.Format(c.DateValue(), c.DateFormat()))
                return "Text " + c.Text() + " at " + IsoDate(day);
            const bool owns = form->GetOwner() == &c;
            if (c.DropDownState() && (!owns || (visible && !c.Enabled())))
                return "open, but must not";
            if (!owns && MonthsBetween(DayOf(c.Days()->Item(1)->DayDate()), day) != 0)
                return "Days of another month";
        }
        const bool open = form->GetOwner() != nullptr;
        if (!open && (visible || timer || calendarWindow.captured)) return "something still runs";
        return drawing.faults.empty() ? "" : drawing.faults.front();
    }
    Point CenterOf(DayNumber day) { return test::CenterOf(form->Calendar(), day); }
    /// The pointer goes there on the screen, and the timer ticks if it runs.
    void PointAt(Point screen) {
        calendarWindow.cursor = screen;
        if (timer) form->OnTimer();
    }

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
    void Make(Box& box, const std::string& name, Rect screen) {
        box.window = std::make_unique<FakeWindow>(screen);
        box.control =
            std::make_unique<VmCalDropDown>(Platform{drawn, *box.window, dates, box.host}, *form);
        box.window->focused = [&box] { box.control->OnGotFocus(); };
        const auto note = [this, name](const std::string& text) {
            log.push_back(name + ' ' + text);
        };
        DropDownEvents& events = box.control->Events();
        events.CloseUp.Connect([note] { note("CloseUp"); });
        events.DropDown.Connect([note](bool&) { note("DropDown"); });
        events.KeyDown.Connect(
            [note](std::int16_t& key, std::int16_t&) { note("KeyDown " + std::to_string(key)); });
        box.control->InitProperties();
        box.host.whenNotified = [this](const std::string& key) { log.push_back("notify " + key); };
    }
    void Show(const Rect& to) override {
        calendarWindow.screen = to;
        visible = true;
        const Size size = calendarWindow.ClientSize();
        log.push_back("show " + std::to_string(to.left) + ',' + std::to_string(to.top) + ' ' +
                      std::to_string(size.width) + 'x' + std::to_string(size.height));
    }
    void Hide() override {
        if (std::exchange(visible, false)) log.push_back("hide");
    }
    Rect WorkArea() const override { return {0, 0, 640, 480}; }
    Size DesktopSize() const override { return {640, 480}; }
    void Timer(bool on) override { timer = on; }
};

}  // namespace velmora::test
