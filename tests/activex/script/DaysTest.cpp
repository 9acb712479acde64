#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/ScriptHost.h"

namespace velmora::vmhost {
namespace {

class ScriptedDays : public ClientTest {
protected:
    ScriptedDays() { script.AddObject("C", AddCalendar().Control()); }

    ScriptHost script;
};

TEST_F(ScriptedDays, HoldTheShownMonth) {
    EXPECT_TRUE(script.Run(R"(
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
    )"));
    EXPECT_EQ(script.Lines(), (std::vector<std::string>{"29", "2024-02-29", "2024-02-01", "29",
                                                        "381", "381", "13", "6"}));
}

TEST_F(ScriptedDays, KeepTheirDecorationAndRefuse) {
    EXPECT_TRUE(script.Run(R"(
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
    )"));
    EXPECT_EQ(script.Lines(),
              (std::vector<std::string>{"Call 255 True", "True", "123456", "380", "380", "255"}));
}

TEST_F(ScriptedDays, OutliveTheirCalendar) {
    EXPECT_TRUE(script.Run("Set days = C.Days\nSet one = C.Days(1)\none.Caption = \"kept\""));
    form->RemoveAll();
    script.Run(
        "On Error Resume Next\nHost.Echo one.Caption\nHost.Echo days.Count\n"
        "Err.Clear\nx = C.DateValue\nHost.Echo \"still here\"");
    ASSERT_FALSE(script.Lines().empty());
    EXPECT_EQ(script.Lines().back(), "still here");
}

}  // namespace
}  // namespace velmora::vmhost
