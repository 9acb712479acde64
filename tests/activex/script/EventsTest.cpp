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

}  // namespace
}  // namespace velmora::vmhost
