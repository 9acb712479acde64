#include "dropdown/DropDownPainter.h"
#include "platform/Keys.h"
#include "tests/support/Refusals.h"
#include "tests/support/TestBoxes.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

constexpr int kEnter = kKeyEnter, kAlt = kKeyAlt, kEscape = kKeyEscape, kPageDown = kKeyPageDown,
              kLeft = kKeyLeft, kUp = kKeyUp, kRight = kKeyRight, kDown = kKeyDown, kF4 = kKeyF4,
              kCtrl = kShiftCtrl, kAltHeld = kShiftAlt;
const DayNumber kMar15 = Day(2020, 3, 15);

class DropDown : public testing::Test {
protected:
    void Open() {
        test.Key(test.a, kF4);
        ASSERT_TRUE(test.visible);
        test.TakeLog();
    }
    DayNumber DateOfBox() { return DayOf(box.DateValue()); }

    TestBoxes test;
    VmCalDropDown& box = *test.a.control;
};

TEST_F(DropDown, BeginsWithThePresentAndItsDefaults) {
    EXPECT_EQ(box.DateValue(), DateOf(kMar15, 0.5));
    EXPECT_EQ(box.Text(), "3/15/2020");
    EXPECT_EQ(DayOf(box.DateMax()), Day(2700, 12, 31));
    EXPECT_EQ(DayOf(box.DateMin()), Day(1100, 1, 1));
    EXPECT_EQ(box.DropDownWidth(), 250);
    EXPECT_EQ(box.DropDownHeight(), 200);
    EXPECT_FALSE(test.timer || test.visible || test.calendarWindow.captured);
}

TEST_F(DropDown, OpensAndPicksWithExactEvents) {
    struct Case {
        const char* name;
        DayNumber clicked;
        Log events;
    };
    for (const Case& c : std::initializer_list<Case>{
             {"a day",
              Day(2020, 3, 18),
              {"A MouseDown", "A DateChanged 2020-03-18", "notify DateValue", "A DayChanged 18",
               "A MouseUp", "hide", "A CloseUp"}},
             {"the selected day",
              kMar15,
              {"A MouseDown", "A DayChanged 15", "A MouseUp", "hide", "A CloseUp"}},
             {"a neighbouring month",
              Day(2020, 4, 2),
              {"A MouseDown", "A DateChanged 2020-04-02", "notify DateValue", "A DayChanged 2",
               "A MonthChanged 4", "A MouseUp", "hide", "A CloseUp"}},
         }) {
        SCOPED_TRACE(c.name);
        TestBoxes fresh;
        fresh.TakeLog();
        EXPECT_EQ(fresh.Key(fresh.a, kF4), "0");
        EXPECT_EQ(fresh.TakeLog(), (Log{"A KeyDown 115", "A DropDown", "show 100,72 250x200"}));
        EXPECT_TRUE(fresh.a.control->DropDownState());
        fresh.ClickDay(c.clicked);
        EXPECT_EQ(fresh.TakeLog(), c.events);
        EXPECT_EQ(fresh.a.control->DateValue(), DateOf(c.clicked, 0.5));  // its time stays
        EXPECT_FALSE(fresh.timer || fresh.visible || fresh.calendarWindow.captured ||
                     fresh.a.control->DropDownState());
    }
}

TEST_F(DropDown, ANeighbouringDayOfTheSameNumberClosesToo) {
    box.DateValue(DateOf(Day(2020, 3, 29)));
    Open();
    test.ClickDay(Day(2020, 2, 29));
    EXPECT_FALSE(test.visible);
    EXPECT_EQ(DateOfBox(), Day(2020, 2, 29));
}

