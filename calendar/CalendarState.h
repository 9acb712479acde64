#pragma once

#include "model/Enumerations.h"
#include "platform/FontAndPicture.h"
#include "platform/Values.h"

#include <cstdint>

namespace velmora {

inline constexpr Date kDefaultDateMax{401768};   // 31 December 2999
inline constexpr Date kDefaultDateMin{-328716};  // 1 January 1000

/// What a calendar remembers besides its days and what lives on its window. The initialisers are
/// the defaults of a new calendar.
struct CalendarState {
    VmAppearanceConstants appearance = VmAppearance3D;
    Date dateMax = kDefaultDateMax;
    Date dateMin = kDefaultDateMin;
    Date dateValue;           // today in a new calendar
    bool dateChosen = false;  // else nobody has touched it, and it is not saved
    VmAppearanceConstants dayAppearance = VmAppearance3D;
    VmTextAlignmentConstants dayCaptionAlignment = VmTextBottomCenter;
    FontRef dayFont;  // null: the container's
    VmTextAlignmentConstants dayNumberAlignment = VmTextTopRight;
    VmPictureAlignmentConstants dayPictureAlignment = VmPictTopLeft;
    VmWeekDays firstDayOfWeek = VmSunday;
    VmAppearanceConstants monthAppearance = VmAppearance3D;
    OLE_COLOR monthBackColor = kButtonFace;
    VmMonthDisplayConstants monthDisplay = VmMonthFullName;
    FontRef monthFont;
    OLE_COLOR monthForeColor = kWindowText;
    VmMonthYearSelStyleConstants monthYearSelStyle = VmMonthSelNone;
    OLE_COLOR selectedDayBackColor = kHighlight;
    OLE_COLOR selectedDayForeColor = kHighlightText;
    OLE_COLOR todayBackColor = 0x00FFFF00;  // cyan
    OLE_COLOR todayForeColor = kWindowText;
    VmAppearanceConstants weekDayAppearance = VmAppearance3D;
    OLE_COLOR weekDayBackColor = kButtonFace;
    VmWeekDayDisplayConstants weekDayDisplay = VmWeekDayAbbrName;
    FontRef weekDayFont;
    OLE_COLOR weekDayForeColor = kWindowText;
    VmTextAlignmentConstants weekDayCaptionAlignment = VmTextMiddleCenter;
    bool showWeekend = true;

    bool alwaysDateChanged = false;
    bool extendedNavigation = false;
    bool noRepaintControl = false;
    bool noResizeControl = false;

    Date shownDate;               // the grid shows its month
    bool ready = false;           // the properties have their first values
    bool monthAnnounced = false;  // the first paint has raised `MonthChanged`

    /// The week day of the first column.
    std::int32_t GridFirstDay() const noexcept { return showWeekend ? firstDayOfWeek : VmMonday; }
};

}  // namespace velmora
