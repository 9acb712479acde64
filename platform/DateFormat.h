#pragma once

#include "platform/Date.h"
#include "platform/DateLocale.h"
#include "platform/Dates.h"

#include <string>
#include <string_view>

namespace velmora {

/// `Dates::Format`, for the given locale data.
std::string FormatDate(const DateLocale& locale, Date date, std::string_view expression,
                       int firstDayOfWeek, FirstWeekOfYear firstWeek);

}  // namespace velmora
