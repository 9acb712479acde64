#pragma once

#include "platform/dates/Date.h"
#include "platform/dates/DateLocale.h"

#include <functional>
#include <optional>
#include <string_view>

namespace velmora {

/// `Dates::TryParse`, for the given locale data. `today` is asked only when the text has no year.
std::optional<Date> ParseDate(const DateLocale& locale, std::string_view text,
                              const std::function<DayNumber()>& today);

/// `Dates::TryParseDay`, likewise.
std::optional<DayNumber> ParseDay(const DateLocale& locale, std::string_view text,
                                  const std::function<DayNumber()>& today);

}  // namespace velmora
