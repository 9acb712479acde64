#pragma once

#include "calendar/VmCalendar.h"
#include "tests/support/StrictDrawing.h"

#include <cstdio>

namespace velmora::test {

inline DayNumber Day(int year, int month, int day) { return DayFromCivil(year, month, day); }

inline std::string IsoDate(DayNumber day) {
    const CivilDate civil = CivilOf(day);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", civil.year, civil.month, civil.day);
    return text;
}

/// What is not empty of a log, separated by ", ".
inline std::string Joined(std::span<const std::string> log) {
    std::string text;
    for (const std::string& entry : log) {
        if (!entry.empty()) text += (text.empty() ? "" : ", ") + entry;
    }
    return text;
}

/// What has been done to a child control.
struct FakeChild {
    Rect rect;
    bool visible = false;
    std::string shown;  // list index, text, or "minimum..maximum: value"
    bool dropped = false;
    std::string items;
};

template <class Interface>
class FakeControl : public Interface {
public:
    FakeControl(FakeChild& child, Size size) : m_child(child), m_size(size) {}
    WindowHandle Handle() const override { return WindowHandle{8}; }
    Size Extent() const override { return m_size; }
    void Move(const Rect& rect) override { m_child.rect = rect; }
    void Visible(bool visible) override { m_child.visible = visible; }

protected:
    FakeChild& m_child;
    Size m_size;
};

class FakeList : public FakeControl<ComboBox> {
public:
    using FakeControl::FakeControl;
    void Items(std::span<const std::string> items) override { m_child.items = Joined(items); }
    int ListIndex() const override { return std::stoi(m_child.shown); }
    void ListIndex(int index) override { m_child.shown = std::to_string(index); }
    bool DroppedDown() const override { return m_child.dropped; }
};

class FakeText : public FakeControl<TextBox> {
public:
    using FakeControl::FakeControl;
    std::string Text() const override { return m_child.shown; }
    void Text(const std::string& text) override { m_child.shown = text; }
};

class FakeBar : public FakeControl<ScrollBar> {
public:
    using FakeControl::FakeControl;
    void Position(int minimum, int maximum, int value) override {
        m_child.shown =
            std::to_string(minimum) + ".." + std::to_string(maximum) + ": " + std::to_string(value);
    }
};

/// A window at a place of the screen, which keeps what it is given.
class FakeWindow : public Windowing {
public:
    explicit FakeWindow(Rect place) : screen(place) {}

    Rect screen;
    bool enabled = true;
    double pixelsPerInch = 96;
    bool rightToLeft = false;
    bool captured = false;
    std::optional<Point> cursor;
    std::function<void()> focused;
    std::function<void()> repeated;
    FakeChild monthList, yearText, yearSpinner, dateScroll;
    int childrenMade = 0;

