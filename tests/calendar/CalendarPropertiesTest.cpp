#include "platform/MemoryBag.h"
#include "tests/support/Refusals.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

struct Row {
    const char* name;
    std::uint32_t initial;
    int low, high;
    const char* effect = "repaint";
};
constexpr int kColour = -1;

std::vector<Variant> Accepted(const Row& row) {
    if (row.high == kColour) return {0, 0xFFFFFF, 0x80000018u, 0x80FFFFFFu};
    return {row.low, row.high};
}
std::vector<Variant> Refused(const Row& row) {
    if (row.high == kColour) return {0x01000000, 0x7F000000, 0xFF000000u, 0x40ABCDEF};
    return {row.low - 1, row.high + 1, INT32_MIN, INT32_MAX};
}

TEST(CalendarProperties, StoreNotifyAndRepaintOrRefuse) {
    const Row rows[] = {{"Appearance", 1, 0, 1},
                        {"DayAppearance", 1, 0, 1},
                        {"DayDefaultBackColor", 0x8000000F, 0, kColour},
                        {"DayOtherMonthForeColor", 0x80000011, 0, kColour},
                        {"DayDefaultForeColor", 0x80000008, 0, kColour},
                        {"DayCaptionAlignment", 5, 0, 8},
                        {"DayNumberAlignment", 6, 0, 8},
                        {"DayPictureAlignment", 0, 0, 14},
                        {"FirstDayOfWeek", 1, 1, 7},
                        {"MonthAppearance", 1, 0, 1},
                        {"MonthBackColor", 0x8000000F, 0, kColour, "repaint band"},
                        {"MonthDisplay", 0, 0, 1},
                        {"MonthForeColor", 0x80000008, 0, kColour, "repaint band"},
                        {"MonthYearSelStyle", 0, 0, 3},
                        {"SelectedDayBackColor", 0x8000000D, 0, kColour},
                        {"SelectedDayForeColor", 0x8000000E, 0, kColour},
                        {"TodayBackColor", 0x00FFFF00, 0, kColour},
                        {"TodayForeColor", 0x80000008, 0, kColour},
                        {"WeekDayAppearance", 1, 0, 1},
                        {"WeekDayBackColor", 0x8000000F, 0, kColour, "repaint band"},
                        {"WeekDayDisplay", 2, 0, 3},
                        {"WeekDayForeColor", 0x80000008, 0, kColour, "repaint band"},
                        {"WeekDayCaptionAlignment", 4, 0, 8}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TestCalendar test;
        VmCalendar& calendar = *test.calendar;
        const auto has = [&](const Variant& value) {
            return IsDefaultValue(calendar.GetMember(row.name), value);
        };
        EXPECT_TRUE(has(row.initial));
        for (const Variant& value : Accepted(row)) {
            test.TakeLog();
            calendar.LetMember(row.name, value);
            EXPECT_TRUE(has(value));
            EXPECT_EQ(test.TakeLog(), (Log{std::string("notify ") + row.name, row.effect}));
        }
        for (const Variant& value : Refused(row)) {
            EXPECT_EQ(NumberOf([&] { calendar.LetMember(row.name, value); }),
                      ErrorNumber::InvalidPropertyValue);
            EXPECT_TRUE(has(Accepted(row).back()));
        }
        EXPECT_TRUE(test.TakeLog().empty());
    }
    for (const std::string name : {"Enabled", "ShowWeekend"}) {
        TestCalendar test;
        EXPECT_EQ(test.calendar->GetMember(name), Variant(true));
        test.TakeLog();
        test.calendar->LetMember(name, false);
        EXPECT_EQ(test.calendar->GetMember(name), Variant(false));
        EXPECT_EQ(test.TakeLog(), (Log{"notify " + name, "repaint"}));
    }
}

