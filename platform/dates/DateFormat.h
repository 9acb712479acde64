#pragma once

#include "platform/dates/Date.h"
#include "platform/dates/DateLocale.h"
#include "platform/dates/Dates.h"

#include <string>
#include <string_view>

namespace velmora {

/// `Dates::Format`, for the given locale data.
std::string FormatDate(const DateLocale& locale, Date date, std::string_view expression,
                       int firstDayOfWeek, FirstWeekOfYear firstWeek);

}  // namespace velmora
