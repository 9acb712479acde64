#include "tests/dropdown/DropDownFixture.h"

#include <algorithm>

namespace velmora::test {
namespace {

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
    EXPECT_EQ(DateOfBox(), Day(2020, 3, 16));
    EXPECT_EQ(test.form->Calendar().MonthBackColor(), 0x123456u);
    EXPECT_EQ(test.form->Calendar().Days()->Item(1)->Caption(), "B");
    EXPECT_EQ(DayOf(test.form->Calendar().SelectedDate()), Day(2200, 1, 1));

    test.Key(test.a, kKeyRight);  // closed: its own date, not the open calendar's
    EXPECT_EQ(DateOfBox(), Day(2020, 3, 17));
    EXPECT_EQ(DayOf(other.DateValue()), Day(2200, 1, 1));
    test.Key(test.b, kKeyF4);
    test.Key(test.a, kKeyF4);
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
    const Case cases[] = {{VmLeftJustified, 250, "show 100,72 250x180"},
                          {VmRightJustified, 250, "show -1,72 250x180"},
                          {VmRightJustified, 100, "show 149,72 100x180"}};
    for (const Case& c : cases) {
        box.DropDownAlignment(c.alignment);
        box.DropDownWidth(c.width);
        box.DropDownHeight(180);
        test.Key(test.a, kKeyF4);
        EXPECT_EQ(test.log.back(), c.shown);
        test.Key(test.a, kKeyF4);
    }
    test.a.host.scaleMode = 1;  // twips
    EXPECT_EQ(box.DropDownHeight(), 180 * 15);
    box.DropDownHeight(3000);
    test.a.host.scaleMode = 3;
    EXPECT_EQ(box.DropDownHeight(), 200);
}

TEST_F(DropDown, FormatsByEveryToken) {
    const auto at = [](int year, int month, int day, int second = 0) {
        return DateOf(Day(year, month, day), second / 86400.0);
    };
    const Date evening = at(2024, 3, 2, (18 * 60 + 5) * 60 + 9);  // a Saturday
    const Date night = at(2024, 3, 2);
    const struct {
        Date date;
        const char* expression;
        const char* text;
    } cases[] = {{evening, "", "3/2/2024 6:05:09 PM"},
                 {night, "", "3/2/2024"},
                 {night, "General Date", "3/2/2024"},
                 {Date(0.25), "c", "6:00:00 AM"},
                 {Date(0), "c", "12/30/1899"},
                 {evening, "LONG DATE", "Saturday, March 2, 2024"},
                 {evening, "Medium Date", "02-Mar-24"},
                 {evening, "short date", "3/2/2024"},
                 {evening, "Long Time", "6:05:09 PM"},
                 {evening, "Medium Time", "06:05 PM"},
                 {evening, "Short Time", "18:05"},
                 {evening, "d|dd|ddd|dddd|ddddd", "2|02|Sat|Saturday|3/2/2024"},
                 {evening, "dddddd ddddddd", "Saturday, March 2, 2024 Saturday, March 2, 20242"},
                 {evening, "w ww", "7 9"},
                 {evening, "m|mm|mmm|mmmm|mmmmm|q", "3|03|Mar|March|March3|1"},
                 {evening, "M MM MMM MMMM Q", "3 03 Mar March 1"},
                 {evening, "y yy yyy yyyy yyyyy", "62 24 2462 2024 202462"},
                 {evening, "h|hh|n|nn|s|ss|ttttt|tttt", "18|18|5|05|9|09|6:05:09 PM|tttt"},
                 {evening, "h:m hh:mm h mmm m", "18:5 18:05 18 Mar 3"},
                 {evening, "hmmss mm", "180509 03"},
                 {evening, "h AM/PM h am/pm h A/P h a/p h ampm", "6 PM 6 pm 6 P 6 p 6 PM"},
                 {night, "h:nn a/p", "12:00 a"},
                 {at(2024, 3, 2, 43200), "hh A/P \"am/pm\"", "12 P am/pm"},
                 {evening, "h \"am/pm\"", "18 am/pm"},
                 {evening, "d/m h:n %$", "2/3 18:5 %$"},
                 {evening, "\\d\\\\ \"dd\" d\\", "d\\ dd 2"},
                 {evening, "d \"dd", "2 dd"},
                 {evening, "\"", ""},
                 {at(200, 1, 1), "ddddd yy yyyy", "1/1/0200 00 0200"},
                 {at(4600, 12, 31), "ddddd yy yyyy", "12/31/4600 00 4600"},
                 {Date(-1.25), "yyyy-mm-dd hh:nn", "1899-12-29 06:00"}};
    box.DateMin(DateOf(Day(200, 1, 1)));
    box.DateMax(DateOf(Day(4600, 12, 31)));
    for (const auto& c : cases) {
        box.DateFormat("");
        box.DateValue(c.date);
        box.DateFormat(c.expression);
        EXPECT_EQ(box.Text(), c.text) << c.expression;
    }
}

TEST_F(DropDown, OpeningRepaintsNothingOfTheBox) {
    test.drawing.Forget();
    test.Key(test.a, kKeyF4);
    const auto& windows = test.drawing.invalidatedWindows;
    EXPECT_EQ(std::count(windows.begin(), windows.end(), box.hWnd()), 0);
    box.DateValue("3/16/2020");
    EXPECT_EQ(std::count(windows.begin(), windows.end(), box.hWnd()), 1);
}

}  // namespace
}  // namespace velmora::test