TEST_F(DropDown, ArrowsTurnTheMonthAndKeepItOpen) {
    box.Let(kMonthYearSelStyle, VmMonthSelArrows);
    Open();
    const Rect arrow = test.form->Calendar().Layout().arrows[static_cast<int>(Arrow::MonthForward)];
    const auto x = static_cast<float>(arrow.left + 2);
    const auto y = static_cast<float>(arrow.top + 2);
    box.Events().MonthChanged.Connect(
        [&](std::int16_t&) { box.Days()->Item(30)->Caption("rent"); });
    test.PressCalendar(x, y);
    test.ReleaseCalendar(x, y);
    EXPECT_EQ(test.TakeLog(), (Log{"A MouseDown", "A MonthChanged 4", "A MouseUp"}));
    EXPECT_TRUE(test.visible);
    EXPECT_EQ(test.form->Calendar().Days()->Item(30)->Caption(), "rent");
    EXPECT_EQ(DateOfBox(), kMar15);
    test.Key(test.a, kEscape);
    EXPECT_EQ(box.Days()->Count(), 31);  // those of its own month again
}

TEST_F(DropDown, StepsByKeysOpenAndClosed) {
    struct Case {
        const char* name;
        int key, shift;
        DayNumber from;
        bool showWeekend;
        Log events;
        DayNumber to;
    };
    for (const Case& c : std::initializer_list<Case>{
             {"day",
              kRight,
              0,
              kMar15,
              true,
              {"A DateChanged 2020-03-16", "A DayChanged 16"},
              Day(2020, 3, 16)},
             {"week over the month",
              kUp,
              0,
              Day(2020, 3, 3),
              true,
              {"A DateChanged 2020-02-25", "A DayChanged 25", "A MonthChanged 2"},
              Day(2020, 2, 25)},
             {"month",
              kPageDown,
              0,
              Day(2021, 1, 31),
              true,
              {"A DateChanged 2021-02-28", "A DayChanged 28", "A MonthChanged 2"},
              Day(2021, 2, 28)},
             {"year",
              kPageDown,
              kCtrl,
              Day(2020, 2, 29),
              true,
              {"A DateChanged 2021-02-28", "A DayChanged 28", "A YearChanged 2021"},
              Day(2021, 2, 28)},
             {"Friday to Monday",
              kRight,
              0,
              Day(2020, 3, 13),
              false,
              {"A DateChanged 2020-03-16", "A DayChanged 16"},
              Day(2020, 3, 16)},
             {"Monday to Friday",
              kLeft,
              0,
              Day(2020, 3, 16),
              false,
              {"A DateChanged 2020-03-13", "A DayChanged 13"},
              Day(2020, 3, 13)},
             {"beyond DateMax", kRight, 0, Day(2700, 12, 31), true, {}, Day(2700, 12, 31)},
             {"beyond DateMin", kLeft, 0, Day(1100, 1, 1), true, {}, Day(1100, 1, 1)},
         }) {
        for (const bool open : {false, true}) {
            SCOPED_TRACE(std::string(c.name) + (open ? ", open" : ", closed"));
            TestBoxes fresh;
            VmCalDropDown& control = *fresh.a.control;
            control.DateValue(DateOf(c.from, 0.25));
            control.Let(kShowWeekend, c.showWeekend);
            if (open) fresh.Key(fresh.a, kF4);
            fresh.TakeLog();
            fresh.Key(fresh.a, c.key, c.shift);
            Log log = fresh.TakeLog();
            std::erase(log, "notify DateValue");
            Log expected{"A KeyDown " + std::to_string(c.key)};
            expected.insert(expected.end(), c.events.begin(), c.events.end());
            EXPECT_EQ(log, expected);
            EXPECT_EQ(control.DateValue(), DateOf(c.to, 0.25));
            EXPECT_EQ(control.Text(), fresh.dates.Format(DateOf(c.to), "Short Date"));
            EXPECT_EQ(fresh.visible, open);
            EXPECT_TRUE(!open || DayOf(fresh.form->Calendar().SelectedDate()) == c.to);
        }
    }
}

