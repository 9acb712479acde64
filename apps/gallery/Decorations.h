#pragma once

#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "VelmoraCalendar/VmCalendarWidget.h"

namespace velmora {

/// Gives some days of the shown month colours, captions and pictures, and does it again for every
/// month that the calendar turns to, as a new month begins undecorated.
void Decorate(VmCalendarWidget& calendar);
void Decorate(VmCalDropDownWidget& box);

}  // namespace velmora
