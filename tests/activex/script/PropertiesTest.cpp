#include "tests/activex/support/ComponentRows.h"
#include "tests/activex/support/ScriptHost.h"

#include <set>

namespace velmora::vmhost {
namespace {

using Lines = std::vector<std::string>;

Value NullValue() {
    Value value;
    V_VT(&value) = VT_NULL;
    return value;
}

class PublishedProperties : public ClientTest {
protected:
    /// What a script says of a calendar `C` and a box `B`.
    Lines Echoes(const char* text) {
        ScriptHost script;
        script.AddObject("C", AddCalendar().Control());
        script.AddObject("B", AddBox().Control());
        EXPECT_TRUE(script.Run(text));
        return script.Lines();
    }
    static long NumberOfPut(IUnknown* control, const PropertyRow& row, const Value& value) {
        return PutProperty(control, row.name, value).Number();
    }
    static void ExpectTakesAndRefuses(IUnknown* control, const PropertyRow& row);
};

void PublishedProperties::ExpectTakesAndRefuses(IUnknown* control, const PropertyRow& row) {
    if (row.kind != Kind::Font && row.initial != test::kToday) {
        EXPECT_EQ(ReadBack(control, row), row.initial);
    }
    for (const double number : {row.low, row.high}) {
        EXPECT_EQ(NumberOfPut(control, row, ValueOf(row, number)), 0);
        EXPECT_EQ(ReadBack(control, row), Shown(row, number));
    }
    const auto refuse = [&](const Value& value, long error) {
        EXPECT_EQ(NumberOfPut(control, row, value), error) << Readable(value.Get());
        EXPECT_EQ(ReadBack(control, row), Shown(row, row.high)) << Readable(value.Get());
    };
    for (const double number : test::RefusedNumbers(row)) {
        refuse(ValueOf(row, number), row.kind == Kind::Pointer ? 0 : 380);
    }
    if (row.kind == Kind::Icon) refuse(MakePicture(PICTYPE_BITMAP).Get(), 380);
    if (row.form == test::Form::Object || row.kind == Kind::Format) return;
    refuse("text", 13);
    refuse(NullValue(), 13);
    if (row.kind == Kind::Choice || row.kind == Kind::Color) refuse(5e9, 6);
}

TEST_F(PublishedProperties, FollowTheTable) {
    for (const auto& [classText, rows] : kClasses) {
        for (const PropertyRow& row : rows) {
            SCOPED_TRACE(std::string(classText) + '.' + std::string(row.name));
            ControlSite& site = Add(classText, "C", kCalendarPlace);
            ExpectTakesAndRefuses(site.Control(), row);
            form->Remove(site);
        }
    }
}

TEST_F(PublishedProperties, BesidesTheTableAreObjectsHandlesAndModes) {
    for (const auto& [classText, rows] : kClasses) {
        IUnknown* const control = Add(classText, classText, kCalendarPlace).Control();
        std::set<std::string> names;
        for (const PropertyInfo& property : PropertiesOf(control)) names.insert(property.name);
        for (const PropertyRow& row : rows) names.erase(std::string(row.name));
        std::set<std::string> others{"Days", "OLEDropMode", "SelectedDay", "hWnd"};
        if (classText == kCalendarClass) others.insert("cboMonthhwnd");
        EXPECT_EQ(names, others);
        for (const char* name : {"Days", "SelectedDay", "hWnd"}) {
            EXPECT_EQ(PutProperty(control, name, 1).Number(), 438) << name;
        }
        EXPECT_EQ(PutProperty(control, "OLEDropMode", 2).Number(), 0);
        EXPECT_EQ(PutProperty(control, "OLEDropMode", 3).Number(), 380);
        EXPECT_EQ(Got(control, "OLEDropMode"), "2");
    }
}

TEST_F(PublishedProperties, ScriptsReadAndSetThem) {
    EXPECT_EQ(Echoes(R"(
        C.DateValue = #3/2/2024#
        B.DateValue = #3/2/2024#
        Host.Echo TypeName(C.DateValue) & " " & TypeName(C.DateMin)
        Host.Echo TypeName(B.DateValue) & " " & TypeName(B.DateMin)
        C.DateValue = 45355
        C.DateValue = Empty
        Host.Echo C.SelectedDay.DayDate
        Set B.ComboFont = C.DayFont
        C.DayFont.Bold = True
        Host.Echo B.ComboFont.Bold & " " & C.MonthFont.Bold
        Set C.MouseIcon = Nothing
        Host.Echo C.MouseIcon Is Nothing
        C.NoRepaintControl = True : C.NoResizeControl = True : C.AlwaysDateChanged = True
        B.NoLostFocus = True
        On Error Resume Next
        Err.Clear : x = B.NoLostFocus : Host.Echo Err.Number
        Err.Clear : x = C.NoSuchThing : Host.Echo Err.Number
        Err.Clear : Set C.DayFont = Host : Host.Echo Err.Number <> 0
    )"),
              (Lines{"String Date", "Date Date", "2024-03-04", "True False", "True", "438", "438",
                     "True"}));
}

TEST_F(PublishedProperties, DaysHoldTheShownMonthWithItsDecoration) {
    EXPECT_EQ(Echoes(R"(
        C.DateValue = #2/10/2024#
        Host.Echo C.Days.Count
        Host.Echo C.Days(29).DayDate
        n = 0
        For Each d In C.Days
            n = n + 1
            If Day(d.DayDate) <> n Or Month(d.DayDate) <> 2 Then Host.Echo "not in order"
            If n = 5 Then C.DateValue = #3/10/2024#
        Next
        Host.Echo n
        C.DateValue = #2/10/2024#
        Host.Echo C.Days(10) Is C.SelectedDay
        With C.Days.Item(5)
            .Caption = "Call"
            .BackColor = CLng(&HFF)
            .ForeColor = Null
            Host.Echo .Caption & " " & .BackColor & " " & IsNull(.ForeColor)
            Host.Echo .Picture Is Nothing
        End With
        C.Days.DefaultBackColor = &H123456
        Host.Echo Hex(C.DayDefaultBackColor)
        On Error Resume Next
        Err.Clear : Set d = C.Days(0) : Host.Echo Err.Number
        Err.Clear : Set d = C.Days(30) : Host.Echo Err.Number
        Err.Clear : Set d = C.Days("x") : Host.Echo Err.Number
        Err.Clear : Set d = C.Days(70000) : Host.Echo Err.Number
        Err.Clear : C.Days(5).BackColor = "x" : Host.Echo Err.Number
        Err.Clear : C.Days(5).BackColor = 7 : Host.Echo Err.Number  ' 16 bits
        Host.Echo C.Days(5).BackColor
    )"),
              (Lines{"29", "2024-02-29", "29", "True", "Call 255 True", "True", "123456", "381",
                     "381", "13", "6", "380", "380", "255"}));
}

TEST_F(PublishedProperties, ErrorsNameTheirLineAndReason) {
    ScriptHost script;
    script.AddObject("C", AddCalendar().Control());
    EXPECT_FALSE(script.Run("x = 1\nC.Appearance = 7"));
    ASSERT_EQ(script.Errors().size(), 1U);
    EXPECT_EQ(script.Errors()[0].number, 380);
    EXPECT_EQ(script.Errors()[0].line, 2);
    EXPECT_EQ(script.Errors()[0].source, "VelmoraCalendar");
    EXPECT_EQ(script.Errors()[0].description, "Invalid property value");
}

}  // namespace
}  // namespace velmora::vmhost
