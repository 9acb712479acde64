' A calendar without a form: dates, limits and refused values. Run it with
'   cscript //nologo dates.vbs
Option Explicit
Dim calendar, day, weekend

Set calendar = CreateObject("VelmoraCalendar.VmCalendar")
calendar.DateMin = DateSerial(2024, 1, 1)
calendar.DateMax = DateSerial(2024, 12, 31)
calendar.DateValue = DateSerial(2024, 2, 10)

weekend = 0
For Each day In calendar.Days
    If Weekday(day.DayDate) = 1 Or Weekday(day.DayDate) = 7 Then
        day.Caption = "Free"
        weekend = weekend + 1
    End If
Next
WScript.Echo calendar.Days.Count & " days, " & weekend & " of them at a weekend"
WScript.Echo "The 10th says: " & calendar.SelectedDay.Caption

On Error Resume Next
calendar.DateValue = DateSerial(2025, 1, 1)
WScript.Echo "After the last date: error " & Err.Number
WScript.Echo "done"
