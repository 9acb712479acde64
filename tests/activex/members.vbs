' What a script sees of both controls: tells what is wrong, then "done".
Option Explicit
Dim C, B, d, x
Set C = CreateObject("VelmoraCalendar.VmCalendar")
Set B = CreateObject("VelmoraCalendar.VmCalDropDown")
Sub Expect(seen, wanted)
    If CStr(seen) <> CStr(wanted) Then WScript.Echo seen & " instead of " & wanted
    Err.Clear
End Sub

C.DateValue = #3/2/2024#
B.DateValue = #3/2/2024#
Expect TypeName(C.DateValue) & TypeName(C.DateMin) & TypeName(B.DateValue), "StringDateDate"
C.DateValue = 45355
C.DateValue = Empty
Expect CLng(C.SelectedDay.DayDate), 45355
Set B.ComboFont = C.DayFont
C.DayFont.Bold = True
Expect B.ComboFont.Bold & C.MonthFont.Bold, "TrueFalse"
Set C.MouseIcon = Nothing
C.NoRepaintControl = True : C.NoResizeControl = True : C.AlwaysDateChanged = True

C.DateValue = #2/10/2024#
x = 0
For Each d In C.Days
    x = x + 1
    Expect CLng(d.DayDate), 45322 + x
    If x = 5 Then C.DateValue = #3/10/2024#
Next
Expect x, 29
C.DateValue = #2/10/2024#
Expect C.Days(10) Is C.SelectedDay, True
With C.Days.Item(5)
    .Caption = "Call"
    .BackColor = CLng(&HFF)
    .ForeColor = Null
    Expect .Caption & .BackColor & IsNull(.ForeColor) & (.Picture Is Nothing), "Call255TrueTrue"
End With
C.Days.DefaultBackColor = &H123456
Expect C.DayDefaultBackColor, &H123456

On Error Resume Next
Err.Clear
x = B.NoLostFocus : Expect Err.Number, 438
x = C.NoSuchThing : Expect Err.Number, 438
Set C.DayFont = C : Expect Err.Number <> 0, True
Set d = C.Days(0) : Expect Err.Number, 381
Set d = C.Days(30) : Expect Err.Number, 381
Set d = C.Days("x") : Expect Err.Number, 13
Set d = C.Days(70000) : Expect Err.Number, 6
C.Days(5).BackColor = "x" : Expect Err.Number, 380
C.Days(5).BackColor = 7 : Expect Err.Number, 380 ' 16 bits
Expect C.Days(5).BackColor, 255
C.Appearance = 7
Expect Err.Number & Err.Source & Err.Description, "380VelmoraCalendarInvalid property value"
WScript.Echo "done"
