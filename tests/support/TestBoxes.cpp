#include "tests/support/TestBoxes.h"

namespace velmora::test {

TestBoxes::TestBoxes(Drawing* other)
    : drawn(other ? *other : drawing),
      dates(std::make_shared<DateLocale>(), [] { return DateOf(Day(2020, 3, 15), 0.5); }) {
    form.reset(new DropDownForm({drawn, calendarWindow, dates, calendarHost}, *this));
    Make(a, "A", {100, 50, 250, 72});
    Make(b, "B", {400, 50, 550, 72});
}

TestBoxes::~TestBoxes() = default;

void TestBoxes::Make(Box& box, const std::string& name, Rect screen) {
    box.window = std::make_unique<FakeWindow>(screen);
    box.control =
        std::make_unique<VmCalDropDown>(Platform{drawn, *box.window, dates, box.host}, *form);
    box.window->focused = [&box] { box.control->OnGotFocus(); };
    const auto note = [this, name](const std::string& text) { log.push_back(name + ' ' + text); };
    DropDownEvents& events = box.control->Events();
    events.CloseUp.Connect([note] { note("CloseUp"); });
    events.DropDown.Connect([note](bool&) { note("DropDown"); });
    events.KeyDown.Connect(
        [note](std::int16_t& key, std::int16_t&) { note("KeyDown " + std::to_string(key)); });
    box.control->InitProperties();
    box.host.whenNotified = [this](const std::string& key) { log.push_back("notify " + key); };
}

void TestBoxes::Show(const Rect& screen) {
    calendarWindow.screen = screen;
    visible = true;
    log.push_back("show " + std::to_string(screen.left) + ',' + std::to_string(screen.top) + ' ' +
                  std::to_string(screen.right - screen.left) + 'x' +
                  std::to_string(screen.bottom - screen.top));
}

void TestBoxes::Hide() {
    if (std::exchange(visible, false)) log.push_back("hide");
}

std::string TestBoxes::Key(Box& box, int keyCode, int shift) {
    auto key = static_cast<std::int16_t>(keyCode);
    auto state = static_cast<std::int16_t>(shift);
    box.control->OnKeyDown(key, state);
    return std::to_string(key);
}

void TestBoxes::PressCalendar(float x, float y) { form->Calendar().OnMouseDown(1, 0, x, y); }
void TestBoxes::ReleaseCalendar(float x, float y) { form->Calendar().OnMouseUp(1, 0, x, y); }

void TestBoxes::ClickCalendar(Point at) {
    PressCalendar(static_cast<float>(at.x), static_cast<float>(at.y));
    ReleaseCalendar(static_cast<float>(at.x), static_cast<float>(at.y));
}

std::string TestBoxes::BrokenInvariant() {
    for (const Box* each : {&a, &b}) {
        if (!each->control) continue;
        const VmCalDropDown& c = *each->control;
        const DayNumber day = DayOf(c.DateValue());
        if (day < DayOf(c.DateMin()) || day > DayOf(c.DateMax())) return "DateValue is outside";
        if (c.Text() != dates.Format(c.DateValue(), c.DateFormat()))
            return "Text " + c.Text() + " at " + IsoDate(day);
        const bool owns = form->GetOwner() == &c;
        if (c.DropDownState() && (!owns || (visible && !c.Enabled()))) return "open, but must not";
        if (!owns && MonthsBetween(DayOf(c.Days()->Item(1)->DayDate()), day) != 0)
            return "Days of another month";
    }
    const bool open = form->GetOwner() != nullptr;
    if (!open && (visible || timer || calendarWindow.captured)) return "something still runs";
    return drawing.faults.empty() ? "" : drawing.faults.front();
}

void TestBoxes::PointAt(Point screen) {
    calendarWindow.cursor = screen;
    if (timer) form->OnTimer();
}

}  // namespace velmora::test
