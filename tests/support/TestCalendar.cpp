#include "tests/support/TestCalendar.h"

#include <algorithm>
#include <cstdio>

namespace velmora::test {

std::string Joined(const std::vector<std::string>& log) {
    std::string text;
    for (const std::string& entry : log) {
        if (!entry.empty()) text += (text.empty() ? "" : ", ") + entry;
    }
    return text;
}

std::string IsoDate(DayNumber day) {
    const CivilDate civil = CivilOf(day);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", civil.year, civil.month, civil.day);
    return text;
}

static std::string ValueText(Date date) { return IsoDate(DayOf(date)); }
static std::string ValueText(auto number) { return std::to_string(number); }

template <class Interface>
class TestCalendar::Child : public Interface {
public:
    Child(FakeChild& child, Size size) : m_child(child), m_size(size) {}
    WindowHandle Handle() const override { return WindowHandle{8}; }
    Size Extent() const override { return m_size; }
    void Move(const Rect& rect) override { m_child.rect = rect; }
    void Visible(bool visible) override { m_child.visible = visible; }

protected:
    FakeChild& m_child;
    Size m_size;
};

class TestCalendar::List : public Child<ComboBox> {
public:
    using Child::Child;
    void Items(std::span<const std::string> items) override {
        m_child.items = Joined({items.begin(), items.end()});
    }
    int ListIndex() const override { return std::stoi(m_child.shown); }
    void ListIndex(int index) override { m_child.shown = std::to_string(index); }
    bool DroppedDown() const override { return m_child.dropped; }
};

class TestCalendar::Box : public Child<TextBox> {
public:
    using Child::Child;
    std::string Text() const override { return m_child.shown; }
    void Text(const std::string& text) override { m_child.shown = text; }
};

class TestCalendar::Bar : public Child<ScrollBar> {
public:
    using Child::Child;
    void Position(int minimum, int maximum, int value) override {
        m_child.shown =
            std::to_string(minimum) + ".." + std::to_string(maximum) + ": " + std::to_string(value);
    }
};

TestCalendar::TestCalendar(Size size, Drawing* other)
    : dates(std::make_shared<DateLocale>(), [this] { return now; }), client(size) {
    calendar =
        std::make_unique<VmCalendar>(Platform{other ? *other : drawing, *this, dates, *this});
    ConnectLog();
    calendar->InitProperties();
    calendar->OnWindowChanged();
}

void TestCalendar::ConnectLog() {
    const auto note = [this](auto& event, std::string name, int shown = 2) {
        event.Connect([this, name, shown](auto&... values) {
            std::string text = name;
            int left = shown;
            ((left-- > 0 ? void(text += ' ' + ValueText(values)) : void()), ...);
            Note(text);
        });
    };
    CalendarEvents& events = calendar->Events();
    note(events.DateChanged, "DateChanged");
    note(events.DayChanged, "DayChanged");
    note(events.MonthChanged, "MonthChanged");
    note(events.YearChanged, "YearChanged");
    note(events.KeyDown, "KeyDown");
    note(events.KeyUp, "KeyUp");
    note(events.KeyPress, "KeyPress");
    note(events.MouseDown, "MouseDown", 1);
    note(events.MouseMove, "MouseMove", 1);
    note(events.MouseUp, "MouseUp", 1);
    note(events.Click, "Click");
    note(events.DblClick, "DblClick");
}

/// Repaints are logged when the next entry or the end comes: by cells where they are cells.
void TestCalendar::CollectRepaints() {
    for (const auto& rect : drawing.invalidated) {
        if (!rect) {
            log.push_back("repaint");
            continue;
        }
        const auto day = calendar ? calendar->DateFromPoint(static_cast<float>(rect->left),
                                                            static_cast<float>(rect->top))
                                  : std::nullopt;
        log.push_back(day ? "repaint cell " + IsoDate(*day) : "repaint band");
    }
    drawing.invalidated.clear();
}

void TestCalendar::Note(const std::string& text) {
    CollectRepaints();
    log.push_back(text);
}

std::vector<std::string> TestCalendar::TakeLog() {
    CollectRepaints();
    return std::exchange(log, {});
}

const std::vector<std::string>& TestCalendar::Paint() {
    return Paint({0, 0, client.width, client.height});
}

const std::vector<std::string>& TestCalendar::Paint(const Rect& exposed) {
    calendar->OnPaint(StrictDrawing::kWindowSurface, {&exposed, 1});
    return drawing.FaultsAfterPaint();
}

Point CenterOf(VmCalendar& calendar, DayNumber day) {
    CalendarState state;
    state.shownDate = calendar.ShownDate();
    state.firstDayOfWeek = calendar.FirstDayOfWeek();
    state.showWeekend = calendar.ShowWeekend();
    const auto cell = GridOf(state, calendar.Layout()).DayCellRect(day);
    if (!cell) return {-1000, -1000};
    return {(cell->left + cell->right) / 2, (cell->top + cell->bottom) / 2};
}

void TestCalendar::Press(DayNumber day) {
    const Point at = CenterOf(day);
    calendar->OnMouseDown(1, 0, static_cast<float>(at.x), static_cast<float>(at.y));
}

void TestCalendar::Release(DayNumber day) {
    const Point at = CenterOf(day);
    calendar->OnMouseUp(1, 0, static_cast<float>(at.x), static_cast<float>(at.y));
}

std::string TestCalendar::Key(std::int16_t keyCode, std::int16_t shift) {
    calendar->OnKeyDown(keyCode, shift);
    return std::to_string(keyCode);
}

std::string TestCalendar::BrokenInvariant() {
    const VmCalendar& c = *calendar;
    const DayNumber first = FirstOfMonth(DayOf(c.ShownDate()));
    if (c.Days()->Count() != DaysInMonth(static_cast<std::int16_t>(MonthOf(first)),
                                         static_cast<std::int16_t>(YearOf(first)))) {
        return "Days has another length than the shown month";
    }
    for (std::int16_t i = 1; i <= c.Days()->Count(); ++i) {
        if (DayOf(c.Days()->Item(i)->DayDate()) != first + i - 1) return "Days is another month";
    }
    const DayNumber minimum = DayOf(c.DateMin());
    const DayNumber maximum = DayOf(c.DateMax());
    const DayNumber selected = DayOf(c.SelectedDate());
    if (minimum != FirstOfMonth(minimum)) return "DateMin is no first of a month";
    if (maximum != LastOfMonth(maximum)) return "DateMax is no last of a month";
    if (selected < minimum || selected > maximum) return "DateValue is outside the limits";
    return drawing.faults.empty() ? "" : drawing.faults.front();
}

void TestCalendar::PropertyChanged(std::string_view name) {
    Note("notify " + std::string(name));
    if (whenNotified) whenNotified(std::string(name));
}

std::unique_ptr<ComboBox> TestCalendar::CreateMonthList() {
    ++childrenMade;
    return std::make_unique<List>(monthList, Size{90, 21});
}
std::unique_ptr<TextBox> TestCalendar::CreateYearText() {
    ++childrenMade;
    return std::make_unique<Box>(yearText, Size{40, 19});
}
std::unique_ptr<ScrollBar> TestCalendar::CreateYearSpinner() {
    ++childrenMade;
    return std::make_unique<Bar>(yearSpinner, Size{17, 21});
}
std::unique_ptr<ScrollBar> TestCalendar::CreateDateScroll() {
    ++childrenMade;
    return std::make_unique<Bar>(dateScroll, Size{100, 17});
}

}  // namespace velmora::test
