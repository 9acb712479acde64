#pragma once

#include "calendar/VmCalendar.h"
#include "tests/support/StrictDrawing.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora::test {

/// Keeps what a window is given.
class FakeWindowing : public Windowing {
public:
    bool enabled = true;

    double PixelsPerInch() const override { return 96; }
    bool Enabled() const override { return enabled; }
    void Enabled(bool value) override { enabled = value; }
    bool TakesInput() const override { return enabled; }
    std::int16_t MousePointer() const override { return m_pointer; }
    void MousePointer(std::int16_t pointer) override { m_pointer = pointer; }
    PictureRef MouseIcon() const override { return m_icon; }
    void MouseIcon(PictureRef icon) override { m_icon = std::move(icon); }
    std::int32_t OLEDropMode() const override { return m_dropMode; }
    void OLEDropMode(std::int32_t mode) override { m_dropMode = mode; }
    void SetFocus() override {}

private:
    std::int16_t m_pointer = 0;
    PictureRef m_icon;
    std::int32_t m_dropMode = 0;
};

class FakeHosting : public Hosting {
public:
    FakeHosting() { m_font->name = "DejaVu Sans"; }

    std::int16_t scaleMode = 3;

    FontRef AmbientFont() const override { return m_font; }
    std::optional<std::int16_t> ContainerScaleMode() const override { return scaleMode; }
    std::optional<std::int16_t> ParentScaleMode() const override { return std::nullopt; }
    std::int32_t Drag(const DataRef&, std::int32_t, const DragEvents&) override {
        return kDropNone;
    }
    void ShowAboutBox(const AboutText&) override {}

private:
    FontRef m_font = std::make_shared<StdFont>();
};

/// Records what a calendar does to a child control.
struct FakeChild {
    Rect rect;
    bool visible = false;
    std::string shown;  // list index, text, or "minimum..maximum: value"
    bool dropped = false;
    std::string items;
};

/// The middle of a day's cell, or a place far away from all when it has none.
Point CenterOf(VmCalendar& calendar, DayNumber day);

/// Everything around a calendar: one log takes events, notifications and repaints in order.
class TestCalendar : private FakeWindowing, private FakeHosting {
public:
    using FakeWindowing::enabled;

    /// Sunday 15 March 2020 at noon is now, unless the test moves it. It is drawn with `drawing`,
    /// or with another one that outlives it.
    explicit TestCalendar(Size size = {252, 202}, Drawing* other = nullptr);

    /// The log since the last call: "DateChanged 2020-03-16", "notify DateValue", "repaint",
    /// "repaint cell 2020-03-16", ...
    std::vector<std::string> TakeLog();
    /// Paints all and returns the faults that the drawing found.
    const std::vector<std::string>& Paint();
    const std::vector<std::string>& Paint(const Rect& exposed);
    void Press(DayNumber day);
    void Release(DayNumber day);
    void Clicks(DayNumber day) { Press(day), Release(day); }
    Point CenterOf(DayNumber day) { return test::CenterOf(*calendar, day); }
    std::string Key(std::int16_t keyCode, std::int16_t shift = 0);  // the key code on return
    /// Every invariant that must hold after any operation; empty when all do.
    std::string BrokenInvariant();

    Date now = DateOf(DayFromCivil(2020, 3, 15), 0.5);
    StrictDrawing drawing;
    Dates dates;
    std::unique_ptr<VmCalendar> calendar;
    FakeChild monthList, yearText, yearSpinner, dateScroll;
    int childrenMade = 0;
    Size client;
    std::vector<std::string> log;
    std::function<void(const std::string&)> whenNotified;  // of a property
    bool captured = false;

private:
    template <class Interface>
    class Child;
    class List;
    class Box;
    class Bar;

    void ConnectLog();
    void CollectRepaints();
    void Note(const std::string& text);

    WindowHandle Handle() const override { return WindowHandle{7}; }
    Size ClientSize() const override { return client; }
    void SetCapture() override { captured = true, Note("capture"); }
    void ReleaseCapture() override { captured = false, Note("release capture"); }
    Point ClientToScreen(Point point) const override { return point; }
    Point ScreenToClient(Point point) const override { return point; }
    std::optional<Point> GetCursorPos() const override { return std::nullopt; }
    std::unique_ptr<ComboBox> CreateMonthList() override;
    std::unique_ptr<TextBox> CreateYearText() override;
    std::unique_ptr<ScrollBar> CreateYearSpinner() override;
    std::unique_ptr<ScrollBar> CreateDateScroll() override;

    void PropertyChanged(std::string_view name) override;
};

std::string IsoDate(DayNumber day);
/// What is not empty of a log, separated by ", ".
std::string Joined(const std::vector<std::string>& log);
inline DayNumber Day(int year, int month, int day) { return DayFromCivil(year, month, day); }

}  // namespace velmora::test
