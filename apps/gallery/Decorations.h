#pragma once

#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "VelmoraCalendar/VmCalendarWidget.h"

namespace velmora {

/// Gives some days of the shown month colours, captions and pictures, and does it again for every
/// month that the calendar turns to, as a new month begins undecorated.
void Decorate(VmCalendarWidget& calendar);
void Decorate(VmCalDropDownWidget& box);

/// The calendar at its best: flat, on the palette's own ground, with arrows, decorated.
void Adorn(VmCalendarWidget& calendar);
/// The same of a box's calendar.
void Adorn(VmCalDropDownWidget& box);

}  // namespace velmora
