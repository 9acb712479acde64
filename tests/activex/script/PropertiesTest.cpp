#include "tests/activex/script/PropertyTable.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/ScriptHost.h"

#include <set>

namespace velmora::vmhost {
namespace {

/// Reads, sets and is refused, with an echo of the value after each step.
std::string ScriptOf(const ScriptProperty& row) {
    const std::string read = row.asHex ? "Hex(C." + row.name + ')' : "C." + row.name;
    const std::string echo = "Host.Echo " + read + '\n';
    std::string text = row.first.empty() ? "" : echo;
    if (!row.literal.empty()) text += "C." + row.name + " = " + row.literal + '\n';
    if (!row.shown.empty()) text += echo;
    text += "On Error Resume Next\n";
    for (const Refusal& refusal : row.refused) {
        text += "Err.Clear\nC." + row.name + " = " + refusal.literal + "\nHost.Echo Err.Number\n";
        if (!row.shown.empty()) text += echo;
    }
    return text;
}

std::vector<std::string> EchoesOf(const ScriptProperty& row) {
    std::vector<std::string> lines;
    if (!row.first.empty()) lines.push_back(row.first);
    if (!row.shown.empty()) lines.push_back(row.shown);
    for (const Refusal& refusal : row.refused) {
        lines.push_back(std::to_string(refusal.number));
        if (!row.shown.empty()) lines.push_back(row.shown);
    }
    return lines;
}

class ScriptedProperties : public ClientTest {
protected:
    void CheckAll(const std::vector<ScriptProperty>& rows, const char* classText) {
        for (const ScriptProperty& row : rows) {
            ControlSite& site = Add(classText, "C", kCalendarPlace);
            ScriptHost script;
            script.AddObject("C", site.Control());
            EXPECT_TRUE(script.Run(ScriptOf(row))) << row.name;
            for (const ScriptError& error : script.Errors()) {
                ADD_FAILURE() << row.name << ": " << error.number << ' ' << error.description;
            }
            EXPECT_EQ(script.Lines(), EchoesOf(row)) << row.name;
            form->Remove(site);
        }
    }

    /// What a script says of a calendar `C` and a box `B`.
    std::vector<std::string> Echoes(const char* text) {
        ScriptHost script;
        script.AddObject("C", AddCalendar().Control());
        script.AddObject("B", AddBox().Control());
        EXPECT_TRUE(script.Run(text));
        return script.Lines();
    }

