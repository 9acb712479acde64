#include "tests/activex/support/Census.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/ScriptHost.h"

#include <algorithm>

namespace velmora::vmhost {
namespace {

using ScriptedEvents = ClientTest;

TEST_F(ScriptedEvents, ComeInOrderAndMaySetAnotherDate) {
    ScriptHost script;
    script.Follow("C", AddCalendar().Control());
    EXPECT_TRUE(script.Run(R"(
        Sub C_DateChanged(d)
            Host.Echo d
            If Day(d) = 2 Then C.DateValue = #4/5/2025#
        End Sub
        Sub C_DayChanged(n) : Host.Echo "day " & n : End Sub
        Sub C_MonthChanged(n) : Host.Echo "month " & n : End Sub
        Sub C_YearChanged(n) : Host.Echo "year " & n : End Sub
        C.DateValue = #3/9/2024#
        Host.Echo "-"
        C.DateValue = #3/2/2024#
        Host.Echo C.SelectedDay.DayDate
    )"));
    const std::vector<std::string> lines = script.Lines();
    EXPECT_EQ(std::vector(std::find(lines.begin(), lines.end(), "-"), lines.end()),
              (std::vector<std::string>{"-", "2024-03-02", "2025-04-05", "day 5", "month 4",
                                        "year 2025", "2025-04-05"}));
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

}  // namespace
}  // namespace velmora::vmhost
