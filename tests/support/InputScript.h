#pragma once

#include <string_view>

namespace velmora::test {

/// What a user does to a calendar and to a date box, and what every host must raise and show for
/// it. Steps are "what is done -> events = state", with ';' between those of one line: what
/// prepares stands in front of what it is for. An indented line belongs to the step above it. Keys
/// and clicks have their own events, KeyDown, KeyPress and KeyUp, MouseDown, MouseUp and a
/// calendar's Click:
/// "->" tells what they cause between these and '|' what follows them, "=>" tells all.
///
///     calendar, box           a new control at 15 May 2024, its (open) calendar 282 x 210 pixels,
///                             weeks from Monday: a new part
///     turn                    its window runs from right to left from now on
///     let NAME VALUE          a property, by code
///     watch                   from now on "!NAME" tells of each property that has changed
///     key [Ctrl+]NAME         with the modifier's own press and release around it; `repeat` twice
///     click [Ctrl+]PLACE      PLACE is a cell's "row,column" from 1, an arrow of the month band,
///     right, double           "title", "box", or "outside" of the open calendar
///     drag PLACE PLACE
///     press, move, release    of which these are made
///     lose                    something else takes the mouse
///     wheel [Ctrl+]Up, Down   over the grid; `tick` while an arrow button is held
///     list open, list KEY     the month list; `wheel` for a notch towards the user
///     type TEXT, year KEY     the year box
///     spin Up, Down, wheel    the year's spinner by its arrows or a notch
///     scroll on, back, page   the scroll bar by its arrows, and by twelve months
///     focus grid, focus away
///     answer EVENT NUMBER     from now on a handler sets the event's first argument
///     noanswer
///
/// A state is what has changed since the step before: the selected date where it is neither let
/// in nor that of a DateChanged, "(2024-06)" for the month that is shown when it is not the
/// date's, and for this step alone "[6/2024]" for the month list and the year box when they show
/// something else and "<3,3>" for the marked cell, in the core also "{15,16}" for the repainted
/// days or `all` and "^MonthBack,~YearBack" for a pushed arrow and a disabled one. The box's text
/// is that of its date, and its calendar is to be seen from DropDown to CloseUp.
///
/// Events of moves are left out: systems repeat and merge them as they like. Clicks at the same
/// place need another press between them, or some systems make them a double click.
inline constexpr std::string_view kInputScript = R"(
calendar; key Right -> DateChanged(2024-05-16) DayChanged(16) = {15,16}
key Left -> DateChanged(2024-05-15) DayChanged(15)
key Down -> DateChanged(2024-05-22) DayChanged(22)
key Up -> DateChanged(2024-05-15) DayChanged(15)
key PageDown -> MonthChanged(6) = 2024-06-15 {all}; key PageUp -> MonthChanged(5) = 2024-05-15
key Ctrl+PageDown -> YearChanged(2025) = 2025-05-15
key Ctrl+PageUp -> YearChanged(2024) = 2024-05-15
key Shift+Down -> DateChanged(2024-05-22) DayChanged(22)
key Shift+PageUp -> MonthChanged(4) = 2024-04-15
repeat Right -> KeyDown(39, 0) DateChanged(2024-04-16) DayChanged(16) KeyDown(39, 0)
    DateChanged(2024-04-17) DayChanged(17) KeyUp(39, 0)
calendar; key A; key Shift+B; key Return; key Escape; key F4; key Delete
repeat A -> KeyDown(65, 0) KeyPress(97) KeyDown(65, 0) KeyPress(97) KeyUp(65, 0)
let Enabled 0; key Right =>; click 3,3 =>; click 4,4 =>
let Enabled 1; key Right -> DateChanged(2024-05-16) DayChanged(16)
calendar; watch
let DateValue 2020-12-31 -> DateChanged(2020-12-31) DayChanged(31) MonthChanged(12)
    YearChanged(2020) !DateValue = {all}
key Right -> DateChanged(2021-01-01) DayChanged(1) MonthChanged(1) YearChanged(2021)
    !DateValue = {all}
let DateValue 2021-01-31 -> DateChanged(2021-01-31) DayChanged(31) !DateValue = {01,31}
key PageUp -> MonthChanged(12) !DateValue = 2020-12-31 {all}
key Ctrl+PageUp -> YearChanged(2019) !DateValue = 2019-12-31
let DateValue 2020-03-03 -> DateChanged(2020-03-03) DayChanged(3) MonthChanged(3)
    YearChanged(2020) !DateValue
key Up -> DateChanged(2020-02-25) DayChanged(25) MonthChanged(2) !DateValue = {all}
let DateValue 2020-02-29 -> DateChanged(2020-02-29) DayChanged(29) !DateValue
key Ctrl+PageDown -> YearChanged(2021) !DateValue = 2021-02-28
let DateValue 2021-01-31 -> DateChanged(2021-01-31) DayChanged(31) MonthChanged(1) !DateValue
key PageDown -> MonthChanged(2) !DateValue = 2021-02-28
let DateMin 2021-03-05 -> !DateValue !DateMin = 2021-03-01 {}; let DateMax 2021-03-05 -> !DateMax
let FirstDayOfWeek 1 -> !FirstDayOfWeek; let Enabled 0 -> !Enabled
calendar; let ShowWeekend 0; let DateMin 2024-05-13; let DateMax 2024-06-10
let DateValue 2024-06-28 -> DateChanged(2024-06-28) DayChanged(28) MonthChanged(6); key Right
key Down; key PageDown; key Ctrl+PageDown; key Left -> DateChanged(2024-06-27) DayChanged(27)
let DateValue 2024-06-03 -> DateChanged(2024-06-03) DayChanged(3)
key Left -> DateChanged(2024-05-31) DayChanged(31) MonthChanged(5)
let DateValue 2024-05-01 -> DateChanged(2024-05-01) DayChanged(1); key Left; key PageUp
let DateValue 2024-06-01 -> DateChanged(2024-06-01) MonthChanged(6)
key PageUp -> MonthChanged(5) = 2024-05-01; key Down -> DateChanged(2024-05-08) DayChanged(8)
let DateValue 2024-06-23 -> DateChanged(2024-06-23) DayChanged(23) MonthChanged(6)
key Down -> DateChanged(2024-06-30) DayChanged(30); let DateMin 200-01-01; let DateMax 4600-12-31
let DateValue 0200-01-01 -> DateChanged(0200-01-01) DayChanged(1) MonthChanged(1) YearChanged(200)
key Up
let DateValue 4600-12-31 -> DateChanged(4600-12-31) DayChanged(31) MonthChanged(12)
    YearChanged(4600)
key Right
calendar; click 3,3 -> DateChanged(2024-05-08) DayChanged(8); right 3,4; click 3,3
let AlwaysDateChanged 1; click Ctrl+3,3 -> DayChanged(8); click title
double 4,5 -> MouseDown(1, 0, 180, 143) DateChanged(2024-05-17) DayChanged(17)
    MouseUp(1, 0, 180, 143) Click() MouseDown(1, 0, 180, 143) DblClick() DayChanged(17)
    MouseUp(1, 0, 180, 143)
click 1,1 -> DateChanged(2024-04-22) DayChanged(22) MonthChanged(4)
click 6,7 -> DateChanged(2024-05-05) DayChanged(5) MonthChanged(5)
let DateValue 2020-01-31 -> DateChanged(2020-01-31) DayChanged(31) MonthChanged(1) YearChanged(2020)
click 2,2 -> DateChanged(2019-12-31) MonthChanged(12) YearChanged(2019)
let DateMin 2019-12-01; click 1,1
calendar; drag 2,1 4,6 -> DateChanged(2024-05-18) DayChanged(18); drag 3,1 outside
press 3,3 = {08,18} <3,3>; move 3,3 = {}; move 3,4 = {08,09} <3,4>; move outside = {09,18} <4,6>
move title = {} <4,6>; move 4,6 = {18,18} <4,6>; key Escape = <4,6>; move 3,3 = {} <4,6>
release 3,3 => MouseUp(1, 0, 100, 117); press 4,1 = <4,1>; lose = {13,18} <4,6>
release 4,1 => MouseUp(1, 0, 20, 143); press 4,2; let Enabled 0; let Enabled 1 = <4,6>
release 4,2 => MouseUp(1, 0, 60, 143); move 3,3 = {}
calendar
let MonthYearSelStyle 1; press MonthForward = {band} <4,3> ^MonthForward; move 3,3 = {band} <4,3>
move MonthForward = {band} <4,3> ^MonthForward
release MonthForward -> MonthChanged(6) = (2024-06) <>
click YearBack -> YearChanged(2023) = (2023-06); click MonthBack -> MonthChanged(5) = (2023-05)
click YearForward -> YearChanged(2024) = (2024-05); drag MonthBack 3,3 = <4,3>
drag YearBack MonthForward; drag 3,3 YearForward
right YearBack; press YearForward = <4,3> ^YearForward; key Escape = {band} <4,3>
release YearForward => MouseUp(1, 0, 268, 14)
calendar; let MonthYearSelStyle 1; click MonthForward -> MonthChanged(6) = (2024-06)
key Right -> DateChanged(2024-05-16) DayChanged(16) = (2024-06)
key PageDown -> MonthChanged(7) = 2024-07-15
right title; let DateValue 2024-01-31 -> DateChanged(2024-01-31) DayChanged(31) MonthChanged(1)
click MonthForward -> MonthChanged(2) = (2024-02)
right title; click MonthForward -> MonthChanged(3) = (2024-03)
key Right -> DateChanged(2024-02-01) DayChanged(1) MonthChanged(2)
click MonthBack -> MonthChanged(1) = (2024-01)
right title; click MonthBack -> MonthChanged(12) YearChanged(2023) = (2023-12)
let DateValue 2024-01-31 -> DateChanged(2024-01-31) DayChanged(31) MonthChanged(1) YearChanged(2024)
click MonthForward -> MonthChanged(2) = (2024-02); click 1,3 -> MonthChanged(1) = 2024-01-31
let AlwaysDateChanged 1; click MonthForward -> MonthChanged(2) = (2024-02)
click 1,3 -> DayChanged(31) MonthChanged(1) = 2024-01-31
click MonthForward -> MonthChanged(2) = (2024-02)
click 1,1 -> DateChanged(2024-01-29) DayChanged(29) MonthChanged(1)
click YearBack -> YearChanged(2023) = (2023-01)
let DateValue 2024-01-31 -> DateChanged(2024-01-31) DayChanged(31) MonthChanged(1) YearChanged(2024)
let DateValue 2024-02-29 -> DateChanged(2024-02-29) DayChanged(29) MonthChanged(2)
click YearForward -> YearChanged(2025) = (2025-02); key PageDown -> MonthChanged(3) = 2025-03-28
let DateMax 2024-08-01 = 2024-08-31
let DateMin 2024-07-01; click MonthBack -> MonthChanged(7) = (2024-07)
right title; click MonthBack; click YearForward
let DateValue 2024-07-31 -> DateChanged(2024-07-31) MonthChanged(7)
click MonthForward -> MonthChanged(8) = (2024-08)
click 5,5 -> DateChanged(2024-08-30) DayChanged(30) MonthChanged(8)
calendar; turn; click 3,1 -> DateChanged(2024-05-12) DayChanged(12) = <3,1>
key Left -> DateChanged(2024-05-13) DayChanged(13) = {12,13} <4,7>
key Right -> DateChanged(2024-05-12) DayChanged(12)
let MonthYearSelStyle 1; click MonthForward -> MonthChanged(4) = (2024-04)
press YearBack = <> ^YearForward; release YearBack -> YearChanged(2025) = (2025-04)
calendar; answer KeyDown 38; key Right -> DateChanged(2024-05-08) DayChanged(8)
answer KeyDown 0; key Right
calendar; let MonthYearSelStyle 2
list Down -> DateChanged(2024-06-15) MonthChanged(6) = 2024-05-15 (2024-06) {all}
list Return -> MonthChanged(6); list open; list Down = [7/2024]
list Return -> DateChanged(2024-07-15) MonthChanged(7) = 2024-05-15 (2024-07)
list open; list Down = [8/2024]; list Escape -> MonthChanged(7)
list Down -> DateChanged(2024-08-15) MonthChanged(8) = 2024-05-15 (2024-08)
list wheel -> DateChanged(2024-09-15) MonthChanged(9) = 2024-05-15 (2024-09)
list Up -> DateChanged(2024-08-15) MonthChanged(8) = 2024-05-15 (2024-08)
let DateMax 2024-09-01; list Down -> DateChanged(2024-09-15) MonthChanged(9) = 2024-05-15 (2024-09)
list Down = [10/2024]; focus grid; key PageUp -> MonthChanged(8) = 2024-08-15; turn
list Up -> DateChanged(2024-07-15) MonthChanged(7) = 2024-08-15 (2024-07)
calendar
let MonthYearSelStyle 2; type 2027 = [5/2027]; year Return -> YearChanged(2027) = (2027-05) {all}
year Return; type 2999 = [5/2999]; year Escape
type 19x = [5/19x]; year Return -> YearChanged(2027)
type 99999 = [5/99999]; year Return -> YearChanged(2027)
type 1999 = [5/1999]; year F5 = [5/1999]
let MonthYearSelStyle 0; focus grid
let MonthYearSelStyle 2; type 2024 = [5/2024]; focus grid -> YearChanged(2024) = (2024-05)
type 2025 = [5/2025]
click 3,3 => YearChanged(2025) MouseDown(1, 0, 100, 117) DateChanged(2025-05-14) DayChanged(14)
    YearChanged(2025) MouseUp(1, 0, 100, 117) Click()
type 2026 = [5/2026]
key Down => YearChanged(2026) KeyDown(40, 0) DateChanged(2025-05-21) DayChanged(21) KeyUp(40, 0)
    = (2026-05)
calendar; let MonthYearSelStyle 2; year Up -> YearChanged(2025) = (2025-05)
year Down -> YearChanged(2024) = (2024-05); year PageUp -> YearChanged(2034) = (2034-05)
year PageDown -> YearChanged(2024) = (2024-05)
type 2033 = [5/2033]; year Up -> YearChanged(2033) YearChanged(2034) = (2034-05)
spin Up -> YearChanged(2035) = (2035-05) {all}; spin Down -> YearChanged(2034) = (2034-05)
type 2030 = [5/2030]; spin wheel -> YearChanged(2030) YearChanged(2029) = (2029-05)
let DateMin 2020-03-01; let DateMax 2036-02-29
type 2035 = [5/2035]; spin Up -> YearChanged(2035) YearChanged(2036) = (2036-05); spin Up
type 2034 = [5/2034]; spin Up -> YearChanged(2034) YearChanged(2035) = (2035-05)
type 2019 = [5/2019]; year Return -> YearChanged(2035)
calendar; let MonthYearSelStyle 3; scroll on -> MonthChanged(6) = (2024-06) {all}
scroll page -> YearChanged(2025) = (2025-06)
let DateValue 2023-01-31 -> DateChanged(2023-01-31) DayChanged(31) MonthChanged(1) YearChanged(2023)
scroll back -> MonthChanged(12) YearChanged(2022) = (2022-12)
scroll page -> YearChanged(2023) = (2023-12)
let DateMax 2024-05-01; scroll page -> MonthChanged(5) YearChanged(2024) = (2024-05); scroll on
box; watch; key Right -> DateChanged(2024-05-16) DayChanged(16) !DateValue
key PageUp -> DateChanged(2024-04-16) MonthChanged(4) !DateValue
key Ctrl+PageDown -> DateChanged(2025-04-16) YearChanged(2025) !DateValue; key A
repeat Down -> KeyDown(40, 0) DateChanged(2025-04-23) DayChanged(23) !DateValue KeyDown(40, 0)
    DateChanged(2025-04-30) DayChanged(30) !DateValue KeyUp(40, 0)
let DateValue 2020-01-31 -> !DateValue
key PageUp -> DateChanged(2019-12-31) MonthChanged(12) YearChanged(2019) !DateValue
let DateMin 2019-12-05 -> !DateMin; let DateMin 2020-01-05 -> !DateValue !DateMin = 2020-01-01
box; let DateMin 2024-06-05 = 2024-06-01; key Left; let DateMax 2024-06-05; key PageDown
let ShowWeekend 0; let DateValue 2024-06-10; key Left -> DateChanged(2024-06-07) DayChanged(7)
key Right -> DateChanged(2024-06-10) DayChanged(10); let DateValue 2024-06-28; key Right
key F4 -> DropDown(False); key Right; key Left -> DateChanged(2024-06-27) DayChanged(27)
let DateValue 2024-06-11; let DateMin 2023-06-01; let DateMax 2023-06-30 = 2023-06-30; key PageDown
box; watch
key F4 -> DropDown(False); key Right -> DateChanged(2024-05-16) !DateValue DayChanged(16)
key Ctrl+PageUp -> DateChanged(2023-05-16) !DateValue YearChanged(2023)
right title; click 3,3 -> DateChanged(2023-05-10) !DateValue DayChanged(10) | CloseUp()
let DateValue 2020-03-29 -> !DateValue; key F4 -> DropDown(False)
click 1,6 -> DateChanged(2020-02-29) !DateValue MonthChanged(2) | CloseUp()
box; let MonthYearSelStyle 1; key F4 -> DropDown(False); right 3,3; drag MonthForward 3,3
click MonthForward -> MonthChanged(6) = (2024-06); move 3,3
click 3,3 -> DateChanged(2024-06-12) DayChanged(12) MonthChanged(6) | CloseUp()
key F4 -> DropDown(False); click YearBack -> YearChanged(2023) = (2023-06)
key Escape -> MonthChanged(6) YearChanged(2024) CloseUp() = (2024-06)
key F4 -> DropDown(False); click MonthForward -> MonthChanged(7) = (2024-07)
key Right -> DateChanged(2024-06-13) DayChanged(13) MonthChanged(6)
click MonthForward -> MonthChanged(7) = (2024-07)
focus away -> MonthChanged(6) CloseUp() = (2024-06)
box; turn; key Left -> DateChanged(2024-05-16) DayChanged(16)
key F4 -> DropDown(False); click 3,7 -> DateChanged(2024-05-06) DayChanged(6) | CloseUp()
box; key F4 -> DropDown(False); click 4,3 -> DayChanged(15) | CloseUp()
key F4 -> DropDown(False); drag 4,4 outside -> | CloseUp()
key F4 -> DropDown(False); drag 4,5 title; focus away -> CloseUp()
key F4 -> DropDown(False); drag title 4,6 -> DateChanged(2024-05-18) DayChanged(18) | CloseUp()
key F4 -> DropDown(False); click outside => MouseDown(1, 0, -20, 100) CloseUp()
key F4 -> DropDown(False); drag title outside -> | CloseUp()
key F4 -> DropDown(False)
right outside -> | CloseUp(); key F4 -> DropDown(False); press 3,5; focus away
right 3,5; release 3,5 -> DateChanged(2024-05-10) DayChanged(10) | CloseUp()
double box -> MouseDown(1, 0, 10, 10) DropDown(False) MouseUp(1, 0, 10, 10)
    MouseDown(1, 0, 10, 10) CloseUp() MouseUp(1, 0, 10, 10)
right box; key F4 -> DropDown(False); focus away -> CloseUp()
key F4 -> DropDown(False); press 3,4; key Escape -> CloseUp(); release 3,4 =>
box; key Alt+Down -> DropDown(False); key Ctrl+Escape; key Escape -> CloseUp(); key Escape
key Alt+Down -> DropDown(False)
key Alt+Up => KeyDown(18, 4) CloseUp() KeyDown(38, 4) KeyUp(38, 4) KeyUp(18, 0)
key Alt+Up -> DropDown(False); key Return -> CloseUp(); key Return; key Shift+F4
key F4 -> DropDown(False); let Enabled 0 -> CloseUp(); key F4 =>; click box =>
let DropDownState 1; let Enabled 1
box; let DropDownState 1 -> DropDown(False); key F4 -> CloseUp(); let DropDownState 0 -> CloseUp()
answer DropDown 1; key F4 -> DropDown(False); let DropDownState 0 -> CloseUp()
let DropDownState 1 -> DropDown(False); noanswer; key F4 -> CloseUp()
answer KeyDown 40; key Left -> DateChanged(2024-05-22) DayChanged(22); noanswer
)";

