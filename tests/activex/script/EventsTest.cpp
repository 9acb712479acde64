#include "tests/activex/support/Census.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/ScriptHost.h"

#include <algorithm>

namespace velmora::vmhost {
namespace {

using ScriptedEvents = ClientTest;

TEST_F(ScriptedEvents, ComeInOrderWithTheirArguments) {
    ControlSite& site = AddCalendar();
    ScriptHost script;
    script.Follow("C", site.Control());
    EXPECT_TRUE(script.Run(R"(
        Sub C_DateChanged(d) : Host.Echo "date " & Year(d) & "-" & Month(d) & "-" & Day(d) : End Sub
        Sub C_DayChanged(n) : Host.Echo "day " & n : End Sub
        Sub C_MonthChanged(n) : Host.Echo "month " & n : End Sub
        Sub C_YearChanged(n) : Host.Echo "year " & n : End Sub
        C.DateValue = #3/2/2024#
        Host.Echo "-"
        C.DateValue = #4/5/2025#
    )"));
    const std::vector<std::string> lines = script.Lines();
    const auto dash = std::find(lines.begin(), lines.end(), "-");
    EXPECT_EQ(std::vector(dash, lines.end()),
              (std::vector<std::string>{"-", "date 2025-4-5", "day 5", "month 4", "year 2025"}));
}

TEST_F(ScriptedEvents, SetADateInsideAnother) {
    ControlSite& site = AddCalendar();
    ScriptHost script;
    script.Follow("C", site.Control());
    EXPECT_TRUE(script.Run(R"(
        Sub C_DateChanged(d)
            Host.Echo d
            If Day(d) = 2 Then C.DateValue = #3/9/2024#
        End Sub
        C.DateValue = #3/2/2024#
        Host.Echo C.SelectedDay.DayDate
    )"));
    EXPECT_EQ(script.Lines(), (std::vector<std::string>{"2024-03-02", "2024-03-09", "2024-03-09"}));
}

TEST_F(ScriptedEvents, CancelAnOpening) {
    ControlSite& site = AddBox();
    ScriptHost script;
    script.Follow("B", site.Control());
    EXPECT_TRUE(script.Run(R"(
        Dim refuse
        Sub B_DropDown(Cancel) : Host.Echo "open" : Cancel = refuse : End Sub
        Sub B_CloseUp() : Host.Echo "close" : End Sub
    )"));
    SetForegroundWindow(form->Window());
    const int closed = VisibleWindows();
    for (const bool refuses : {true, false}) {
        script.Run(refuses ? "refuse = True" : "refuse = False");
        EXPECT_TRUE(script.Run("B.DropDownState = True"));
        EXPECT_TRUE(Serve([&] { return Got(site.Control(), "DropDownState") == "True"; }));
        ServeWaiting(form.Get());
        EXPECT_EQ(VisibleWindows() == closed, refuses);
        EXPECT_TRUE(script.Run("B.DropDownState = False"));
        EXPECT_EQ(VisibleWindows(), closed);
        SetFocus(form->Window());
        ServeWaiting(form.Get());
    }
    EXPECT_EQ(script.Lines(), (std::vector<std::string>{"open", "close", "open", "close"}));
}

TEST_F(ScriptedEvents, ErrorsNameTheirLineAndReason) {
    ControlSite& site = AddCalendar();
    ScriptHost script;
    script.Follow("C", site.Control());
    EXPECT_FALSE(script.Run("x = 1\nC.Appearance = 7"));
    ASSERT_EQ(script.Errors().size(), 1U);
    EXPECT_EQ(script.Errors()[0].number, 380);
    EXPECT_EQ(script.Errors()[0].line, 2);
    EXPECT_NE(script.Errors()[0].source, "");
    EXPECT_NE(script.Errors()[0].description, "");
}

}  // namespace
}  // namespace velmora::vmhost