TEST(CalendarProperties, FontsAreKeptByReferenceAndBeginAsSeparateCopies) {
    TestCalendar test;
    VmCalendar& calendar = *test.calendar;
    EXPECT_NE(calendar.DayFont(), calendar.MonthFont());
    EXPECT_NE(calendar.DayFont(), calendar.WeekDayFont());
    const auto font = std::make_shared<StdFont>();
    font->name = "Other";
    test.TakeLog();
    calendar.DayFont(font);
    EXPECT_EQ(calendar.DayFont(), font);
    EXPECT_EQ(test.TakeLog(), (Log{"notify DayFont", "repaint"}));
    calendar.MonthFont(nullptr);
    test.Paint();
    ASSERT_NE(calendar.MonthFont(), nullptr);  // taken from the container
}

TEST(CalendarProperties, WrongPointersAreIgnoredAndWrongIconsRefused) {
    TestCalendar test;
    VmCalendar& calendar = *test.calendar;
    calendar.MousePointer(5);
    test.TakeLog();
    for (const int pointer : {-1, 16, 98, 100}) {
        calendar.MousePointer(static_cast<std::int16_t>(pointer));
    }
    EXPECT_EQ(calendar.MousePointer(), 5);
    EXPECT_TRUE(test.TakeLog().empty());
    for (const auto pointer : std::initializer_list<std::int16_t>{0, 15, 99}) {
        calendar.MousePointer(pointer);
        EXPECT_EQ(calendar.MousePointer(), pointer);
        EXPECT_EQ(test.TakeLog(), Log{"notify MousePointer"});
    }

    const auto picture = [](PictureType type) {
        return std::make_shared<StdPicture>(type, Size{}, nullptr);
    };
    const auto icon = picture(PictureType::Icon);
    calendar.MouseIcon(icon);
    for (const auto type : {PictureType::None, PictureType::Bitmap, PictureType::Metafile}) {
        EXPECT_EQ(NumberOf([&] { calendar.MouseIcon(picture(type)); }),
                  ErrorNumber::InvalidPropertyValue);
    }
    EXPECT_EQ(calendar.MouseIcon(), icon);
    calendar.MouseIcon(nullptr);
    EXPECT_EQ(calendar.MouseIcon(), nullptr);
    EXPECT_EQ(test.TakeLog(), (Log{"notify MouseIcon", "notify MouseIcon"}));
}

TEST(CalendarProperties, LimitsRoundToWholeMonthsAndRefuseWhatCrosses) {
    struct Case {
        const char* name;
        bool maximum;
        DayNumber value;
        bool accepted;
        DayNumber stored;
    };
    const DayNumber min = Day(2020, 2, 1);
    const DayNumber max = Day(2020, 6, 30);
    const Case cases[] = {
        {"last of the month", true, Day(2024, 2, 10), true, Day(2024, 2, 29)},
        {"in the month of DateMin", true, Day(2020, 2, 1), true, Day(2020, 2, 29)},
        {"before DateMin", true, Day(2020, 1, 31), false, max},
        {"year 4600", true, Day(4600, 12, 1), true, Day(4600, 12, 31)},
        {"year 4601", true, Day(4601, 1, 1), false, max},
        {"first of the month", false, Day(2020, 3, 10), true, Day(2020, 3, 1)},
        {"in the month of DateMax", false, Day(2020, 6, 30), true, Day(2020, 6, 1)},
        {"after DateMax", false, Day(2020, 7, 1), false, min},
        {"year 200", false, Day(200, 1, 31), true, Day(200, 1, 1)},
        {"year 199", false, Day(199, 12, 31), false, min}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestCalendar test;
        test.calendar->DateMax(DateOf(max));
        test.calendar->DateMin(DateOf(min));
        test.TakeLog();
        const ErrorNumber number = NumberOf([&] {
            c.maximum ? test.calendar->DateMax(DateOf(c.value))
                      : test.calendar->DateMin(DateOf(c.value));
        });
        EXPECT_EQ(number, c.accepted ? ErrorNumber{} : ErrorNumber::InvalidPropertyValue);
        EXPECT_EQ(DayOf(c.maximum ? test.calendar->DateMax() : test.calendar->DateMin()), c.stored);
        EXPECT_EQ(test.BrokenInvariant(), "");
        EXPECT_EQ(test.TakeLog().empty(), !c.accepted);
    }
}