/// Of hosts that have `ExtendedNavigation`.
inline constexpr std::string_view kExtendedScript = R"(
calendar; wheel Down; let ExtendedNavigation 1; key End -> DateChanged(2024-05-31) DayChanged(31)
key End; key PageDown -> DateChanged(2024-06-30) DayChanged(30) MonthChanged(6)
key Left -> DateChanged(2024-06-29) DayChanged(29)
key PageUp -> DateChanged(2024-05-29) MonthChanged(5)
key Ctrl+PageDown -> DateChanged(2025-05-29) YearChanged(2025)
key Home -> DateChanged(2025-05-01) DayChanged(1); wheel Down -> MonthChanged(6) = (2025-06)
wheel Ctrl+Up -> YearChanged(2024) = (2024-06)
key Home -> MonthChanged(5) YearChanged(2025) = 2025-05-01
wheel Down -> MonthChanged(6) = (2025-06)
key Right -> DateChanged(2025-05-02) DayChanged(2) MonthChanged(5)
wheel Up -> MonthChanged(4) = (2025-04); key Space -> MonthChanged(5) = 2025-05-02; key Return
key Ctrl+End; let AlwaysDateChanged 1; key Return -> DayChanged(2); key Ctrl+Return
let ShowWeekend 0; key End -> DateChanged(2025-05-30) DayChanged(30)
key PageDown -> DateChanged(2025-06-30) MonthChanged(6)
key Home -> DateChanged(2025-06-02) DayChanged(2)
key Ctrl+PageUp -> DateChanged(2024-06-03) DayChanged(3) YearChanged(2024)
key Up -> DateChanged(2024-05-27) DayChanged(27) MonthChanged(5)
key End -> DateChanged(2024-05-31) DayChanged(31)
key PageUp -> DateChanged(2024-04-30) DayChanged(30) MonthChanged(4)
key Ctrl+PageUp -> DateChanged(2023-04-28) DayChanged(28) YearChanged(2023)
let DateMin 2023-01-01; let DateMax 2023-05-01; key Ctrl+Home
wheel Down -> MonthChanged(5) = (2023-05); wheel Down; let Enabled 0; wheel Up
calendar; let ExtendedNavigation 1
let MonthYearSelStyle 1; let DateMax 2024-07-01 = {band} <4,3> ^~YearForward
press YearForward = <4,3> ^~YearForward; tick; release YearForward
press MonthForward = <4,3> ^~YearForward,MonthForward; move 3,3 = <4,3> ^~YearForward; tick
move MonthForward = <4,3> ^~YearForward,MonthForward
tick -> MonthChanged(6) = (2024-06) <> ^~YearForward,MonthForward
tick -> MonthChanged(7) = (2024-07) <> ^~YearForward,~MonthForward; tick; release MonthForward
tick; press MonthBack; wheel Up; lose; tick
box; let ExtendedNavigation 1; key Home -> DateChanged(2024-05-01) DayChanged(1); key Home
key Space; key F4 -> DropDown(False); key End -> DateChanged(2024-05-31) DayChanged(31)
key Right -> DateChanged(2024-06-01) DayChanged(1) MonthChanged(6)
wheel Down -> MonthChanged(7) = (2024-07)
key Escape -> DateChanged(2024-05-01) MonthChanged(5) CloseUp()
key F4 -> DropDown(False); key Escape -> CloseUp()
key F4 -> DropDown(False); key Right -> DateChanged(2024-05-02) DayChanged(2)
key Space -> CloseUp(); key F4 -> DropDown(False); let DateMin 2024-06-01 = 2024-06-01
key Escape -> CloseUp()
)";

}  // namespace velmora::test
