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
    // The objects and the modes without an own check have cases of their own below.
    EXPECT_EQ(
        Missing(CalendarProperties(), kCalendarClass),
        (std::set<std::string>{"DayFont", "MonthFont", "MouseIcon", "OLEDropMode", "WeekDayFont"}));
    EXPECT_EQ(Missing(BoxProperties(), kBoxClass),
              (std::set<std::string>{"ComboFont", "DayFont", "MonthFont", "MouseIcon",
                                     "OLEDropMode", "WeekDayFont"}));
}

TEST_F(ScriptedProperties, DatesComeAsTheirPropertySays) {
    ScriptHost script;
    script.AddObject("C", AddCalendar().Control());
    script.AddObject("B", AddBox().Control());
    EXPECT_TRUE(script.Run(R"(
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
    )"));
    EXPECT_EQ(script.Lines(),
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
        for (const std::string name : names) {
            const std::string member = "C." + name;
            EXPECT_TRUE(script.Run(
                "Host.Echo " + member + ".Name\nSet " + member + " = F\nHost.Echo Round(" + member +
                ".Size)\nF.Bold = True\n" + "Host.Echo " + member + ".Bold\nF.Bold = False\n" +
                "On Error Resume Next\nSet " + member +
                " = Host\nHost.Echo Err.Number <> 0\nHost.Echo Round(" + member + ".Size)"))
                << name;
        }
        for (std::size_t at = 0; at < script.Lines().size(); at += 5) {
            EXPECT_EQ(std::vector(script.Lines().begin() + static_cast<std::ptrdiff_t>(at),
                                  script.Lines().begin() + static_cast<std::ptrdiff_t>(at) + 5),
                      (std::vector<std::string>{"Tahoma", "12", "True", "True", "12"}));
        }
        EXPECT_EQ(script.Lines().size(), names.size() * 5);
        form->Remove(site);
    }
}

ComPtr<IPictureDisp> Picture(UINT type) {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof(description);
    description.picType = type;
    if (type == PICTYPE_ICON) {
        description.icon.hicon = LoadIconW(nullptr, IDI_APPLICATION);
    } else {
        description.bmp.hbitmap = CreateBitmap(4, 4, 1, 1, nullptr);
    }
    ComPtr<IPictureDisp> picture;
    OleCreatePictureIndirect(&description, IID_IPictureDisp, type == PICTYPE_BITMAP,
                             reinterpret_cast<void**>(picture.GetAddressOf()));
    return picture;
}

TEST_F(ScriptedProperties, MouseIconsAreIconsOnly) {
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        ScriptHost script;
        script.AddObject("C", site.Control());
        script.AddObject("Icon", Picture(PICTYPE_ICON).Get());
        script.AddObject("Bitmap", Picture(PICTYPE_BITMAP).Get());
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
    ScriptHost script;
    script.AddObject("C", AddCalendar().Control());
    script.AddObject("B", AddBox().Control());
    EXPECT_TRUE(script.Run(R"(
        C.NoRepaintControl = True : C.NoResizeControl = True : C.AlwaysDateChanged = True
        C.NoRepaintControl = False
        B.NoLostFocus = True
        On Error Resume Next
        Err.Clear : x = C.NoRepaintControl : Host.Echo Err.Number
        Err.Clear : x = C.NoResizeControl : Host.Echo Err.Number
        Err.Clear : x = C.AlwaysDateChanged : Host.Echo Err.Number
        Err.Clear : x = B.NoLostFocus : Host.Echo Err.Number
        Err.Clear : x = C.NoSuchThing : Host.Echo Err.Number
    )"));
    EXPECT_EQ(script.Lines(), std::vector<std::string>(5, "438"));
}

TEST_F(ScriptedProperties, DropModesAreTheWindows) {
    ScriptHost script;
    script.AddObject("C", AddCalendar().Control());
    EXPECT_TRUE(
        script.Run("Host.Echo C.OLEDropMode\nC.OLEDropMode = 1\nHost.Echo C.OLEDropMode\n"
                   "On Error Resume Next\nC.OLEDropMode = 3\nHost.Echo Err.Number\n"
                   "Host.Echo C.OLEDropMode"));
    EXPECT_EQ(script.Lines(), (std::vector<std::string>{"0", "1", "380", "1"}));
}

}  // namespace
}  // namespace velmora::vmhost
