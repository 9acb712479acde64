#pragma once

#include <string_view>

namespace velmora::test {

/// What a user does to a calendar and to a date box, and what events every host must raise for it.
/// Steps are "what is done -> events = selected date"; without "-> " there are none, without "= "
/// the date is that of before. An indented line belongs to the step above it.
///
///     calendar, box           a new control at 15 May 2024, its (open) calendar 282 x 210 pixels
///     let NAME VALUE          a property, by code
///     key [Ctrl+]NAME         with the modifier's own press and release around it
///     click [Ctrl+]PLACE      PLACE is a cell's "row,column" from 1, an arrow of the month band,
///     right, double           "box", or "outside" of the open calendar
///     drag PLACE PLACE
///     month, scroll           one on by key in the closed month list, by the scroll bar's button
///     year TEXT               typed in the year box, with Enter
///     answer EVENT NUMBER     from now on a handler sets the event's first argument
///     noanswer
///
/// Moves of the mouse are left out: systems repeat and merge them as they like. Clicks at the same
/// place need another press between them, or some systems make them a double click.
inline constexpr std::string_view kInputScript = R"(
calendar
key Right        -> KeyDown(39, 0) DateChanged(2024-05-16) DayChanged(16) KeyUp(39, 0) = 2024-05-16
key Left         -> KeyDown(37, 0) DateChanged(2024-05-15) DayChanged(15) KeyUp(37, 0) = 2024-05-15
key Down         -> KeyDown(40, 0) DateChanged(2024-05-22) DayChanged(22) KeyUp(40, 0) = 2024-05-22
key Up           -> KeyDown(38, 0) DateChanged(2024-05-15) DayChanged(15) KeyUp(38, 0) = 2024-05-15
key PageDown     -> KeyDown(34, 0) MonthChanged(6) KeyUp(34, 0) = 2024-06-15
key PageUp       -> KeyDown(33, 0) MonthChanged(5) KeyUp(33, 0) = 2024-05-15
key Ctrl+PageDown -> KeyDown(17, 2) KeyDown(34, 2) YearChanged(2025) KeyUp(34, 2) KeyUp(17, 0)
                   = 2025-05-15
key Ctrl+PageUp  -> KeyDown(17, 2) KeyDown(33, 2) YearChanged(2024) KeyUp(33, 2) KeyUp(17, 0)
                   = 2024-05-15
key Shift+Down   -> KeyDown(16, 1) KeyDown(40, 1) DateChanged(2024-05-22) DayChanged(22)
                   KeyUp(40, 1) KeyUp(16, 0) = 2024-05-22
key A            -> KeyDown(65, 0) KeyPress(97) KeyUp(65, 0)
key Shift+B      -> KeyDown(16, 1) KeyDown(66, 1) KeyPress(66) KeyUp(66, 1) KeyUp(16, 0)
key Return       -> KeyDown(13, 0) KeyPress(13) KeyUp(13, 0)
key Escape       -> KeyDown(27, 0) KeyPress(27) KeyUp(27, 0)
key F4           -> KeyDown(115, 0) KeyUp(115, 0)
let FirstDayOfWeek 2
click 3,3        -> MouseDown(1, 0, 100, 117) DateChanged(2024-05-08) DayChanged(8)
                   MouseUp(1, 0, 100, 117) Click() = 2024-05-08
right 3,4        -> MouseDown(2, 0, 140, 117) MouseUp(2, 0, 140, 117)
click 3,3        -> MouseDown(1, 0, 100, 117) MouseUp(1, 0, 100, 117) Click()
let AlwaysDateChanged 1
click Ctrl+3,3   -> KeyDown(17, 2) MouseDown(1, 2, 100, 117) DayChanged(8) MouseUp(1, 2, 100, 117)
                   Click() KeyUp(17, 0)
let MonthYearSelStyle 1
double 4,5       -> MouseDown(1, 0, 180, 143) DateChanged(2024-05-17) DayChanged(17)
                   MouseUp(1, 0, 180, 143) Click() MouseDown(1, 0, 180, 143) DblClick()
                   DayChanged(17) MouseUp(1, 0, 180, 143) = 2024-05-17
drag 2,1 4,6     -> MouseDown(1, 0, 20, 91) DateChanged(2024-05-18) DayChanged(18)
                   MouseUp(1, 0, 220, 143) Click() = 2024-05-18
drag 3,1 outside -> MouseDown(1, 0, 20, 117) MouseUp(1, 0, -20, 100)
click 1,1        -> MouseDown(1, 0, 20, 65) DateChanged(2024-04-22) DayChanged(22) MonthChanged(4)
                   MouseUp(1, 0, 20, 65) Click() = 2024-04-22
click 6,7        -> MouseDown(1, 0, 260, 195) DateChanged(2024-05-05) DayChanged(5) MonthChanged(5)
                   MouseUp(1, 0, 260, 195) Click() = 2024-05-05
click MonthForward -> MouseDown(1, 0, 251, 14) MonthChanged(6) MouseUp(1, 0, 251, 14) Click()
click YearBack   -> MouseDown(1, 0, 14, 14) YearChanged(2023) MouseUp(1, 0, 14, 14) Click()
key Right        -> KeyDown(39, 0) DateChanged(2024-05-06) DayChanged(6) KeyUp(39, 0) = 2024-05-06
let ShowWeekend 0
key Left         -> KeyDown(37, 0) DateChanged(2024-05-03) DayChanged(3) KeyUp(37, 0) = 2024-05-03
key Right        -> KeyDown(39, 0) DateChanged(2024-05-06) DayChanged(6) KeyUp(39, 0) = 2024-05-06
let ShowWeekend 1
let DateMax 2024-08-01
let DateMin 2024-07-01 = 2024-07-01
let DateValue 2024-07-30 -> DateChanged(2024-07-30) DayChanged(30) = 2024-07-30
key Right        -> KeyDown(39, 0) DateChanged(2024-07-31) DayChanged(31) KeyUp(39, 0) = 2024-07-31
key Right        -> KeyDown(39, 0) DateChanged(2024-08-01) DayChanged(1) MonthChanged(8)
                   KeyUp(39, 0) = 2024-08-01
key PageDown     -> KeyDown(34, 0) KeyUp(34, 0)
key PageUp       -> KeyDown(33, 0) MonthChanged(7) KeyUp(33, 0) = 2024-07-01
click MonthForward -> MouseDown(1, 0, 251, 14) MonthChanged(8) MouseUp(1, 0, 251, 14) Click()
click 5,5        -> MouseDown(1, 0, 180, 169) DateChanged(2024-08-30) DayChanged(30) MonthChanged(8)
                   MouseUp(1, 0, 180, 169) Click() = 2024-08-30
let DateMax 2030-01-01
let DateValue 2025-09-30 -> DateChanged(2025-09-30) MonthChanged(9) YearChanged(2025) = 2025-09-30
answer KeyDown 38
key Right        -> KeyDown(39, 0) DateChanged(2025-09-23) DayChanged(23) KeyUp(39, 0) = 2025-09-23
answer KeyDown 0
key Right        -> KeyDown(39, 0) KeyUp(39, 0)
noanswer
let MonthYearSelStyle 2
month            -> DateChanged(2025-10-30) MonthChanged(10)
year 2027        -> YearChanged(2027)
year 1900        -> YearChanged(2027)
let MonthYearSelStyle 3
scroll           -> MonthChanged(11)
key Left         -> KeyDown(37, 0) DateChanged(2025-09-22) DayChanged(22) KeyUp(37, 0) = 2025-09-22
box
key Right        -> KeyDown(39, 0) DateChanged(2024-05-16) DayChanged(16) KeyUp(39, 0) = 2024-05-16
key PageUp       -> KeyDown(33, 0) DateChanged(2024-04-16) MonthChanged(4) KeyUp(33, 0) = 2024-04-16
key Ctrl+PageDown -> KeyDown(17, 2) KeyDown(34, 2) DateChanged(2025-04-16) YearChanged(2025)
                   KeyUp(34, 2) KeyUp(17, 0) = 2025-04-16
key A            -> KeyDown(65, 0) KeyPress(97) KeyUp(65, 0)
let MonthYearSelStyle 1
key F4           -> KeyDown(115, 0) DropDown(False) KeyUp(115, 0)
key Right        -> KeyDown(39, 0) DateChanged(2025-04-17) DayChanged(17) KeyUp(39, 0) = 2025-04-17
key Ctrl+PageUp  -> KeyDown(17, 2) KeyDown(33, 2) DateChanged(2024-04-17) YearChanged(2024)
                   KeyUp(33, 2) KeyUp(17, 0) = 2024-04-17
right 3,3        -> MouseDown(2, 0, 100, 117) MouseUp(2, 0, 100, 117)
click MonthForward -> MouseDown(1, 0, 251, 14) MonthChanged(5) MouseUp(1, 0, 251, 14)
click 3,3        -> MouseDown(1, 0, 100, 117) DateChanged(2024-05-14) DayChanged(14) MonthChanged(5)
                   MouseUp(1, 0, 100, 117) CloseUp() = 2024-05-14
key F4           -> KeyDown(115, 0) DropDown(False) KeyUp(115, 0)
click 3,3        -> MouseDown(1, 0, 100, 117) DayChanged(14) MouseUp(1, 0, 100, 117) CloseUp()
key F4           -> KeyDown(115, 0) DropDown(False) KeyUp(115, 0)
drag 4,4 outside -> MouseDown(1, 0, 140, 143) MouseUp(1, 0, -20, 100) CloseUp()
key F4           -> KeyDown(115, 0) DropDown(False) KeyUp(115, 0)
click outside    -> MouseDown(1, 0, -20, 100) CloseUp()
double box       -> MouseDown(1, 0, 10, 10) DropDown(False) MouseUp(1, 0, 10, 10)
                   MouseDown(1, 0, 10, 10) CloseUp() MouseUp(1, 0, 10, 10)
key Alt+Down     -> KeyDown(18, 4) KeyDown(40, 4) DropDown(False) KeyUp(40, 4) KeyUp(18, 0)
key Escape       -> KeyDown(27, 0) CloseUp() KeyPress(27) KeyUp(27, 0)
key Alt+Down     -> KeyDown(18, 4) KeyDown(40, 4) DropDown(False) KeyUp(40, 4) KeyUp(18, 0)
key Up           -> KeyDown(38, 0) DateChanged(2024-05-07) DayChanged(7) KeyUp(38, 0) = 2024-05-07
key Alt+Up       -> KeyDown(18, 4) CloseUp() KeyDown(38, 4) KeyUp(38, 4) KeyUp(18, 0)
key F4           -> KeyDown(115, 0) DropDown(False) KeyUp(115, 0)
key Return       -> KeyDown(13, 0) CloseUp() KeyPress(13) KeyUp(13, 0)
key Return       -> KeyDown(13, 0) KeyPress(13) KeyUp(13, 0)
let DropDownState 1 -> DropDown(False)
key F4           -> KeyDown(115, 0) CloseUp() KeyUp(115, 0)
answer DropDown 1
key F4           -> KeyDown(115, 0) DropDown(False) KeyUp(115, 0)
noanswer
key F4           -> KeyDown(115, 0) CloseUp() KeyUp(115, 0)
answer KeyDown 40
key Left         -> KeyDown(37, 0) DateChanged(2024-05-14) DayChanged(14) KeyUp(37, 0) = 2024-05-14
noanswer
let DateMax 2023-06-30 = 2023-06-30
key PageDown     -> KeyDown(34, 0) KeyUp(34, 0)
key PageUp       -> KeyDown(33, 0) DateChanged(2023-05-30) MonthChanged(5) KeyUp(33, 0) = 2023-05-30
)";

}  // namespace velmora::test