    WindowHandle Handle() const override {
        return static_cast<WindowHandle>(reinterpret_cast<std::uintptr_t>(this));
    }
    Size ClientSize() const override {
        return {screen.right - screen.left, screen.bottom - screen.top};
    }
    double PixelsPerInch() const override { return pixelsPerInch; }
    bool IsRightToLeft() const override { return rightToLeft; }
    bool Enabled() const override { return enabled; }
    void Enabled(bool value) override { enabled = value; }
    bool TakesInput() const override { return enabled; }
    std::int16_t MousePointer() const override { return m_pointer; }
    void MousePointer(std::int16_t pointer) override { m_pointer = pointer; }
    PictureRef MouseIcon() const override { return m_icon; }
    void MouseIcon(PictureRef icon) override { m_icon = std::move(icon); }
    std::int32_t OLEDropMode() const override { return m_dropMode; }
    void OLEDropMode(std::int32_t mode) override { m_dropMode = mode; }
    void SetFocus() override {
        if (focused) focused();
    }
    void SetCapture() override { captured = true; }
    void ReleaseCapture() override { captured = false; }
    void Repeat(std::function<void()> act) override { repeated = std::move(act); }
    Point ClientToScreen(Point p) const override { return {p.x + screen.left, p.y + screen.top}; }
    Point ScreenToClient(Point p) const override { return {p.x - screen.left, p.y - screen.top}; }
    std::optional<Point> GetCursorPos() const override { return cursor; }
    template <class Control>
    using Made = std::unique_ptr<Control>;
    Made<ComboBox> CreateMonthList() override { return Make<FakeList>(monthList, {90, 21}); }
    Made<TextBox> CreateYearText() override { return Make<FakeText>(yearText, {40, 19}); }
    Made<ScrollBar> CreateYearSpinner() override { return Make<FakeBar>(yearSpinner, {17, 21}); }
    Made<ScrollBar> CreateDateScroll() override { return Make<FakeBar>(dateScroll, {100, 17}); }

private:
    template <class Control>
    std::unique_ptr<Control> Make(FakeChild& child, Size size) {
        ++childrenMade;
        return std::make_unique<Control>(child, size);
    }
    std::int16_t m_pointer = 0;
    PictureRef m_icon;
    std::int32_t m_dropMode = 0;
};

class FakeHost : public Hosting {
public:
    FakeHost() { m_font->name = "DejaVu Sans"; }
    std::int16_t scaleMode = 3;
    std::function<void(const std::string&)> whenNotified;  // of a property

    void PropertyChanged(std::string_view name) override {
        if (whenNotified) whenNotified(std::string(name));
    }
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

/// Tells of every event of a calendar or a date box by its name, without those of drags.
template <class Events, class Tell>
void ForEachEvent(Events& events, Tell tell) {
    tell(events.DateChanged, "DateChanged");
    tell(events.DayChanged, "DayChanged");
    tell(events.MonthChanged, "MonthChanged");
    tell(events.YearChanged, "YearChanged");
    tell(events.KeyDown, "KeyDown");
    tell(events.KeyPress, "KeyPress");
    tell(events.KeyUp, "KeyUp");
    tell(events.MouseDown, "MouseDown");
    tell(events.MouseMove, "MouseMove");
    tell(events.MouseUp, "MouseUp");
    if constexpr (requires { events.Click; }) {
        tell(events.Click, "Click");
        tell(events.DblClick, "DblClick");
    } else {
        tell(events.CloseUp, "CloseUp");
        tell(events.DropDown, "DropDown");
    }
}

/// The middle of a day's cell, or a place far away from all when it has none.
inline Point CenterOf(VmCalendar& calendar, DayNumber day) {
    const auto cell = calendar.Describe(day);
    if (!cell) return {-1000, -1000};
    const auto [left, top, right, bottom] = cell->place;
    return {(left + right - 1) / 2, (top + bottom - 1) / 2};
}

/// Every invariant that must hold after any operation; empty when all do.
inline std::string BrokenInvariantOf(const VmCalendar& c) {
    const DayNumber first = FirstOfMonth(DayOf(c.ShownDate()));
    if (first + c.Days()->Count() - 1 != LastOfMonth(first)) return "Days has another length";
    for (std::int16_t i = 1; i <= c.Days()->Count(); ++i) {
        if (DayOf(c.Days()->Item(i)->DayDate()) != first + i - 1) return "another month";
    }
    const DayNumber minimum = DayOf(c.DateMin()), maximum = DayOf(c.DateMax());
    const DayNumber selected = DayOf(c.SelectedDate());
    if (minimum != FirstOfMonth(minimum)) return "DateMin is no first of a month";
    if (maximum != LastOfMonth(maximum)) return "DateMax is no last of a month";
    if (selected < minimum || selected > maximum) return "DateValue is outside the limits";
    return {};
}

/// Everything around a calendar: one log takes events, notifications and repaints in order.
class TestCalendar : public FakeWindow, private FakeHost {
public:
    /// Sunday 15 March 2020 at noon is now, unless the test moves it. It is drawn with `drawing`,
    /// or with another one that outlives it.
    explicit TestCalendar(Size size = {252, 202}, Drawing* other = nullptr)
        : FakeWindow({0, 0, size.width, size.height}),
          dates(std::make_shared<DateLocale>(), [this] { return now; }) {
        calendar =
            std::make_unique<VmCalendar>(Platform{other ? *other : drawing, *this, dates, *this});
        ForEachEvent(calendar->Events(), [this](auto& event, std::string name) {
            event.Connect([this, name](auto&... values) {
                std::string text = name;
                int left = name.starts_with("Mouse") ? 1 : 2;
                ((left-- > 0 ? void(text += ' ' + ValueText(values)) : void()), ...);
                Note(text);
            });
        });
        calendar->InitProperties();
        calendar->OnWindowChanged();
    }