    /// The properties of the type library that the table leaves out.
    std::set<std::string> Missing(const std::vector<ScriptProperty>& rows, const char* classText) {
        std::set<std::string> names;
        for (const PropertyInfo& property :
             PropertiesOf(Add(classText, "C", kBoxPlace).Control())) {
            names.insert(property.name);
        }
        for (const ScriptProperty& row : rows) names.erase(row.name);
        return names;
    }
};

TEST_F(ScriptedProperties, CalendarsAreReadSetAndRefused) {
    CheckAll(CalendarProperties(), kCalendarClass);
}

TEST_F(ScriptedProperties, BoxesAreReadSetAndRefused) { CheckAll(BoxProperties(), kBoxClass); }

TEST_F(ScriptedProperties, TablesLeaveOutOnlyObjects) {
    // They have cases of their own below.
    EXPECT_EQ(Missing(CalendarProperties(), kCalendarClass),
              (std::set<std::string>{"DayFont", "MonthFont", "MouseIcon", "WeekDayFont"}));
    EXPECT_EQ(
        Missing(BoxProperties(), kBoxClass),
        (std::set<std::string>{"ComboFont", "DayFont", "MonthFont", "MouseIcon", "WeekDayFont"}));
}

TEST_F(ScriptedProperties, DatesComeAsTheirPropertySays) {
    EXPECT_EQ(Echoes(R"(
        C.DateValue = #3/2/2024#
        B.DateValue = #3/2/2024#
        Host.Echo TypeName(C.DateValue) & " " & TypeName(C.DateMin)
        Host.Echo TypeName(B.DateValue) & " " & TypeName(B.DateMin)
        C.DateValue = 45355
        Host.Echo C.SelectedDay.DayDate
        C.DateValue = Empty
        Host.Echo C.SelectedDay.DayDate
        On Error Resume Next
        C.DateValue = #1/1/3000#
        Host.Echo Err.Number & " " & (Len(Err.Description) > 0)
        Host.Echo C.SelectedDay.DayDate
        B.DateValue = #1/1/3000#
        Host.Echo B.DateValue
    )"),
              (std::vector<std::string>{"String Date", "Date Date", "2024-03-04", "2024-03-04",
                                        "380 True", "2024-03-04", "2700-12-31"}));
}

TEST_F(ScriptedProperties, FontsAreKeptByReference) {
    const ComPtr<IFontDisp> font = MakeFont("Tahoma", 12);
    for (const auto& [classText, names] :
         {std::pair(kCalendarClass, std::vector{"DayFont", "MonthFont", "WeekDayFont"}),
          std::pair(kBoxClass, std::vector{"DayFont", "MonthFont", "WeekDayFont", "ComboFont"})}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        ScriptHost script;
        script.AddObject("C", site.Control());
        script.AddObject("F", font.Get());
        std::vector<std::string> expected;
        for (const std::string name : names) {
            const std::string member = "C." + name;
            EXPECT_TRUE(script.Run(
                "Host.Echo " + member + ".Name\nSet " + member + " = F\nHost.Echo Round(" + member +
                ".Size)\nF.Bold = True\nHost.Echo " + member +
                ".Bold\nF.Bold = False\nOn Error Resume Next\nSet " + member +
                " = Host\nHost.Echo Err.Number <> 0\nHost.Echo Round(" + member + ".Size)"))
                << name;
            for (const char* line : {"Tahoma", "12", "True", "True", "12"}) {
                expected.push_back(line);
            }
        }
        EXPECT_EQ(script.Lines(), expected);
        form->Remove(site);
    }
}

TEST_F(ScriptedProperties, MouseIconsAreIconsOnly) {
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        ScriptHost script;
        script.AddObject("C", site.Control());
        script.AddObject("Icon", MakePicture(PICTYPE_ICON).Get());
        script.AddObject("Bitmap", MakePicture(PICTYPE_BITMAP).Get());
        EXPECT_TRUE(script.Run(R"(
            Host.Echo C.MouseIcon Is Nothing
            Set C.MouseIcon = Icon
            Host.Echo C.MouseIcon.Type
            On Error Resume Next
            Set C.MouseIcon = Bitmap
            Host.Echo Err.Number
            Host.Echo C.MouseIcon.Type
        )"));
        EXPECT_EQ(script.Lines(), (std::vector<std::string>{"True", "3", "380", "3"})) << classText;
        form->Remove(site);
    }
}

TEST_F(ScriptedProperties, WriteOnlyPropertiesCannotBeRead) {
    EXPECT_EQ(Echoes(R"(
        C.NoRepaintControl = True : C.NoResizeControl = True : C.AlwaysDateChanged = True
        C.NoRepaintControl = False
        B.NoLostFocus = True
        On Error Resume Next
        Err.Clear : x = C.NoRepaintControl : Host.Echo Err.Number
        Err.Clear : x = C.NoResizeControl : Host.Echo Err.Number
        Err.Clear : x = C.AlwaysDateChanged : Host.Echo Err.Number
        Err.Clear : x = B.NoLostFocus : Host.Echo Err.Number
        Err.Clear : x = C.NoSuchThing : Host.Echo Err.Number
    )"),
              std::vector<std::string>(5, "438"));
}

TEST_F(ScriptedProperties, DaysHoldTheShownMonth) {
    EXPECT_EQ(Echoes(R"(
        C.DateValue = #2/10/2024#
        Host.Echo C.Days.Count
        Host.Echo C.Days(29).DayDate
        Host.Echo C.Days.Item(1).DayDate
        n = 0
        For Each d In C.Days
            n = n + 1
            If Day(d.DayDate) <> n Then Host.Echo "not in order"
        Next
        Host.Echo n
        On Error Resume Next
        Err.Clear : Set d = C.Days(0) : Host.Echo Err.Number
        Err.Clear : Set d = C.Days(30) : Host.Echo Err.Number
        Err.Clear : Set d = C.Days("x") : Host.Echo Err.Number
        Err.Clear : Set d = C.Days(70000) : Host.Echo Err.Number
    )"),
              (std::vector<std::string>{"29", "2024-02-29", "2024-02-01", "29", "381", "381", "13",
                                        "6"}));
}

TEST_F(ScriptedProperties, DaysKeepTheirDecorationAndRefuse) {
    EXPECT_EQ(Echoes(R"(
        C.DateValue = #2/10/2024#
        With C.Days(5)
            .Caption = "Call"
            .BackColor = CLng(&HFF)
            .ForeColor = Null
            Host.Echo .Caption & " " & .BackColor & " " & IsNull(.ForeColor)
            Host.Echo .Picture Is Nothing
        End With
        C.Days.DefaultBackColor = &H123456
        Host.Echo Hex(C.DayDefaultBackColor)
        On Error Resume Next
        Err.Clear : C.Days(5).BackColor = "x" : Host.Echo Err.Number
        Err.Clear : C.Days(5).BackColor = 7 : Host.Echo Err.Number  ' 16 bits
        Host.Echo C.Days(5).BackColor
    )"),
              (std::vector<std::string>{"Call 255 True", "True", "123456", "380", "380", "255"}));
}

TEST_F(ScriptedProperties, ErrorsNameTheirLineAndReason) {
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
