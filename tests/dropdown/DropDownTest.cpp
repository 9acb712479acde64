#include "platform/Keys.h"
#include "tests/support/PropertyCases.h"
#include "tests/support/TestBoxes.h"
#include "tests/support/TestCalendar.h"

namespace velmora::test {

static VmCalDropDown& ControlOf(TestBoxes& test) { return *test.a.control; }

namespace {

using Log = std::vector<std::string>;

const DayNumber kMar15 = Day(2020, 3, 15);
const double kNow = kMar15 + 0.5;

class DropDown : public testing::Test {
protected:
    void Open() {
        test.Key(test.a, kKeyF4);
        ASSERT_TRUE(test.visible);
        test.TakeLog();
    }
    DayNumber DateOfBox() { return DayOf(box.DateValue()); }

    TestBoxes test;
    VmCalDropDown& box = *test.a.control;
};

TEST_F(DropDown, RowsStoreAndNotifyOrRefuse) {
    for (const PropertyRow& row : kBoxRows) {
        SCOPED_TRACE(row.name);
        TestBoxes boxes;
        EXPECT_EQ(ReadBack(ControlOf(boxes), row), row.initial == kToday ? kNow : row.initial);
        ExpectTakesAndRefuses(ControlOf(boxes), row, [&](bool changes) {
            EXPECT_EQ(boxes.TakeLog(), changes ? Log{"notify " + std::string(row.Key())} : Log());
        });
    }
    EXPECT_EQ(NumberOf([&] { box.LetMember("Appearance", 1.0); }), ErrorNumber::MemberNotFound);
    EXPECT_EQ(NumberOf([&] { box.LetMember("DateValue", Variant()); }), ErrorNumber::TypeMismatch);
}

TEST_F(DropDown, ItsCalendarHasEachRowWhenItOpensAndWhileItIsOpen) {
    for (const PropertyRow& row : kBoxRows) {
        if (!row.copied) continue;
        SCOPED_TRACE(row.name);
        TestBoxes boxes;
        PropertyRow inside = row;
        if (row.name == "DropDownAppearance") inside.name = "Appearance";
        for (const double number : {row.low, row.high}) {
            boxes.a.control->LetMember(row.name, ValueOf(row, number));
            if (!boxes.a.control->DropDownState()) boxes.Key(boxes.a, kKeyF4);
            const double shown = ReadBack(boxes.form->Calendar(), inside);
            EXPECT_EQ(row.kind == Kind::Moment ? DayOf(Date(shown)) : shown,
                      row.kind == Kind::Moment ? DayOf(Date(number)) : number);
        }
    }
}

TEST_F(DropDown, SavesEachRowInItsForm) { ExpectSavedForms(box, kBoxRows); }

TEST_F(DropDown, EachSavedRowComesBack) { ExpectEachComesBack<TestBoxes>(kBoxRows); }

TEST_F(DropDown, WronglyTypedRowsGiveTheDefaults) {
    ExpectDefaultsForWrongTypes<TestBoxes>(kBoxRows, kNow);
}

TEST_F(DropDown, ReadsInTheOrderOfWritingWithoutNews) {
    RecordingBag bag;
    box.WriteProps(bag);
    test.TakeLog();
    box.ReadProps(bag);
    EXPECT_EQ(bag.reads, bag.writes);
    EXPECT_EQ(test.TakeLog(), Log());
    EXPECT_NE(box.ComboFont(), box.Get(kDayFont));
    EXPECT_NE(box.Get(kMonthFont), box.Get(kDayFont));
}

TEST_F(DropDown, ReadsWithoutChecksAndOpensWithWhatItsCalendarCanShow) {
    ExpectKeepsWhatIsStored(box, kBoxRows);
    test.Key(test.a, kKeyF4);
    EXPECT_EQ(test.log.back(), "show 100,72 1x1");
    EXPECT_EQ(test.form->Calendar().MonthYearSelStyle(), VmMonthSelNone);
    MemoryBag crossed;
    crossed.WriteProperty("DateMax", Date(Day(1050, 1, 1)), Variant());  // before all that may be
    crossed.WriteProperty("DateValue", Date(Day(1000, 1, 1)), Variant());
    box.ReadProps(crossed);
    EXPECT_EQ(box.DateMax(), kBoxDateMax);
    EXPECT_EQ(box.DateValue(), box.DateMin());
}

TEST_F(DropDown, TwoBoxesKeepWhatIsTheirs) {
    VmCalDropDown& other = *test.b.control;
    other.DateMin(DateOf(Day(2200, 1, 1)));
    other.Let(kMonthBackColor, 0x123456u);
    other.Days()->Item(1)->Caption("B");
    box.Days()->Item(1)->Caption("A");
    Open();
    EXPECT_EQ(test.form->Calendar().Days()->Item(1)->Caption(), "A");
    test.Key(test.a, kKeyRight);
    test.TakeLog();
    test.Key(test.b, kKeyF4);  // the other box takes the window over
    EXPECT_EQ(test.TakeLog(),
              (Log{"B KeyDown 115", "hide", "A CloseUp", "B DropDown", "show 400,72 250x200"}));
    EXPECT_FALSE(box.DropDownState());
    EXPECT_EQ(test.form->Calendar().MonthBackColor(), 0x123456u);
    EXPECT_EQ(test.form->Calendar().Days()->Item(1)->Caption(), "B");
    EXPECT_EQ(DayOf(test.form->Calendar().SelectedDate()), Day(2200, 1, 1));
    test.Key(test.a, kKeyRight);  // closed: its own date, not the open calendar's
    EXPECT_EQ(DateOfBox(), Day(2020, 3, 17));
    EXPECT_EQ(DayOf(other.DateValue()), Day(2200, 1, 1));
}

TEST_F(DropDown, ItsDaysAreThoseThatAreShown) {
    box.Let(kMonthYearSelStyle, VmMonthSelArrows);
    box.Events().MonthChanged.Connect([&](std::int16_t& month) {
        box.Days()->Item(30)->Caption("month " + std::to_string(month));
    });
    Open();
    test.form->OnPaint(StrictDrawing::kWindowSurface, {});
    EXPECT_EQ(box.Days()->Item(30)->Caption(), "") << "the first paint is no news";
    VmCalendar& calendar = test.form->Calendar();
    const Rect arrow = calendar.Layout().arrows[static_cast<int>(Arrow::MonthForward)];
    test.ClickCalendar({arrow.left + 2, arrow.top + 2});
    box.Days()->Item(7)->Caption("now");
    EXPECT_EQ(calendar.Days()->Item(7)->Caption() + calendar.Days()->Item(30)->Caption(),
              "nowmonth 4");
    test.drawing.Forget();
    box.DateValue("4/5/2020");
    EXPECT_EQ(std::ranges::count(test.drawing.invalidatedWindows, box.hWnd()), 1);
    box.DateValue(DateOf(kMar15));
    test.ClickCalendar({arrow.left + 2, arrow.top + 2});
    test.Key(test.a, kKeyEscape);
    EXPECT_EQ(box.Days()->Item(30)->Caption(), "month 3");
}

TEST_F(DropDown, OpensWhereItsHandlerWantsIt) {
    test.a.window->focused = nullptr;  // the focus is slow to come
    box.DropDownState(true);
    box.DropDownState(false);
    box.OnGotFocus();
    EXPECT_EQ(test.TakeLog(), Log{"A CloseUp"});
    const Rect low{500, 440, 620, 462};  // the screen is 640 x 480
    const struct {
        Rect box;
        VmDropDownAlignmentConstants alignment;
        int width, height;
        bool keepOnScreen;
        const char* shown;
        double pixelsPerInch = 96;
        bool rightToLeft = false;
    } cases[] = {
        {test.a.window->screen, VmLeftJustified, 250, 180, false, "100,72 250x180"},
        {test.a.window->screen, VmLeftJustified, 251, 180, false, "100,72 377x270", 144},
        {test.a.window->screen, VmRightJustified, 250, 180, true, "0,72 500x360", 192},
        {test.a.window->screen, VmRightJustified, 250, 180, false, "-1,72 250x180"},
        {test.a.window->screen, VmRightJustified, 100, 180, true, "149,72 100x180"},
        {test.a.window->screen, VmRightJustified, 250, 180, true, "0,72 250x180"},
        {test.a.window->screen, VmLeftJustified, 2147483647, 1, false, "100,72 640x1"},
        {test.a.window->screen, VmLeftJustified, 250, 180, false, "0,72 250x180", 96, true},
        {test.a.window->screen, VmRightJustified, 100, 1, false, "101,72 100x1", 96, true},
        {low, VmLeftJustified, 250, 180, false, "500,462 250x180"},
        {low, VmLeftJustified, 250, 180, true, "390,260 250x180"},
        {low, VmLeftJustified, 700, 470, true, "0,0 640x470"}};
    const auto* now = cases;
    box.Events().DropDown.Connect([&](bool&) {
        box.DropDownAlignment(now->alignment);
        box.DropDownWidth(now->width);
        box.DropDownHeight(now->height);
    });
    for (const auto& each : cases) {
        now = &each;
        test.a.window->screen = each.box;
        test.a.window->pixelsPerInch = each.pixelsPerInch;
        test.a.window->rightToLeft = each.rightToLeft;
        box.KeepDropDownOnScreen(each.keepOnScreen);
        test.Key(test.a, kKeyF4);
        EXPECT_EQ(test.log.back(), std::string("show ") + each.shown);
        test.Key(test.a, kKeyF4);
    }
    test.a.host.scaleMode = 1;  // twips
    EXPECT_EQ(box.DropDownHeight(), 470 * 15);
    box.DropDownHeight(3000);
    test.a.host.scaleMode = 3;
    EXPECT_EQ(box.DropDownHeight(), 200);
}

TEST_F(DropDown, ADayThatIsChosenHasNoTime) {
    box.DateFormat("yyyy-mm-dd hh:nn");
    Log told;
    box.Events().DateChanged.Connect([&](Date& date) {
        EXPECT_EQ(date, box.DateValue());
        EXPECT_EQ(test.dates.Format(date, box.DateFormat()), box.Text());
        told.push_back(box.Text());
    });
    EXPECT_EQ(box.Text(), "2020-03-15 12:00");
    test.Key(test.a, kKeyRight);
    box.DateValue(DateOf(kMar15, 0.25));
    Open();
    test.ClickCalendar(test.CenterOf(kMar15));
    EXPECT_EQ(box.Text(), "2020-03-15 06:00");
    Open();
    test.ClickCalendar(test.CenterOf(Day(2020, 3, 20)));
    EXPECT_EQ(std::exchange(told, {}), (Log{"2020-03-16 00:00", "2020-03-20 00:00"}));
    box.ExtendedNavigation(true);
    box.DateValue(DateOf(kMar15, 0.25));
    Open();
    test.Key(test.a, kKeyRight);
    test.Key(test.a, kKeyEscape);
    EXPECT_EQ(told, (Log{"2020-03-16 00:00", "2020-03-15 06:00"}));
}

TEST_F(DropDown, KeysInItsOpenCalendarAreTheBoxsAlone) {
    box.DateMax(DateOf(Day(2020, 8, 31)));
    box.DateValue("8/30/2020");
    Open();
    VmCalendar& calendar = test.form->Calendar();
    calendar.OnMonthListClick(4);
    for (const auto& [key, returned] : {std::pair(kKeyPageDown, 0), {kKeyF4 + 1, kKeyF4 + 1}}) {
        std::int16_t code = static_cast<std::int16_t>(key), shift = 0;
        calendar.OnKeyDown(code, shift);
        EXPECT_EQ(code, returned);
        EXPECT_EQ(MonthOf(DayOf(calendar.ShownDate())), 5);
    }
    std::int16_t right = kKeyRight, shift = 0;
    calendar.OnKeyDown(right, shift);
    EXPECT_EQ(right, 0);
    EXPECT_EQ(DateOfBox(), Day(2020, 8, 31));
    test.Key(test.a, kKeyDown, kShiftAlt | kShiftCtrl);
    EXPECT_TRUE(test.visible) << "no key that opens or closes";
    test.Key(test.a, kKeyAlt, kShiftAlt);
    test.Key(test.a, kKeyAlt, kShiftAlt);  // held
    test.Key(test.a, kKeyDown, kShiftAlt);
    EXPECT_FALSE(test.visible) << "the Alt has closed it";
}

TEST_F(DropDown, ThePointerMovesTheCapture) {
    test.calendarWindow.cursor = Point{150, 60};  // over the box
    Open();
    EXPECT_TRUE(test.timer && test.calendarWindow.captured);
    test.PressCalendar(120, 8);
    test.PointAt({150, 100});
    EXPECT_TRUE(test.calendarWindow.captured) << "a press keeps it";
    test.ReleaseCalendar(120, 8);
    test.calendarWindow.captured = true;
    test.PointAt({150, 100});
    EXPECT_FALSE(test.calendarWindow.captured);
    test.PointAt({800, 600});
    EXPECT_TRUE(test.calendarWindow.captured);
    test.calendarWindow.cursor = std::nullopt;
    test.form->OnTimer();
    EXPECT_TRUE(test.calendarWindow.captured);
}

TEST_F(DropDown, ClosesWhenItsWindowGoesUnlessTheFocusMayGo) {
    Open();
    box.NoLostFocus(true);
    box.OnLostFocus();
    EXPECT_TRUE(test.visible);
    box.OnWindowChanged();
    EXPECT_FALSE(test.visible);
    Open();
    box.OnLostFocus();
    EXPECT_FALSE(test.visible) << "the permission is over";
}

}  // namespace
}  // namespace velmora::test