    /// The log since the last call: "DateChanged 2020-03-16", "notify DateValue", "repaint",
    /// "repaint cell 2020-03-16", ...
    std::vector<std::string> TakeLog() {
        CollectRepaints();
        return std::exchange(log, {});
    }
    /// Paints all and returns the faults that the drawing found.
    const std::vector<std::string>& Paint() { return Paint({0, 0, screen.right, screen.bottom}); }
    const std::vector<std::string>& Paint(const Rect& exposed) {
        calendar->OnPaint(StrictDrawing::kWindowSurface, {&exposed, 1});
        return drawing.FaultsAfterPaint();
    }
    void Press(DayNumber day) {
        const Point at = CenterOf(day);
        calendar->OnMouseDown(1, 0, static_cast<float>(at.x), static_cast<float>(at.y));
    }
    void Release(DayNumber day) {
        const Point at = CenterOf(day);
        calendar->OnMouseUp(1, 0, static_cast<float>(at.x), static_cast<float>(at.y));
    }
    void Clicks(DayNumber day) { Press(day), Release(day); }
    Point CenterOf(DayNumber day) { return test::CenterOf(*calendar, day); }
    std::string Key(std::int16_t keyCode, std::int16_t shift = 0) {  // the key code on return
        calendar->OnKeyDown(keyCode, shift);
        return std::to_string(keyCode);
    }
    std::string BrokenInvariant() {
        for (const DayDescription& each : calendar->Describe().days) {
            const auto x = static_cast<float>(each.place.left);
            const auto y = static_cast<float>(each.place.top);
            if (each.place.Width() < 1 || each.place.Height() < 1) continue;  // no room
            if (calendar->DateFromPoint(x, y) != each.day) return "a day is described elsewhere";
            if (each.isSelected && each.day != DayOf(calendar->SelectedDate())) {
                return "another day is described as selected";
            }
        }
        const std::string broken = BrokenInvariantOf(*calendar);
        return broken.empty() && !drawing.faults.empty() ? drawing.faults.front() : broken;
    }

    using FakeHost::whenNotified;
    Date now = DateOf(Day(2020, 3, 15), 0.5);
    StrictDrawing drawing;
    Dates dates;
    std::unique_ptr<VmCalendar> calendar;
    std::vector<std::string> log;

private:
    static std::string ValueText(Date date) { return IsoDate(DayOf(date)); }
    static std::string ValueText(auto number) { return std::to_string(number); }

    /// Repaints are logged when the next entry or the end comes: by cells where they are cells.
    void CollectRepaints() {
        for (const auto& rect : std::exchange(drawing.invalidated, {})) {
            const auto day = calendar && rect
                                 ? calendar->DateFromPoint(static_cast<float>(rect->left),
                                                           static_cast<float>(rect->top))
                                 : std::nullopt;
            log.push_back(!rect ? "repaint"
                          : day ? "repaint cell " + IsoDate(*day)
                                : "repaint band");
        }
    }
    void Note(const std::string& text) {
        CollectRepaints();
        log.push_back(text);
    }
    void PropertyChanged(std::string_view name) override {
        Note("notify " + std::string(name));
        FakeHost::PropertyChanged(name);
    }
};

}  // namespace velmora::test