TEST_F(DropDown, KeysOpenAndClose) {
    struct Case {
        int key, shift;
        bool opensClosed, closesOpen;
    };
    for (const Case& c : std::initializer_list<Case>{{kF4, 0, true, true},
                                                     {kF4, 1, false, false},
                                                     {kDown, kAltHeld, true, true},
                                                     {kUp, kAltHeld, true, true},
                                                     {kDown, kAltHeld | kCtrl, false, false},
                                                     {kEscape, 0, false, true},
                                                     {kEscape, kCtrl, false, false},
                                                     {kEnter, 0, false, true},
                                                     {kAlt, kAltHeld, false, true}}) {
        for (const bool open : {false, true}) {
            TestBoxes fresh;
            if (open) fresh.Key(fresh.a, kF4);
            fresh.Key(fresh.a, c.key, c.shift);
            EXPECT_EQ(fresh.visible, open ? !c.closesOpen : c.opensClosed)
                << c.key << ' ' << c.shift << ' ' << open;
        }
    }
    // As fingers do it: Alt goes down first and closes, Down then must not open again.
    Open();
    test.Key(test.a, kAlt, kAltHeld);
    test.Key(test.a, kDown, kAltHeld);
    EXPECT_FALSE(test.visible);
    std::int16_t key = kAlt, shift = 0;
    box.OnKeyUp(key, shift);
    test.Key(test.a, kDown, kAltHeld);
    EXPECT_TRUE(test.visible);
}

TEST_F(DropDown, AKeyInTheCalendarIsOneStepToo) {
    Open();
    std::int16_t key = kRight, shift = 0;
    test.form->Calendar().OnKeyDown(key, shift);
    EXPECT_EQ(DateOfBox(), Day(2020, 3, 16));
    EXPECT_EQ(DayOf(test.form->Calendar().SelectedDate()), Day(2020, 3, 16));
}

TEST_F(DropDown, TheMouseOpensAndClosesWithThePressedLook) {
    test.a.control->OnMouseDown(1, 0, 140, 10);
    EXPECT_EQ(test.TakeLog(), (Log{"A MouseDown", "A DropDown", "show 100,72 250x200"}));
    box.OnPaint(StrictDrawing::kWindowSurface);
    EXPECT_EQ(test.drawing.frameStates, (std::vector<std::uint32_t>{kScrollDown | kFramePushed}));
    box.OnMouseUp(1, 0, 140, 10);
    test.drawing.Forget();
    box.OnPaint(StrictDrawing::kWindowSurface);
    EXPECT_EQ(test.drawing.frameStates, (std::vector<std::uint32_t>{kScrollDown}));
    test.TakeLog();
    test.a.control->OnMouseDown(1, 0, 140, 10);
    EXPECT_EQ(test.TakeLog(), (Log{"A MouseDown", "hide", "A CloseUp"}));
}

TEST_F(DropDown, PressesOutsideCloseAndThePointerMovesTheCapture) {
    test.calendarWindow.cursor = Point{150, 60};  // over the box
    Open();
    EXPECT_TRUE(test.timer);
    EXPECT_TRUE(test.calendarWindow.captured);
    test.PointAt({150, 100});
    EXPECT_FALSE(test.calendarWindow.captured);
    test.PointAt({800, 600});
    EXPECT_TRUE(test.calendarWindow.captured);
    test.calendarWindow.cursor = std::nullopt;
    test.form->OnTimer();
    EXPECT_TRUE(test.calendarWindow.captured);
    test.PressCalendar(400, 300);
    EXPECT_EQ(test.TakeLog(), (Log{"A MouseDown", "hide", "A CloseUp"}));
    EXPECT_FALSE(test.timer || test.calendarWindow.captured);
    test.ReleaseCalendar(400, 300);  // finds no owner
    EXPECT_TRUE(test.TakeLog().empty());
}

TEST_F(DropDown, ClosesWhenFocusOrWindowGo) {
    Open();
    box.NoLostFocus(true);
    box.OnLostFocus();
    EXPECT_TRUE(test.visible);
    box.NoLostFocus(false);
    box.OnLostFocus();
    EXPECT_FALSE(test.visible);
    Open();
    box.OnWindowChanged();
    EXPECT_FALSE(test.visible);
    Open();
    box.Enabled(false);
    EXPECT_FALSE(test.visible);
    EXPECT_EQ(test.Key(test.a, kF4), "115");
    EXPECT_TRUE(std::find(test.log.begin(), test.log.end(), "A KeyDown 115") == test.log.end());
    box.Enabled(true);
    Open();
    test.a.control.reset();
    EXPECT_FALSE(test.visible || test.timer || test.calendarWindow.captured);
}

