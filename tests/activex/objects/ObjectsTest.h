#pragma once

#include "apps/vmhost/EventSink.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/control/CalendarControl.h"
#include "hosts/activex/control/DropDownControl.h"

#include <VelmoraCalendarInterfaces.h>
#include <gtest/gtest.h>

namespace velmora {

using vmhost::ComPtr;

/// Both controls, not placed anywhere.
inline ComPtr<::_VmCalendar> NewCalendar() { return Adopt<::_VmCalendar>(new CalendarControl); }
inline ComPtr<::_VmCalDropDown> NewBox() { return Adopt<::_VmCalDropDown>(new DropDownControl); }

}  // namespace velmora
