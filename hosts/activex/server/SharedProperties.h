// The properties that both controls publish alike, a line each, for the type library and for the
// classes. Who includes this has said what it makes of DEFAULT_VALUE, VALUE, NUMBER (16 bits),
// OBJECT (by pointer, also set by reference) and READ_ONLY.

#define PUBLISH_DateMax(ID) \
    VALUE(ID, DateMax, DATE, "Latest date that can be selected; the last day of its month")
#define PUBLISH_DateMin(ID) \
    VALUE(ID, DateMin, DATE, "Earliest date that can be selected; the first day of its month")
#define PUBLISH_DateValue(ID) DEFAULT_VALUE(ID, DateValue, VARIANT, "The selected date")
#define PUBLISH_DayAppearance(ID) \
    VALUE(ID, DayAppearance, VmAppearanceConstants, "Edges of the day cells: flat or 3D")
#define PUBLISH_DayDefaultBackColor(ID) \
    VALUE(ID, DayDefaultBackColor, OLE_COLOR, "Back colour of days without their own")
#define PUBLISH_DayOtherMonthForeColor(ID) \
    VALUE(ID, DayOtherMonthForeColor, OLE_COLOR, "Fore colour of the neighbouring months' days")
#define PUBLISH_DayDefaultForeColor(ID) \
    VALUE(ID, DayDefaultForeColor, OLE_COLOR, "Fore colour of days without their own")
#define PUBLISH_DayCaptionAlignment(ID) \
    VALUE(ID, DayCaptionAlignment, VmTextAlignmentConstants, "Place of a day's caption in its cell")
#define PUBLISH_DayFont(ID) OBJECT(ID, DayFont, IFontDisp, "Font of day numbers and captions")
#define PUBLISH_DayNumberAlignment(ID) \
    VALUE(ID, DayNumberAlignment, VmTextAlignmentConstants, "Place of a day's number in its cell")
#define PUBLISH_DayPictureAlignment(ID)                         \
    VALUE(ID, DayPictureAlignment, VmPictureAlignmentConstants, \
          "Place of a day's picture in its cell")
#define PUBLISH_Days(ID) READ_ONLY(ID, Days, _VmDays*, "The days of the shown month")
#define PUBLISH_Enabled(ID) \
    VALUE(ID, Enabled, VARIANT_BOOL, "Whether the control answers to the user")
#define PUBLISH_FirstDayOfWeek(ID) \
    VALUE(ID, FirstDayOfWeek, VmWeekDays, "First column of the full week")
#define PUBLISH_hWnd(ID) READ_ONLY(ID, hWnd, long, "Window handle of the control")
#define PUBLISH_MonthAppearance(ID) \
    VALUE(ID, MonthAppearance, VmAppearanceConstants, "Look of the month band: flat or 3D")
#define PUBLISH_MonthBackColor(ID) \
    VALUE(ID, MonthBackColor, OLE_COLOR, "Back colour of the month band")
#define PUBLISH_MonthDisplay(ID) \
    VALUE(ID, MonthDisplay, VmMonthDisplayConstants, "Full or abbreviated month name")
#define PUBLISH_MonthFont(ID) OBJECT(ID, MonthFont, IFontDisp, "Font of the month band")
#define PUBLISH_MonthForeColor(ID) \
    VALUE(ID, MonthForeColor, OLE_COLOR, "Fore colour of the month band")
#define PUBLISH_MouseIcon(ID) \
    OBJECT(ID, MouseIcon, IPictureDisp, "Pointer over the control while MousePointer is 99")
#define PUBLISH_MousePointer(ID) \
    NUMBER(ID, MousePointer, "Pointer over the control: 0 to 15, or 99 for MouseIcon")
#define PUBLISH_SelectedDay(ID) READ_ONLY(ID, SelectedDay, _VmDay*, "The selected day")
#define PUBLISH_SelectedDayBackColor(ID) \
    VALUE(ID, SelectedDayBackColor, OLE_COLOR, "Back colour of the selected day")
#define PUBLISH_SelectedDayForeColor(ID) \
    VALUE(ID, SelectedDayForeColor, OLE_COLOR, "Fore colour of the selected day")
#define PUBLISH_TodayBackColor(ID) \
    VALUE(ID, TodayBackColor, OLE_COLOR, "Back colour of the present day")
#define PUBLISH_TodayForeColor(ID) \
    VALUE(ID, TodayForeColor, OLE_COLOR, "Fore colour of the present day")
#define PUBLISH_WeekDayAppearance(ID) \
    VALUE(ID, WeekDayAppearance, VmAppearanceConstants, "Look of the week-day captions: flat or 3D")
#define PUBLISH_WeekDayBackColor(ID) \
    VALUE(ID, WeekDayBackColor, OLE_COLOR, "Back colour of the week-day captions")
#define PUBLISH_WeekDayDisplay(ID)                       \
    VALUE(ID, WeekDayDisplay, VmWeekDayDisplayConstants, \
          "Week-day captions: none, full, abbreviated or one letter")
#define PUBLISH_WeekDayFont(ID) OBJECT(ID, WeekDayFont, IFontDisp, "Font of the week-day captions")
#define PUBLISH_WeekDayForeColor(ID) \
    VALUE(ID, WeekDayForeColor, OLE_COLOR, "Fore colour of the week-day captions")
#define PUBLISH_WeekDayCaptionAlignment(ID) \
    VALUE(ID, WeekDayCaptionAlignment, VmTextAlignmentConstants, "Place of the week-day captions")
#define PUBLISH_ShowWeekend(ID) \
    VALUE(ID, ShowWeekend, VARIANT_BOOL, "True for seven columns, False for Monday to Friday")

// Those that are got and set by their row: all but the list of days and the window.
// clang-format off
#define PUBLISH_BY_ROW() \
    PUBLISH_DateMax(0) PUBLISH_DateMin(0) PUBLISH_DateValue(0) PUBLISH_DayAppearance(0) \
    PUBLISH_DayDefaultBackColor(0) PUBLISH_DayOtherMonthForeColor(0) \
    PUBLISH_DayDefaultForeColor(0) PUBLISH_DayCaptionAlignment(0) PUBLISH_DayFont(0) \
    PUBLISH_DayNumberAlignment(0) PUBLISH_DayPictureAlignment(0) PUBLISH_Enabled(0) \
    PUBLISH_FirstDayOfWeek(0) PUBLISH_MonthAppearance(0) PUBLISH_MonthBackColor(0) \
    PUBLISH_MonthDisplay(0) PUBLISH_MonthFont(0) PUBLISH_MonthForeColor(0) PUBLISH_MouseIcon(0) \
    PUBLISH_MousePointer(0) PUBLISH_SelectedDay(0) PUBLISH_SelectedDayBackColor(0) \
    PUBLISH_SelectedDayForeColor(0) PUBLISH_TodayBackColor(0) PUBLISH_TodayForeColor(0) \
    PUBLISH_WeekDayAppearance(0) PUBLISH_WeekDayBackColor(0) PUBLISH_WeekDayDisplay(0) \
    PUBLISH_WeekDayFont(0) PUBLISH_WeekDayForeColor(0) PUBLISH_WeekDayCaptionAlignment(0) \
    PUBLISH_ShowWeekend(0)
// clang-format on