TEST_F(DropDown, StateOpensThroughTheFocusAndACancelledOpeningCountsAsOpen) {
    box.DropDownState(true);
    EXPECT_TRUE(test.visible);
    test.TakeLog();
    box.DropDownState(false);
    EXPECT_EQ(test.TakeLog(), (Log{"hide", "A CloseUp"}));
    box.DropDownState(false);
    EXPECT_EQ(test.TakeLog(), (Log{"A CloseUp"}));

    box.Events().DropDown.Connect([](bool& cancel) { cancel = true; });
    box.DropDownState(true);
    EXPECT_EQ(test.TakeLog(), (Log{"A DropDown"}));
    EXPECT_TRUE(box.DropDownState());
    EXPECT_FALSE(test.visible || test.timer);
    test.Key(test.a, kF4);
    EXPECT_EQ(test.TakeLog(), (Log{"A KeyDown 115", "A CloseUp"}));
    EXPECT_FALSE(box.DropDownState());
}

TEST_F(DropDown, TwoBoxesKeepWhatIsTheirs) {
    VmCalDropDown& other = *test.b.control;
    other.DateMin(DateOf(Day(2200, 1, 1)));
    other.Let(kMonthBackColor, 0x123456u);
    other.Days()->Item(1)->Caption("B");
    box.Days()->Item(1)->Caption("A");
    Open();
    EXPECT_EQ(test.form->Calendar().Days()->Item(1)->Caption(), "A");
    test.Key(test.a, kRight);
    test.TakeLog();
    test.Key(test.b, kF4);  // the other box takes the window over
    EXPECT_EQ(test.TakeLog(),
              (Log{"B KeyDown 115", "hide", "A CloseUp", "B DropDown", "show 400,72 250x200"}));
    EXPECT_FALSE(box.DropDownState());
    EXPECT_EQ(DateOfBox(), Day(2020, 3, 16));
    EXPECT_EQ(test.form->Calendar().MonthBackColor(), 0x123456u);
    EXPECT_EQ(test.form->Calendar().Days()->Item(1)->Caption(), "B");
    EXPECT_EQ(DayOf(test.form->Calendar().SelectedDate()), Day(2200, 1, 1));

    test.Key(test.a, kRight);  // closed: its own date, not the open calendar's
    EXPECT_EQ(DateOfBox(), Day(2020, 3, 17));
    EXPECT_EQ(DayOf(other.DateValue()), Day(2200, 1, 1));
    test.Key(test.b, kF4);
    test.Key(test.a, kF4);
    EXPECT_EQ(test.form->Calendar().MonthBackColor(), kButtonFace);
    EXPECT_EQ(test.form->Calendar().Days()->Item(1)->Caption(), "A");
}

TEST_F(DropDown, WhatIsSetWhileOpenShowsAtOnce) {
    Open();
    box.Days()->Item(7)->Caption("now");
    box.Let(kTodayBackColor, 0x00FF00u);
    box.DateValue("4/5/2020");
    EXPECT_EQ(DayOf(test.form->Calendar().SelectedDate()), Day(2020, 4, 5));
    EXPECT_EQ(test.form->Calendar().TodayBackColor(), 0x00FF00u);
    EXPECT_EQ(test.TakeLog(), (Log{"notify TodayBackColor", "notify DateValue"}));
    box.Days()->Item(7)->Caption("April");
    EXPECT_EQ(test.form->Calendar().Days()->Item(7)->Caption(), "April");
    box.DateMax(DateOf(Day(2019, 1, 1)));
    EXPECT_EQ(DayOf(test.form->Calendar().SelectedDate()), Day(2019, 1, 31));
    EXPECT_EQ(box.Text(), "1/31/2019");
}

