Attribute VB_Name = "VelmoraForm"
' An office macro module: import it, and put a calendar (Velmora Month Calendar) named VmCalendar1
' on a user form named DateForm. AskForDate shows it and writes the chosen date into the active cell.
Option Explicit

Public Sub AskForDate()
    With DateForm.VmCalendar1
        .DateMin = DateSerial(Year(Date) - 1, 1, 1)
        .DateMax = DateSerial(Year(Date) + 1, 12, 31)
        .FirstDayOfWeek = VmMonday
        .MonthYearSelStyle = VmMonthSelArrows
        .DateValue = Date
    End With
    MarkHolidays DateForm.VmCalendar1.Days
    DateForm.Show
    ActiveCell.Value = DateForm.VmCalendar1.SelectedDay.DayDate
End Sub

Private Sub MarkHolidays(ByVal days As VmDays)
    Dim day As VmDay
    For Each day In days
        If Weekday(day.DayDate) = vbSunday Then day.ForeColor = vbRed
    Next
End Sub

' In the code of DateForm, to close it with a double click:
'
'   Private Sub VmCalendar1_DblClick()
'       Me.Hide
'   End Sub