TEST(CalendarProperties, ALimitMovesTheDateSilently) {
    TestCalendar test;
    test.Paint();
    test.calendar->Days()->Item(3)->Caption("gone");
    test.TakeLog();
    test.calendar->DateMax(DateOf(Day(2019, 12, 5)));
    EXPECT_EQ(test.TakeLog(), (Log{"notify DateValue", "notify DateMax"}));
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2019, 12, 31));
    EXPECT_EQ(test.BrokenInvariant(), "");
    EXPECT_EQ(test.calendar->Days()->Item(3)->Caption(), "");

    test.calendar->DateMax(DateOf(Day(2999, 1, 1)));
    test.TakeLog();
    test.calendar->DateMin(DateOf(Day(2021, 5, 20)));
    EXPECT_EQ(test.TakeLog(), (Log{"notify DateValue", "notify DateMin"}));
    EXPECT_EQ(DayOf(test.calendar->SelectedDate()), Day(2021, 5, 1));
    EXPECT_EQ(test.BrokenInvariant(), "");
}

TEST(CalendarProperties, SelectorsAgreeWithTheShownDate) {
    for (const auto style : {VmMonthSelCombo, VmMonthSelScrollbar}) {
        TestCalendar test;
        EXPECT_EQ(test.childrenMade, 0);
        test.calendar->MonthYearSelStyle(style);
        EXPECT_EQ(test.childrenMade, style == VmMonthSelCombo ? 3 : 1);
        EXPECT_EQ(test.monthList.visible, style == VmMonthSelCombo);
        EXPECT_EQ(test.dateScroll.visible, style == VmMonthSelScrollbar);
        const auto shows = [&] {
            return style == VmMonthSelCombo ? test.monthList.shown + ' ' + test.yearText.shown +
                                                  ' ' + test.yearSpinner.shown
                                            : test.dateScroll.shown;
        };
        const auto expect = [&](const char* combo, const char* scroll) {
            EXPECT_EQ(shows(), style == VmMonthSelCombo ? combo : scroll);
        };
        expect("2 2020 -2999..-1000: -2020", "-10799..13200: 1443");
        test.calendar->DateValue(DateOf(Day(1899, 12, 31)));
        expect("11 1899 -2999..-1000: -1899", "-10799..13200: 0");
        test.calendar->DateMin(DateOf(Day(1950, 2, 3)));
        expect("1 1950 -2999..-1950: -1950", "602..13200: 602");
        test.Key(34, 2);  // Ctrl+Page Down
        expect("1 1951 -2999..-1950: -1951", "602..13200: 614");
        test.calendar->MonthYearSelStyle(VmMonthSelNone);
        EXPECT_FALSE(test.monthList.visible || test.yearText.visible || test.yearSpinner.visible ||
                     test.dateScroll.visible);
    }
}

TEST(CalendarProperties, SelectorsAreMadeAnewForAnotherWindow) {
    TestCalendar test;
    test.calendar->MonthYearSelStyle(VmMonthSelCombo);
    test.Paint();
    test.calendar->OnYearText("2021");
    test.TakeLog();
    test.calendar->OnWindowRecreated();
    EXPECT_EQ(test.calendar->cboMonthhwnd(), WindowHandle::None);
    test.monthList = test.yearText = test.yearSpinner = {};
    EXPECT_EQ(test.TakeLog(), Log{"repaint"});
    test.Paint();
    EXPECT_EQ(test.childrenMade, 6);
    EXPECT_TRUE(test.monthList.visible && test.yearText.visible && test.yearSpinner.visible);
    EXPECT_EQ(test.monthList.shown + ' ' + test.yearText.shown + ' ' + test.yearSpinner.shown,
              "2 2021 -2999..-1000: -2021");
}

}  // namespace
}  // namespace velmora::test