TEST_F(DropDown, PlacesItsWindowByItsAlignment) {
    struct Case {
        VmDropDownAlignmentConstants alignment;
        int width;
        const char* shown;
    };
    for (const Case& c :
         std::initializer_list<Case>{{VmLeftJustified, 250, "show 100,72 250x180"},
                                     {VmRightJustified, 250, "show -1,72 250x180"},
                                     {VmRightJustified, 100, "show 149,72 100x180"}}) {
        box.DropDownAlignment(c.alignment);
        box.DropDownWidth(c.width);
        box.DropDownHeight(180);
        test.Key(test.a, kF4);
        EXPECT_EQ(test.log.back(), c.shown);
        test.Key(test.a, kF4);
    }
    test.a.host.scaleMode = 1;  // twips
    EXPECT_EQ(box.DropDownHeight(), 180 * 15);
    box.DropDownHeight(3000);
    test.a.host.scaleMode = 3;
    EXPECT_EQ(box.DropDownHeight(), 200);
}

TEST_F(DropDown, RefusesAtOnce) {
    const auto icon = std::make_shared<StdPicture>(PictureType::Bitmap, Size{}, nullptr);
    const std::pair<const char*, Variant> cases[] = {
        {"DropDownAlignment", std::int32_t{2}},
        {"DropDownHeight", std::int32_t{-1}},
        {"DropDownWidth", std::int32_t{-1}},
        {"MonthYearSelStyle", std::int32_t{2}},
        {"MouseIcon", ObjectRef(icon)},
        {"TodayBackColor", std::int32_t{1 << 24}},
        {"FirstDayOfWeek", std::int32_t{8}},
        {"DropDownAppearance", std::int32_t{2}},
        {"DateMax", Date(-700000)},
        {"DateMin", Date(1e7)},
        {"DateValue", "12x"},
        {"DateValue", Null{}},
        {"DateValue", Variant()},
        {"Appearance", std::int32_t{1}},
    };
    test.TakeLog();
    for (const auto& [name, value] : cases) {
        const auto expected = name == std::string("DateValue") ? ErrorNumber::TypeMismatch
                              : name == std::string("Appearance")
                                  ? ErrorNumber::MemberNotFound
                                  : ErrorNumber::InvalidPropertyValue;
        EXPECT_EQ(NumberOf([&, name = name, value = value] { box.LetMember(name, value); }),
                  expected)
            << name;
    }
    EXPECT_TRUE(test.TakeLog().empty());
    EXPECT_EQ(box.DateValue(), DateOf(kMar15, 0.5));
}

TEST_F(DropDown, ShowsTheStoredDateInAnyFormat) {
    box.DateMax(DateOf(Day(2020, 3, 31)));
    box.DateValue("6/6/2020");
    EXPECT_EQ(box.Text(), "3/31/2020");
    box.DateFormat("dddd, d mmmm yyyy");
    EXPECT_EQ(box.Text(), "Tuesday, 31 March 2020");
    for (const char* broken : {"\"", "\\", "yyyyyyyyyyyyy", "\"\"\"", "%$"}) box.DateFormat(broken);
    box.DateFormat("");
    EXPECT_EQ(box.Text(), "3/31/2020");
    EXPECT_EQ(test.TakeLog().back(), "notify ComboDateFormat");
    for (const int year : {200, 4600}) {
        box.DateMax(DateOf(Day(4600, 1, 1)));
        box.DateMin(DateOf(Day(200, 1, 1)));
        box.DateFormat("yyyy");
        box.DateValue(DateOf(Day(year, 7, 7)));
        EXPECT_EQ(box.Text(), year == 200 ? "0200" : "4600");
    }
}

TEST_F(DropDown, PaintsItsStatesAndAnySize) {
    struct Case {
        bool enabled, focused;
        Rgb text;
        std::size_t fills;
    };
    for (const Case& c : {Case{true, false, StrictDrawing::SystemRgb(8), 2},
                          Case{true, true, StrictDrawing::SystemRgb(14), 3},
                          Case{false, true, StrictDrawing::SystemRgb(17), 2}}) {
        box.Enabled(c.enabled);
        c.focused ? box.OnGotFocus() : box.OnLostFocus();
        test.drawing.Forget();
        box.OnPaint(StrictDrawing::kWindowSurface);
        ASSERT_EQ(test.drawing.texts.size(), 1u);
        EXPECT_EQ(test.drawing.texts[0].color, c.text);
        EXPECT_EQ(test.drawing.texts[0].rect, (Rect{5, 3, 129, 19}));
        EXPECT_EQ(test.drawing.fills.size(), c.fills);
    }
    for (const Size size : {Size{0, 0}, Size{18, 20}, Size{5, 5}, Size{150, 0}, Size{150, 3}}) {
        test.a.window->screen = {0, 0, size.width, size.height};
        box.OnPaint(StrictDrawing::kWindowSurface);
    }
    EXPECT_TRUE(test.drawing.FaultsAfterPaint().empty());
}

/// Keeps every write; a repeated key stands twice.
class ListBag : public PropertyBag {
public:
    Variant ReadProperty(std::string_view name, const Variant& fallback) override {
        const auto found = values.find(std::string(name));
        return found == values.end() ? fallback : found->second;
    }
    void WriteProperty(std::string_view name, const Variant& value,
                       const Variant& fallback) override {
        keys.emplace_back(name);
        if (value != fallback) values[std::string(name)] = value;
    }
    Log keys;
    std::map<std::string, Variant> values;
};

TEST_F(DropDown, SavesAndRestoresItself) {
    ListBag fresh;
    box.WriteProps(fresh);
    EXPECT_EQ(fresh.keys.size(), 39u);
    EXPECT_EQ(std::count(fresh.keys.begin(), fresh.keys.end(), "ComboDateFormat"), 2);
    for (const auto& [key, value] : fresh.values) {
        EXPECT_EQ(value.Type(), VarType::Object) << key;  // fonts alone differ from their defaults
    }

    box.DateFormat("yyyy");
    box.DropDownWidth(300);
    box.DropDownAlignment(VmRightJustified);
    box.DateMax(DateOf(Day(1050, 1, 1) + 36525));
    box.DateMin(DateOf(Day(1120, 1, 1)));
    box.DateValue(DateOf(Day(1130, 5, 6), 0.25));
    box.LetMember("DropDownAppearance", std::int32_t{0});
    box.Let(kShowWeekend, false);
    box.MousePointer(11);
    box.Enabled(false);
    ListBag bag;
    box.WriteProps(bag);
    TestBoxes second;
    second.TakeLog();
    second.a.control->ReadProps(bag);
    EXPECT_TRUE(second.TakeLog().empty());
    ListBag again;
    second.a.control->WriteProps(again);
    EXPECT_EQ(again.values, bag.values);
    EXPECT_EQ(second.a.control->Text(), "1130");

    ListBag damaged;
    for (const std::string& key : fresh.keys) damaged.values[key] = "nonsense";
    damaged.values["DropDownHeight"] = std::int32_t{-5};
    second.a.control->ReadProps(damaged);
    EXPECT_EQ(DayOf(second.a.control->DateMax()), Day(2700, 12, 31));
    EXPECT_EQ(second.a.control->DropDownHeight(), 0);
}

/// A handler of any event does its worst in the middle of any sequence.
TEST(DropDownHandlers, AreAllSurvived) {
    const std::function<void(TestBoxes&)> handlers[] = {
        [](TestBoxes& t) { t.a.control.reset(); },
        [](TestBoxes& t) { t.a.control->CloseDropDown(); },
        [](TestBoxes& t) { t.a.control->DropDownState(true); },
        [](TestBoxes& t) { t.a.control->DateValue(DateOf(Day(2031, 7, 7))); },
        [](TestBoxes& t) { t.a.control->Enabled(false); },
        [](TestBoxes& t) { t.Key(t.b, kF4); },
    };
    const std::function<void(TestBoxes&)> inputs[] = {
        [](TestBoxes& t) { t.Key(t.a, kF4); },
        [](TestBoxes& t) { t.Key(t.a, kPageDown, kCtrl); },
        [](TestBoxes& t) { t.Key(t.a, kF4), t.a.control ? t.ClickDay(Day(2020, 4, 2)) : void(); },
        [](TestBoxes& t) { t.Key(t.a, kF4), t.PressCalendar(900, 900); },
        [](TestBoxes& t) {
            t.Key(t.a, kF4);
            if (t.a.control) t.Key(t.a, kDown);
            if (t.a.control) t.a.control->OnLostFocus();
        },
    };
    for (const auto& input : inputs) {
        for (const auto& handler : handlers) {
            for (int event = 0; event < 9; ++event) {
                TestBoxes test;
                int depth = 0;
                const auto act = [&](auto&&...) {
                    if (depth++ == 0 && test.a.control) handler(test);
                };
                DropDownEvents& events = test.a.control->Events();
                if (event == 0) events.CloseUp.Connect(act);
                if (event == 1) events.DropDown.Connect(act);
                if (event == 2) events.DateChanged.Connect(act);
                if (event == 3) events.DayChanged.Connect(act);
                if (event == 4) events.MonthChanged.Connect(act);
                if (event == 5) events.YearChanged.Connect(act);
                if (event == 6) events.KeyDown.Connect(act);
                if (event == 7) events.MouseDown.Connect(act);
                if (event == 8) events.MouseUp.Connect(act);
                input(test);
                if (test.a.control && !test.a.control->DropDownState() &&
                    !test.b.control->DropDownState()) {
                    EXPECT_FALSE(test.visible || test.timer || test.calendarWindow.captured)
                        << "input " << &input - inputs << ", handler " << &handler - handlers
                        << ", event " << event;
                }
            }
        }
    }
}

TEST(DropDownWalk, HoldsItsInvariants) {
    std::mt19937 random(31);
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    TestBoxes test;
    for (int step = 0; step < 20'000; ++step) {
        TestBoxes::Box& box = pick(0, 1) == 0 ? test.a : test.b;
        const DayNumber near = DayOf(box.control->DateValue()) + pick(-60, 60);
        try {
            switch (pick(0, 9)) {
                case 0: box.control->DropDownState(pick(0, 1) == 1); break;
                case 1: box.control->DateMax(DateOf(near)); break;
                case 2: box.control->DateMin(DateOf(near)); break;
                case 3: box.control->DateMax(DateOf(Day(4600, 1, 1))); break;
                case 4: box.control->DateMin(DateOf(Day(200, 1, 1))); break;
                case 5: test.PressCalendar(static_cast<float>(pick(-50, 300)), 90); break;
                case 6: test.ReleaseCalendar(static_cast<float>(pick(-50, 300)), 90); break;
                case 7: test.PointAt({pick(0, 600), pick(0, 300)}); break;
                default: test.Key(box, pick(32, 41), pick(0, 7));
            }
        } catch (const AutomationError& refused) {
            ASSERT_EQ(refused.Number(), ErrorNumber::InvalidPropertyValue);
        }
        for (const TestBoxes::Box* each : {&test.a, &test.b}) {
            const VmCalDropDown& c = *each->control;
            ASSERT_TRUE(c.DateMin().value <= DayOf(c.DateValue()) &&
                        DayOf(c.DateValue()) <= c.DateMax().value)
                << step;
            ASSERT_EQ(c.Text(), test.dates.Format(c.DateValue(), "Short Date")) << step;
            ASSERT_EQ(c.DropDownState(), test.form->GetOwner() == &c) << step;
        }
        ASSERT_EQ(test.visible, test.form->GetOwner() != nullptr);
        test.log.clear();
        test.drawing.Forget();
    }
}

}  // namespace
}  // namespace velmora::test
